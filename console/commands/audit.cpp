#include "console/maintenance/audit.h"
#include "console/messages/catalog/audit.h"

#include "console/commands/commands.h"
#include "console/prompts/prompt.h"

namespace console::commands {

void audit(CommandContext& context) {
  const bool fix = promptYesNo(context.session, msg::kPromptFix);
  showIssues(context.session, auditOpenDrawing(context.session, fix));
}

} // namespace console::commands
