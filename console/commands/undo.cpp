#include "console/messages/catalog/undo.h"
#include "console/commands/commands.h"
#include "console/session/session.h"

namespace console::commands {

void undo(CommandContext& context) {
  OpenDrawing& drawing = context.drawing;
  if (drawing.done.empty() || context.database.undo() != eOk)
    refuse(msg::kNothingToUndo);
  drawing.undone.push_back(drawing.done.back());
  drawing.done.pop_back();
  context.session.print(msg::kUndone, {OdString::fromUtf8(drawing.undone.back())});
}

} // namespace console::commands
