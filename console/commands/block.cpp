#include "console/ask.h"
#include "console/block_maker.h"
#include "console/block_objects.h"
#include "console/commands/block_list.h"
#include "console/commands/commands.h"
#include "console/selection.h"

#include "blockcommon/block_names.h"
#include "blockcommon/messages.h"
#include "blockcommon/selections.h"
#include "morvane/drawing_tools.h"

#include <array>

namespace console::commands {
namespace {

constexpr std::array<const wchar_t*, 3> kAfterwards = {L"Keep", L"Convert", L"Delete"};
constexpr int kQuery = 0;
constexpr int kName = 1;

// Question marks are answered with the list of blocks until a name comes.
OdString askBlockName(Session& session) {
  for (;;) {
    const OdString typed = askText(session, Text::kPromptBlockName).value_or(OdString());
    if (typed.isEmpty())
      refuseEmptyName();
    const int kind = commonFun::GetInputType(typed);
    if (kind == kName)
      return typed;
    if (kind != kQuery)
      session.say(Text::kBadBlockQuery);
    else if (listBlocks(session) == 0)
      session.result(Text::kNoBlocks);
  }
}

// Whether there is a definition and the user wants it replaced.
bool askRedefine(Session& session, const OdString& name) {
  constexpr int kReplace = 0;
  const OdDbObjectId block = definitionOf(session, name);
  if (block.isNull())
    return false;
  if (dlgTips::showBlockRedefineTips(name, static_cast<int>(referencesTo(block))) != kReplace)
    cancel();
  return true;
}

// What was selected before the command, less what lies on locked layers.
OdDbObjectIdArray takeSelectedBefore(Session& session) {
  OdDbObjectIdArray ids;
  commonFun::curSelectEntity(ids);
  if (!ids.isEmpty())
    tellSelectedBefore(session, ids);
  return ids;
}

// Nothing for a block without contents, which the user has to want.
OdDbObjectIdArray askObjects(Session& session) {
  constexpr int kSelect = 0;
  constexpr int kGoOn = 1;
  OdDbObjectIdArray ids = takeSelectedBefore(session);
  while (ids.isEmpty()) {
    ids = askSelectionAnew(session);
    const int choice = ids.isEmpty() ? dlgTips::showSelectEntityTips() : kGoOn;
    if (choice == kGoOn)
      break;
    if (choice != kSelect)
      cancel();
  }
  return ids;
}

Afterwards askAfterwards(Session& session) {
  const OdString usual = kAfterwards[static_cast<std::size_t>(session.afterwards)];
  const OdString answer =
      askKeyword(session, Text::kKeywordsAfterwards, Text::kPromptAfterwards, {usual}).value_or(usual);
  for (std::size_t at = 0; at < kAfterwards.size(); ++at) {
    if (answer == kAfterwards[at])
      session.afterwards = static_cast<Afterwards>(at);
  }
  return session.afterwards;
}

} // namespace

void block(CommandContext& context) {
  Session& session = context.session;
  BlockRequest request;
  request.name = askBlockName(session);
  checkBlockName(session, request.name);
  request.redefine = askRedefine(session, request.name);
  request.basePointUcs = askPoint(session, Text::kPromptBasePoint).value_or(OdGePoint3d());
  request.ids = objectsForBlock(session, request.name, askObjects(session)).ids;
  request.space = qzutads::currentSpaceId();
  request.afterwards = askAfterwards(session);
  tellBlockMade(session, request, makeBlock(session, request));
}

} // namespace console::commands
