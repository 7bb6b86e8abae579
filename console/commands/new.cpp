#include "console/commands/commands.h"
#include "console/commands/unsaved.h"

namespace console::commands {

void newDrawing(CommandContext& context) {
  promptToDiscardChanges(context.session);
  context.session.replaceDrawing(OdDbDatabase::create(), {}, false);
  context.session.print(MessageId::kNewDrawing);
}

} // namespace console::commands
