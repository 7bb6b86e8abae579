#include "console/blocks/block_objects.h"
#include "console/blocks/block_options.h"
#include "console/blocks/make_block.h"
#include "console/commands/block_list.h"
#include "console/commands/block_questions.h"
#include "console/commands/commands.h"
#include "console/messages/catalog/block_settings.h"
#include "console/messages/catalog/blocks.h"
#include "console/messages/catalog/lists.h"
#include "console/prompts/prompt.h"
#include "console/prompts/selection.h"

#include "blockcommon/block_names.h"
#include "blockcommon/messages.h"
#include "blockcommon/selections.h"
#include "morvane/drawing_tools.h"

#include <utility>

namespace console::commands {
namespace {

constexpr int kQuery = 0;
constexpr int kName = 1;

// Question marks are answered with the list of blocks until a name comes.
OdString promptBlockName(Session& session) {
  for (;;) {
    OdString entered = promptText(session, msg::kPromptBlockName).value_or(OdString());
    if (entered.isEmpty())
      refuseEmptyName();
    const int kind = commonFun::GetInputType(entered);
    if (kind == kName)
      return entered;
    if (kind != kQuery)
      session.print(msg::kBadBlockQuery);
    else if (listBlocks(session) == 0)
      session.result(msg::kNoBlocks);
  }
}

// What was selected before the command, less what lies on locked layers.
OdDbObjectIdArray takeSelectedBefore(Session& session) {
  OdDbObjectIdArray ids;
  commonFun::curSelectEntity(ids);
  if (!ids.isEmpty())
    reportPreselection(session, ids);
  return ids;
}

// Nothing for a block without contents, which the user has to want.
OdDbObjectIdArray promptObjects(Session& session) {
  constexpr int kSelect = 0;
  constexpr int kGoOn = 1;
  OdDbObjectIdArray ids = takeSelectedBefore(session);
  while (ids.isEmpty()) {
    ids = promptNewSelection(session);
    const int choice = ids.isEmpty() ? dlgTips::showSelectEntityTips() : kGoOn;
    if (choice == kGoOn)
      break;
    if (choice != kSelect)
      cancel();
  }
  return ids;
}

// Settings are changed until nothing more is typed.
void promptOptions(Session& session, BlockOptions& options) {
  const std::pair<const wchar_t*, int*> settings[] = {
      {L"Explodable", &options.explodable}, {L"Uniform", &options.uniform}, {L"Open", &options.openInEditor}};
  for (;;) {
    const auto shown = [](int value) { return OdString(value != 0 ? L"on" : L"off"); };
    session.print(msg::kBlockSettings,
                  {shown(options.explodable), shown(options.uniform), shown(options.openInEditor)});
    const auto entered = promptKeyword(session, msg::kKeywordsBlockOptions, msg::kPromptBlockOptions);
    if (!entered)
      return;
    for (const auto& [name, value] : settings) {
      if (*entered == name)
        *value = *value == 0 ? 1 : 0;
    }
  }
}

OdGePoint3d promptBasePoint(Session& session, BlockOptions& options) {
  for (;;) {
    const PointOrKeyword answer = promptPointOr(session, msg::kKeywordsBlock, msg::kPromptBlockBasePoint);
    if (answer.keyword.isEmpty())
      return answer.point.value_or(OdGePoint3d());
    promptOptions(session, options);
  }
}

} // namespace

void block(CommandContext& context) {
  Session& session = context.session;
  BlockOptions options = rememberedBlockOptions();
  BlockRequest request;
  request.name = promptBlockName(session);
  checkBlockName(session, request.name);
  request.redefine = promptRedefine(session, request.name);
  request.basePointUcs = promptBasePoint(session, options);
  request.ids = objectsForBlock(session, request.name, promptObjects(session)).ids;
  request.space = qzutads::currentSpaceId();
  request.sourceObjects = options.sourceObjects = promptSourceObjects(session, options.sourceObjects);
  request.explodable = options.explodable != 0;
  request.scalesUniformly = options.uniform != 0;
  const BlockMade made = makeBlock(session, request);
  reportBlockMade(session, request, made);
  rememberBlockOptions(options);
  if (options.openInEditor != 0 && context.drawing.document->blockEditorName().isEmpty())
    openEditor(context, made.block);
}

} // namespace console::commands
