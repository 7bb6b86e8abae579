#include "console/blocks/make_block.h"
#include "console/commands/block_questions.h"
#include "console/commands/commands.h"
#include "console/messages/catalog/blocks.h"
#include "console/messages/catalog/xrefs.h"
#include "console/prompts/prompt.h"

#include "DbBlockTable.h"

namespace console::commands {
void bedit(CommandContext& context) {
  if (const OdString edited = context.drawing.document->blockEditorName(); !edited.isEmpty())
    refuse(msg::kEditorOpen, {edited});
  const auto name = promptText(context.session, msg::kPromptEditedBlock, {}, true);
  const auto block =
      OdDbBlockTableRecord::cast(definitionOf(context.session, name.value_or(OdString())).safeOpenObject());
  if (block.isNull())
    refuse(msg::kNoBlockToEdit, {name.value_or(OdString())});
  refuseNonDefinition(*block);
  if (block->isAnonymous()) // the picture of something else
    refuse(msg::kNameAnonymous, {block->getName()});
  openEditor(context, block->objectId());
}

} // namespace console::commands
