#include "console/commands/block_questions.h"
#include "console/messages/catalog/blocks.h"
#include "console/messages/catalog/lists.h"
#include "console/messages/catalog/xrefs.h"

#include "console/blocks/make_block.h"
#include "console/commands/block_list.h"
#include "console/prompts/prompt.h"

#include "DbBlockTable.h"
#include "blockcommon/messages.h"

#include <array>

namespace console::commands {

OdString promptNameOrList(Session& session, MessageText prompt) {
  for (;;) {
    const OdString entered = promptText(session, prompt).value_or(OdString());
    if (entered != L"?")
      return entered;
    if (listBlocks(session) == 0)
      session.result(msg::kNoBlocks);
  }
}

bool promptRedefine(Session& session, const OdString& name) {
  constexpr int kReplace = 0;
  const OdDbObjectId block = definitionOf(session, name);
  if (block.isNull())
    return false;
  if (dlgTips::showBlockRedefineTips(name, static_cast<int>(referencesTo(block))) != kReplace)
    cancel();
  return true;
}

SourceObjects promptSourceObjects(Session& session, SourceObjects usual) {
  constexpr std::array<const wchar_t*, 3> kNames = {L"Keep", L"Convert", L"Delete"};
  const OdString usualName = kNames[static_cast<std::size_t>(usual)];
  const OdString answer =
      promptKeyword(session, msg::kKeywordsSourceObjects, msg::kPromptSourceObjects, {usualName}).value_or(usualName);
  for (std::size_t at = 0; at < kNames.size(); ++at) {
    if (answer == kNames[at])
      return static_cast<SourceObjects>(at);
  }
  return usual;
}

void openEditor(CommandContext& context, OdDbObjectId block) {
  const OdString name = OdDbBlockTableRecordPtr(block.safeOpenObject())->getName();
  context.drawing.document->setBlockEditorName(name);
  context.session.print(msg::kEditorOpened, {name});
}

} // namespace console::commands
