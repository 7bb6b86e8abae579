#include "console/commands/commands.h"
#include "console/drawings/entity_summary.h"
#include "console/prompts/prompt.h"

#include "DbCurves.h"

namespace console::commands {

void circle(CommandContext& context) {
  const OdGePoint3d center = promptRequiredPoint(context.session, MessageId::kPromptCenter);
  const double radius = promptRequiredNumber(context.session, MessageId::kPromptRadius);
  if (radius <= 0)
    refuse(MessageId::kRadiusTooSmall);
  const OdDbCirclePtr entity = OdDbCircle::createObject();
  entity->setDatabaseDefaults(&context.database);
  entity->setCenter(center);
  entity->setRadius(radius);
  addToDrawing(context, *entity);
}

} // namespace console::commands
