#include "console/commands/commands.h"
#include "console/commands/text_height.h"
#include "console/drawings/entity_summary.h"
#include "console/messages/number_text.h"
#include "console/prompts/prompt.h"

#include "DbText.h"

namespace console::commands {

double promptTextHeight(CommandContext& context) {
  constexpr double kUsual = 2.5;
  const double usual = context.database.headerReal("TEXTSIZE", kUsual);
  const double height = promptNumber(context.session, MessageId::kPromptHeight, {realText(usual)}).value_or(usual);
  if (height <= 0)
    refuse(MessageId::kHeightTooSmall);
  return height;
}

void text(CommandContext& context) {
  Session& session = context.session;
  const OdGePoint3d start = promptRequiredPoint(session, MessageId::kPromptTextStart);
  const double height = promptTextHeight(context);
  const double angle = promptAngle(session, MessageId::kPromptAngle).value_or(0);
  const auto value = promptText(session, MessageId::kPromptText, {}, true);
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
