#include "console/commands/commands.h"
#include "console/session/session.h"

namespace console::commands {

void undo(CommandContext& context) {
  OpenDrawing& drawing = context.drawing;
  if (drawing.done.empty() || context.database.undo() != eOk)
    refuse(MessageId::kNothingToUndo);
  drawing.undone.push_back(drawing.done.back());
  drawing.done.pop_back();
  context.session.print(MessageId::kUndone, {OdString::fromUtf8(drawing.undone.back())});
}

} // namespace console::commands
