#include "console/ask.h"
#include "console/block_maker.h"
#include "console/commands/block_questions.h"
#include "console/commands/commands.h"

#include "DbBlockTable.h"

namespace console::commands {
namespace {

// Contents of these belong to somebody else: the drawing itself, another file, the object that they draw.
void refuseForeign(const OdDbBlockTableRecord& block) {
  if (block.isLayout())
    refuse(Text::kNameOfSpace, {block.getName()});
  if (block.isFromExternalReference() || block.isDependent())
    refuse(Text::kNameExternal, {block.getName()});
  if (block.isAnonymous())
    refuse(Text::kNameAnonymous, {block.getName()});
}

} // namespace

void bedit(CommandContext& context) {
  if (const OdString edited = context.drawing.document->blockEditorName(); !edited.isEmpty())
    refuse(Text::kEditorOpen, {edited});
  const auto name = askText(context.session, Text::kPromptEditedBlock, {}, true);
  const auto block =
      OdDbBlockTableRecord::cast(definitionOf(context.session, name.value_or(OdString())).safeOpenObject());
  if (block.isNull())
    refuse(Text::kNoBlockToEdit, {name.value_or(OdString())});
  refuseForeign(*block);
  openEditor(context, block->objectId());
}

} // namespace console::commands
