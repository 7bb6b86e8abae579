#include "console/messages/catalog/insert.h"
#include "console/attributes/attribute_answers.h"
#include "console/blocks/insert_source.h"
#include "console/blocks/make_block.h"
#include "console/blocks/reference_placement.h"
#include "console/commands/block_questions.h"
#include "console/commands/commands.h"
#include "console/drawings/drawing_io.h"
#include "console/messages/catalog/blocks.h"
#include "console/messages/number_text.h"
#include "console/prompts/prompt.h"

#include "DbBlockTable.h"
#include "blockcommon/document_queries.h"
#include "blockcommon/file_paths.h"
#include "blockcommon/insertion.h"
#include "blockcommon/typed_names.h"

#include <string_view>
#include <utility>

namespace console::commands {
namespace {

constexpr int kMaxRows = 32767;
constexpr wchar_t kNoFolder[] = L""; // the host's search knows the folder of the drawing

// In the words of the box that was shown.
[[noreturn]] void refuseEntered(const Session& session, const OdString& entered) {
  constexpr std::pair<std::string_view, MessageText> kReasons[] = {
      {"box.name-empty", msg::kNameEmpty},          {"box.name-too-long", msg::kNameTooLong},
      {"box.name-characters", msg::kNameInvalid},   {"box.name-invalid", msg::kNameInvalid},
      {"box.contains-itself", msg::kInsertsItself}, {"box.block-attached", msg::kNameExternal},
  };
  for (const auto& [box, reason] : kReasons) {
    if (!session.transcript().empty() && session.transcript().back().id == box)
      refuse(reason, {entered});
  }
  refuse(msg::kNoBlockOrFile, {entered});
}

// As named, or where the host finds it.
std::string systemPath(const morvane::PathMap& paths, const OdString& file) {
  const std::string path = paths.toSystem(file);
  OdString found;
  return isOrdinaryFile(path) || !insertCommon::isFileExist(file, found) ? path : paths.toSystem(found);
}

// The block that the file makes, under that name unless it is empty. The file was typed so.
OdDbObjectId blockOfFile(Session& session, const OdString& spec, const OdString& entered, const OdString& name) {
  const morvane::PathMap& paths = session.host().paths();
  OdString ownName, file;
  if (!AnalyzeBlkNamePath::analyzeLastBlkPath2(kNoFolder, spec, ownName, file))
    refuseEntered(session, entered);
  const std::string path = systemPath(paths, file);
  const BlockSource source = readBlockSource(session, path, name.isEmpty() ? ownName : name);
  const ImportedBlock in = importBlock(session, source, ConflictPolicy::kPrompt);
  insertCommon::checkExternalReference(paths.toDrawing(path));
  return in.block;
}

// NAME=FILE. The name replaces that of the file, so that the rules of the file name do not apply.
OdDbObjectId blockOfPair(Session& session, const OdString& name, const OdString& entered) {
  OdString file = session.host().paths().toDrawing(entered.toUtf8Lossless());
  if (file.findOneOf(L"\\:") < 0)
    file = L".\\" + file; // a file also where a block has that name
  return blockOfFile(session, file, entered, name);
}

OdDbObjectId blockOfEntered(Session& session, const OdString& entered) {
  const int equals = entered.find(L'='), separator = entered.findOneOf(L"/\\");
  if (equals > 0 && (separator < 0 || equals < separator))
    return blockOfPair(session, entered.left(equals), entered.mid(equals + 1));
  const OdString spec = session.host().paths().toDrawing(entered.toUtf8Lossless());
  OdString edited, name;
  insertCommon::getBeditBlockName(edited);
  if (!AnalyzeBlkNamePath::checkInputBlockInfoValidByReplaceDlg(spec, OdString(), edited, kNoFolder, name))
    refuseEntered(session, entered);
  const OdDbObjectId block = definitionOf(session, spec);
  return block.isNull() ? blockOfFile(session, spec, entered, OdString()) : block;
}

std::int16_t promptCount(Session& session, MessageText prompt) {
  const double number = promptNumber(session, prompt).value_or(1);
  if (number < 1 || number > kMaxRows || number != static_cast<double>(static_cast<int>(number)))
    refuse(msg::kBadRows, {exactText(number)});
  return static_cast<std::int16_t>(number);
}

void promptRows(Session& session, Placement& placement) {
  placement.rows = promptCount(session, msg::kPromptRows);
  placement.columns = promptCount(session, msg::kPromptColumns);
  if (placement.rows > 1)
    placement.rowSpacing = promptRequiredNumber(session, msg::kPromptRowSpacing);
  if (placement.columns > 1)
    placement.columnSpacing = promptRequiredNumber(session, msg::kPromptColumnSpacing);
}

void promptPoint(Session& session, Placement& placement) {
  for (;;) {
    const PointOrKeyword answer = promptPointOr(session, msg::kKeywordsInsert, msg::kPromptInsertPoint);
    if (answer.point)
      placement.at = *answer.point;
    if (answer.keyword.isEmpty())
      return; // nothing typed is the origin
    promptRows(session, placement);
  }
}

void promptScale(Session& session, OdDbObjectId block, Placement& placement) {
  const bool uniform = insertCommon::isBlockUniformScaled(block);
  const double x = promptNumber(session, uniform ? msg::kPromptScale : msg::kPromptScaleX).value_or(1);
  const double y = uniform ? x : promptNumber(session, msg::kPromptScaleY).value_or(x);
  placement.scale = OdGeScale3d(x, y, x);
}

} // namespace

void insert(CommandContext& context) {
  Session& session = context.session;
  const OdDbObjectId block = blockOfEntered(session, promptNameOrList(session, msg::kPromptInsertName));
  Placement placement;
  promptPoint(session, placement);
  promptScale(session, block, placement);
  placement.rotation = promptAngle(session, msg::kPromptInsertRotation).value_or(0);
  session.print(msg::kUnitsFactor, {exactText(unitsFactor(block))});
  const OdDbBlockReferencePtr reference = placeReference(session, block, placement);
  fillAttributes(session, reference, {});
  session.result(msg::kInserted,
                 {OdDbBlockTableRecordPtr(block.safeOpenObject())->getName(), handleText(reference->objectId())});
}

} // namespace console::commands
