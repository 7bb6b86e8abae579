#include "console/commands/commands.h"
#include "console/commands/unsaved.h"
#include "console/messages/catalog/drawings.h"

namespace console::commands {

void newDrawing(CommandContext& context) {
  promptToDiscardChanges(context.session);
  context.session.replaceDrawing(OdDbDatabase::create(), {}, false);
  context.session.print(msg::kNewDrawing);
}

} // namespace console::commands
