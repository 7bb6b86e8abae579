#include "console/ask.h"
#include "console/attribute_answers.h"
#include "console/block_maker.h"
#include "console/block_source.h"
#include "console/commands/block_list.h"
#include "console/commands/commands.h"
#include "console/drawing_io.h"
#include "console/numbers.h"
#include "console/placement.h"

#include "DbBlockTable.h"
#include "blockcommon/insertion.h"
#include "morvane/system_services.h"

namespace console::commands {
namespace {

constexpr int kMostRows = 32767;

OdString askName(Session& session) {
  for (;;) {
    const OdString typed = askText(session, Text::kPromptInsertName).value_or(OdString());
    if (typed.isEmpty())
      refuseEmptyName();
    if (typed != L"?")
      return typed;
    if (listBlocks(session) == 0)
      session.result(Text::kNoBlocks);
  }
}

// A file as typed, with the endings of drawings, or on the search path; empty when there is none.
std::string fileOf(Session& session, const OdString& typed) {
  for (const wchar_t* ending : {L"", L".dxf", L".dwg"}) {
    const std::string path = (typed + ending).toUtf8Lossless();
    if (isOrdinaryFile(path))
      return path;
    const OdString found = mvdbSystemServices().findFile(session.host().paths().toDrawing(path), &session.database());
    if (!found.isEmpty())
      return session.host().paths().toSystem(found);
  }
  return {};
}

OdDbObjectId blockOfFile(Session& session, const OdString& typed) {
  const int equals = typed.find(L'='); // NAME=FILE
  const bool named = equals > 0 && fileOf(session, typed).empty();
  const OdString file = named ? typed.mid(equals + 1) : typed;
  const std::string path = fileOf(session, file);
  if (path.empty())
    refuse(Text::kNoBlockOrFile, {file});
  const BlockSource source = readBlockSource(session, path, named ? typed.left(equals) : OdString());
  const BroughtIn in = bringIn(session, source, OnClash::Ask);
  insertCommon::checkExternalReference(session.host().paths().toDrawing(path));
  return in.block;
}

std::int16_t askCount(Session& session, Text prompt) {
  const double number = askNumber(session, prompt).value_or(1);
  if (number < 1 || number > kMostRows || number != static_cast<double>(static_cast<int>(number)))
    refuse(Text::kBadRows, {exactText(number)});
  return static_cast<std::int16_t>(number);
}

void askRows(Session& session, Placement& placement) {
  placement.rows = askCount(session, Text::kPromptRows);
  placement.columns = askCount(session, Text::kPromptColumns);
  if (placement.rows > 1)
    placement.rowSpacing = askRequiredNumber(session, Text::kPromptRowSpacing);
  if (placement.columns > 1)
    placement.columnSpacing = askRequiredNumber(session, Text::kPromptColumnSpacing);
}

void askPoint(Session& session, Placement& placement) {
  for (;;) {
    const PointOrKeyword answer = askPointOr(session, Text::kKeywordsInsert, Text::kPromptInsertPoint);
    if (answer.point)
      placement.at = *answer.point;
    if (answer.keyword.isEmpty())
      return; // nothing typed is the origin
    askRows(session, placement);
  }
}

void askScale(Session& session, OdDbObjectId block, Placement& placement) {
  const bool uniform = insertCommon::isBlockUniformScaled(block);
  const double x = askNumber(session, uniform ? Text::kPromptScale : Text::kPromptScaleX).value_or(1);
  const double y = uniform ? x : askNumber(session, Text::kPromptScaleY).value_or(x);
  placement.scale = OdGeScale3d(x, y, x);
}

} // namespace

void insert(CommandContext& context) {
  Session& session = context.session;
  const OdString typed = askName(session);
  OdDbObjectId block = definitionOf(session, typed);
  if (block.isNull())
    block = blockOfFile(session, typed);
  Placement placement;
  askPoint(session, placement);
  askScale(session, block, placement);
  placement.rotation = askAngle(session, Text::kPromptInsertRotation).value_or(0);
  session.say(Text::kUnitsFactor, {exactText(unitsFactor(block))});
  const OdDbBlockReferencePtr reference = placeReference(session, block, placement);
  giveAttributes(session, reference, {});
  session.result(Text::kInserted, {OdDbBlockTableRecordPtr(block.safeOpenObject())->getName(),
                                   OdString::fromUtf8(reference->objectId().getHandle().ascii())});
}

} // namespace console::commands
