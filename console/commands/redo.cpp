#include "console/commands/commands.h"
#include "console/messages/catalog/undo.h"
#include "console/session/session.h"

namespace console::commands {

void redo(CommandContext& context) {
  OpenDrawing& drawing = context.drawing;
  if (drawing.undone.empty() || context.database.redo() != eOk)
    refuse(msg::kNothingToRedo);
  drawing.done.push_back(drawing.undone.back());
  drawing.undone.pop_back();
  context.session.print(msg::kRedone, {OdString::fromUtf8(drawing.done.back())});
}

} // namespace console::commands
