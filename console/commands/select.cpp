#include "console/commands/commands.h"
#include "console/selection.h"

namespace console::commands {
namespace {

// The host's own set of what is selected before a command.
void makePickFirst(morvane::SelectionSets& sets, const OdDbObjectIdArray& ids) {
  long set[2] = {0, 0};
  for (const OdDbObjectId id : ids) {
    long member[2] = {0, 0};
    if (mvsi::mvsidbGetAdsName(member, id) != 0 || sets.add(member, set, set) != RTNORM)
      throw OdError(eInvalidInput);
  }
  sets.setFirst(set, nullptr);
  sets.free(set);
}

} // namespace

void select(CommandContext& context) {
  makePickFirst(context.session.host().selections(), askSelection(context.session));
}

} // namespace console::commands
