#include "console/commands/commands.h"
#include "console/messages/catalog/xrefs.h"
#include "console/session/session.h"

namespace console::commands {

void bclose(CommandContext& context) {
  mvsi::MvsiApDocument& document = *context.drawing.document;
  if (document.blockEditorName().isEmpty())
    refuse(msg::kEditorNotOpen);
  document.setBlockEditorName({}); // the session reports it
}

} // namespace console::commands
