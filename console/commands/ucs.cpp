#include "console/messages/catalog/ucs.h"
#include "console/commands/commands.h"
#include "console/messages/number_text.h"
#include "console/prompts/prompt.h"

#include "DbSymbolRecords.h"

#include <numbers>

namespace console::commands {
namespace {

OdGeMatrix3d currentUcs(CommandContext& context) {
  OdGeMatrix3d ucs;
  if (mvsi::mvsidbUcsMatrix(ucs, &context.database) != RTNORM)
    throw OdError(eNoDatabase);
  return ucs;
}

void setUcs(CommandContext& context, const OdGeMatrix3d& ucs) {
  if (mvsi::mvsidbSetUcsMatrix(ucs, &context.database) != RTNORM)
    throw OdError(eInvalidInput);
}

void change(CommandContext& context, const OdGeMatrix3d& ucs) {
  const OdGeMatrix3d before = currentUcs(context);
  setUcs(context, ucs);
  context.drawing.earlierUcs.push_back(before);
}

OdString axisText(const OdGeVector3d& axis) {
  return tripleText(axis.x, axis.y, axis.z);
}

void showUcs(CommandContext& context) {
  const OdGeMatrix3d ucs = currentUcs(context);
  if (ucs == OdGeMatrix3d::kIdentity) {
    context.session.result(msg::kUcsWorld);
    return;
  }
  const OdGeVector3d origin = ucs.translation();
  context.session.result(msg::kUcsLine, {axisText(origin), axisText(ucs.column(0)), axisText(ucs.column(1))});
}

void world(CommandContext& context) {
  change(context, OdGeMatrix3d::kIdentity);
}

void origin(CommandContext& context) {
  const OdGePoint3d point = promptPoint(context.session, msg::kPromptOrigin).value_or(OdGePoint3d());
  change(context, currentUcs(context) * OdGeMatrix3d::translation({point.x, point.y, point.z}));
}

void threePoints(CommandContext& context) {
  const OdGePoint3d at = promptPoint(context.session, msg::kPromptOrigin).value_or(OdGePoint3d());
  const OdGePoint3d onX = promptRequiredPoint(context.session, msg::kPromptXAxis);
  const OdGePoint3d onY = promptRequiredPoint(context.session, msg::kPromptYAxis);
  const OdGeVector3d x = onX - at;
  const OdGeVector3d z = x.crossProduct(onY - at);
  if (x.isZeroLength() || z.isZeroLength())
    refuse(msg::kPointsInLine);
  const OdGeVector3d unitX = x.normal();
  const OdGeVector3d unitZ = z.normal();
  change(context, currentUcs(context) * OdGeMatrix3d::coordSystem(at, unitX, unitZ.crossProduct(unitX), unitZ));
}

void aboutZ(CommandContext& context) {
  const double angle = promptAngle(context.session, msg::kPromptRotation).value_or(std::numbers::pi / 2);
  change(context, currentUcs(context) * OdGeMatrix3d::rotation(angle, OdGeVector3d::kZAxis));
}

void previous(CommandContext& context) {
  if (context.drawing.earlierUcs.empty())
    refuse(msg::kNoEarlierUcs);
  setUcs(context, context.drawing.earlierUcs.back());
  context.drawing.earlierUcs.pop_back();
}

void listUcs(CommandContext& context) {
  const OdDbSymbolTablePtr table = context.database.getUCSTableId().safeOpenObject();
  for (const auto iterator = table->newIterator(); !iterator->done(); iterator->step()) {
    const OdSmartPtr<OdDbUCSTableRecord> record = iterator->getRecord();
    const OdGePoint3d at = record->origin();
    context.session.result(msg::kUcsRecord, {record->getName(), tripleText(at.x, at.y, at.z), axisText(record->xAxis()),
                                             axisText(record->yAxis())});
  }
}

struct Option {
  const wchar_t* keyword;
  void (*run)(CommandContext&);
};

constexpr Option kOptions[] = {
    {L"World", world}, {L"Origin", origin},     {L"3point", threePoints},
    {L"Z", aboutZ},    {L"Previous", previous}, {L"?", listUcs},
};

} // namespace

void ucs(CommandContext& context) {
  const OdString keyword = promptKeyword(context.session, msg::kKeywordsUcs, msg::kPromptUcs).value_or(L"World");
  for (const Option& option : kOptions) {
    if (keyword == option.keyword)
      option.run(context);
  }
  showUcs(context);
}

} // namespace console::commands
