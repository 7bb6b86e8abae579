#include "console/commands/commands.h"
#include "console/drawings/drawing_io.h"
#include "console/messages/catalog/drawings.h"
#include "console/prompts/prompt.h"

#include "drawing/file.h"

namespace console::commands {
namespace {

std::string promptFileName(CommandContext& context) {
  const std::string& before = context.drawing.path;
  const auto entered = before.empty()
                           ? promptText(context.session, msg::kPromptFileName)
                           : promptText(context.session, msg::kPromptFileNameOr, {OdString::fromUtf8(before)});
  return entered ? entered->toUtf8Lossless() : before;
}

OdDb::DwgVersion promptVersion(CommandContext& context) {
  const std::string usual = versionToWrite(context.database, OdDb::kVersionUnknown);
  const auto entered = promptText(context.session, msg::kPromptVersion, {OdString::fromUtf8(usual)});
  const OdDb::DwgVersion version = drawing::versionFromYear(entered ? entered->toUtf8() : usual);
  if (version == OdDb::kVersionUnknown || drawing::writtenVersion(version) != version)
    refuse(msg::kNoSuchVersion, {entered.value_or(OdString())});
  return version;
}

} // namespace

void saveas(CommandContext& context) {
  Session& session = context.session;
  SaveRequest request;
  request.path = promptFileName(context);
  checkDrawingName(request.path);
  request.version = promptVersion(context);
  if (fileExists(request.path)) {
    const bool repaired = isOwnFileRepaired(session, request.path);
    const MessageText question = repaired ? msg::kRepairedOwnQuestion : msg::kReplaceQuestion;
    if (!promptYesNo(session, question, {OdString::fromUtf8(request.path)}))
      cancel();
    request.mayReplace = true;
  }
  saveDrawing(session, request);
}

} // namespace console::commands
