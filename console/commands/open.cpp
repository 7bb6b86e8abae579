#include "console/commands/commands.h"
#include "console/commands/unsaved.h"
#include "console/drawings/drawing_io.h"
#include "console/messages/catalog/drawings.h"
#include "console/messages/catalog/session.h"
#include "console/prompts/prompt.h"

namespace console::commands {

void promptToDiscardChanges(Session& session) {
  if (session.drawing().document->isModified() && !promptYesNo(session, msg::kDiscardQuestion))
    cancel();
}

void open(CommandContext& context) {
  const auto path = promptText(context.session, msg::kPromptFileName);
  if (!path)
    refuse(msg::kNoFileName);
  promptToDiscardChanges(context.session);
  openDrawing(context.session, path->toUtf8Lossless());
}

} // namespace console::commands
