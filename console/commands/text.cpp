#include "console/commands/commands.h"
#include "console/commands/text_height.h"
#include "console/drawings/entity_summary.h"
#include "console/messages/catalog/objects.h"
#include "console/messages/number_text.h"
#include "console/prompts/prompt.h"

#include "DbText.h"

namespace console::commands {

double promptTextHeight(CommandContext& context) {
  constexpr double kUsual = 2.5;
  const double usual = context.database.headerReal("TEXTSIZE", kUsual);
  const double height = promptNumber(context.session, msg::kPromptHeight, {realText(usual)}).value_or(usual);
  if (height <= 0)
    refuse(msg::kHeightTooSmall);
  return height;
}

void text(CommandContext& context) {
  Session& session = context.session;
  const OdGePoint3d start = promptRequiredPoint(session, msg::kPromptTextStart);
  const double height = promptTextHeight(context);
  const double angle = promptAngle(session, msg::kPromptAngle).value_or(0);
  const auto value = promptText(session, msg::kPromptText, {}, true);
  if (!value)
    return;
  const OdDbTextPtr entity = OdDbText::createObject();
  entity->setDatabaseDefaults(&context.database);
  entity->setTextString(*value);
  entity->setHeight(height);
  entity->setRotation(angle);
  entity->setPosition(start);
  addToDrawing(context, *entity);
}

} // namespace console::commands
