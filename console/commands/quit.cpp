#include "console/commands/commands.h"
#include "console/commands/unsaved.h"

namespace console::commands {

void quit(CommandContext& context) {
  askToDiscardChanges(context.session);
  context.session.quit();
}

} // namespace console::commands
