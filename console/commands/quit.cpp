#include "console/commands/commands.h"
#include "console/prompts/prompt.h"

namespace console::commands {

void quit(CommandContext& context) {
  Session& session = context.session;
  if (session.isAnyModified() && !promptYesNo(session, MessageId::kDiscardQuestion))
    cancel();
  context.session.quit();
}

} // namespace console::commands
