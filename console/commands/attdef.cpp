#include "console/ask.h"
#include "console/commands/commands.h"
#include "console/commands/text_height.h"
#include "console/entities.h"

#include "DbAttribute.h"

namespace console::commands {

void attdef(CommandContext& context) {
  Session& session = context.session;
  OdString tag = askText(session, Text::kPromptTag).value_or(OdString());
  if (tag.isEmpty() || tag.findOneOf(L" \t") >= 0)
    refuse(Text::kBadTag, {tag});
  tag.makeUpper();
  const OdString prompt = askText(session, Text::kPromptTagPrompt, {tag}, true).value_or(tag);
  const OdString value = askText(session, Text::kPromptTagDefault, {}, true).value_or(OdString());
  const OdGePoint3d start = askRequiredPoint(session, Text::kPromptTextStart);
  const double height = askTextHeight(context);

  const OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::createObject();
  definition->setDatabaseDefaults(&context.database);
  definition->setTag(tag);
  definition->setPrompt(prompt);
  definition->setTextString(value);
  definition->setHeight(height);
  definition->setPosition(start);
  addToDrawing(context, *definition);
}

} // namespace console::commands
