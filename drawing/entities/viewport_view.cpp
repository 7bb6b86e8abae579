#include "drawing/entities/viewport_view.h"

#include "DbDatabase.h"
#include "DbSymbolRecords.h"
#include "Ge/GeUtil.h"
#include "drawing/model/object_store.h"
#include "drawing/model/symbol_name.h"
#include "drawing/records/raw_groups.h"

#include <vector>

namespace drawing {

// Numbers that later versions do not have are those of a new viewport.
void addViewportView(const GroupList& groups, GroupList& xData) {
  for (std::size_t at = xData.find(1000); at < xData.size(); at = xData.find(1000, at + 1)) {
    if (xData.textOf(xData[at]) == "MVIEW")
      return;
  }
  const auto real = [&groups](int code, double absent = 0) { return rawReal(groups, code, absent); };
  if (groups.find(45) == groups.size())
    return; // nothing is said of a view
  const std::int64_t flags = rawInteger(groups, 90);
  const auto flag = [flags](int bit) { return (flags >> bit) & 1; };
  xData.utf8(1001, "ACAD");
  xData.utf8(1000, "MVIEW");
  xData.utf8(1002, "{");
  xData.integer(1070, 16);
  xData.point(1010, {real(17), real(27), real(37)});
  xData.point(1010, {real(16), real(26), real(36, 1)});
  for (const double value : {toRadians(real(51)), real(45), real(12), real(22), real(42, 50), real(43), real(44)})
    xData.real(1040, value);
  for (const std::int64_t value : {flags & 31, rawInteger(groups, 72, 1000), std::int64_t{1}, flag(5), flag(8), flag(9),
                                   flag(10), rawInteger(groups, 78)})
    xData.integer(1070, value);
  for (const double value :
       {toRadians(real(50)), real(13), real(23), real(14, 0.5), real(24, 0.5), real(15, 0.5), real(25, 0.5)})
    xData.real(1040, value);
  xData.integer(1070, flag(11));
  xData.utf8(1002, "{");
  for (std::size_t i = 0; i < groups.size(); ++i) {
    const bool isFrozenLayer =
        groups[i].kind == GroupKind::kReference && (groups[i].code == 331 || groups[i].code == 341);
    if (isFrozenLayer && getIf<OdDbLayerTableRecord>(groups.idOf(groups[i])) != nullptr)
      xData.text(1003, symbolName(groups.idOf(groups[i])));
  }
  xData.utf8(1002, "}");
  xData.utf8(1002, "}");
}

namespace {

// The values of the list by kind, each in order.
struct View {
  std::vector<double> coordinates, reals;
  std::vector<std::int64_t> integers;
  std::vector<OdString> frozenLayers;
  bool isWhole() const { return coordinates.size() >= 6 && reals.size() >= 14 && integers.size() >= 9; }
};

View viewIn(const GroupList& xData) {
  View view;
  std::size_t at = xData.find(1000);
  while (at < xData.size() && xData.textOf(xData[at]) != "MVIEW")
    at = xData.find(1000, at + 1);
  for (; at < xData.size() && xData[at].code != 1001; ++at) {
    const Group& group = xData[at];
    if (group.kind == GroupKind::kReal)
      (group.code == 1040 ? view.reals : view.coordinates).push_back(group.real);
    else if (group.code == 1070)
      view.integers.push_back(group.integer);
    else if (group.code == 1003)
      view.frozenLayers.push_back(xData.stringOf(group));
  }
  return view;
}

// The marks of the list as bits of the flags.
std::int64_t flagsOf(const View& view) {
  constexpr int kModes = 31;
  std::int64_t flags = view.integers[1] & kModes;
  constexpr std::pair<std::size_t, int> kBits[] = {{4, 5}, {5, 8}, {6, 9}, {7, 10}};
  for (const auto& [index, bit] : kBits)
    flags |= view.integers[index] != 0 ? std::int64_t{1} << bit : 0;
  return view.integers.size() > 9 && view.integers[9] != 0 ? flags | (1 << 11) : flags;
}

} // namespace

GroupList viewportViewOf(const GroupList& xData, const OdDbDatabase& database) {
  const View view = viewIn(xData);
  GroupList section;
  if (!view.isWhole())
    return section;
  constexpr std::pair<int, std::size_t> kPairs[] = {{12, 2}, {13, 8}, {14, 10}, {15, 12}};
  for (const auto& [code, index] : kPairs) {
    section.real(code, view.reals[index]);
    section.real(code + 10, view.reals[index + 1]);
  }
  section.point(16, {view.coordinates[3], view.coordinates[4], view.coordinates[5]});
  section.point(17, {view.coordinates[0], view.coordinates[1], view.coordinates[2]});
  constexpr std::pair<int, std::size_t> kReals[] = {{42, 4}, {43, 5}, {44, 6}, {45, 1}};
  for (const auto& [code, index] : kReals)
    section.real(code, view.reals[index]);
  section.real(50, toDegrees(view.reals[7]));
  section.real(51, toDegrees(view.reals[0]));
  section.integer(72, view.integers[2]);
  for (const OdString& name : view.frozenLayers) {
    if (const OdDbObjectId layer = database.symbol(OdDb::kLayerTable, name); !layer.isNull())
      section.reference(331, layer);
  }
  section.integer(90, flagsOf(view));
  return section;
}

} // namespace drawing
