#include "console/commands/commands.h"
#include "console/messages/catalog/session.h"
#include "console/prompts/prompt.h"

namespace console::commands {

void quit(CommandContext& context) {
  Session& session = context.session;
  if (session.isAnyModified() && !promptYesNo(session, msg::kDiscardQuestion))
    cancel();
  context.session.quit();
}

} // namespace console::commands
