#include "console/commands/commands.h"
#include "console/messages/catalog/selection.h"
#include "console/prompts/selection.h"

namespace console::commands {
namespace {

// The host's own set of what is selected before a command. Its views show it.
void makePickFirst(Session& session, const OdDbObjectIdArray& ids) {
  morvane::SelectionSets& sets = session.host().selections();
  long set[2] = {0, 0};
  for (const OdDbObjectId id : ids) {
    long member[2] = {0, 0};
    if (mvsi::mvsidbGetAdsName(member, id) != 0 || sets.add(member, set, set) != RTNORM)
      throw OdError(eInvalidInput);
  }
  sets.setFirst(set, nullptr);
  sets.free(set);
  session.host().documents().refresh(session.drawing().document.get());
}

} // namespace

void select(CommandContext& context) {
  const OdDbObjectIdArray ids = promptNewSelection(context.session);
  if (ids.isEmpty())
    refuse(msg::kNothingSelected);
  makePickFirst(context.session, ids);
}

} // namespace console::commands
