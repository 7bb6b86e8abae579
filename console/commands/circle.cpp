#include "console/commands/commands.h"
#include "console/drawings/entity_summary.h"
#include "console/messages/catalog/objects.h"
#include "console/prompts/prompt.h"

#include "DbCurves.h"

namespace console::commands {

void circle(CommandContext& context) {
  const OdGePoint3d center = promptRequiredPoint(context.session, msg::kPromptCenter);
  const double radius = promptRequiredNumber(context.session, msg::kPromptRadius);
  if (radius <= 0)
    refuse(msg::kRadiusTooSmall);
  const OdDbCirclePtr entity = OdDbCircle::createObject();
  entity->setDatabaseDefaults(&context.database);
  entity->setCenter(center);
  entity->setRadius(radius);
  addToDrawing(context, *entity);
}

} // namespace console::commands
