#include "console/commands/commands.h"
#include "console/drawings/drawing_io.h"
#include "console/messages/catalog/drawings.h"
#include "console/prompts/prompt.h"

namespace console::commands {

void save(CommandContext& context) {
  Session& session = context.session;
  const std::string path = context.drawing.path;
  if (path.empty())
    return saveas(context);
  if (isOwnFileRepaired(session, path) && !promptYesNo(session, msg::kRepairedOwnQuestion, {OdString::fromUtf8(path)}))
    cancel();
  SaveRequest request;
  request.path = path;
  request.mayReplace = true;
  saveDrawing(session, request);
}

} // namespace console::commands
