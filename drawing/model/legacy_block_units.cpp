#include "drawing/model/legacy_block_units.h"

namespace drawing {

namespace {

constexpr std::size_t kGroups = 5; // the name, {, 1, units, }

std::size_t findApplication(const GroupList& xData) {
  std::size_t at = xData.find(1001);
  while (at < xData.size() && xData.textOf(xData[at]) != "ACAD")
    at = xData.find(1001, at + 1);
  return at;
}

bool isUnits(const GroupList& xData, std::size_t at) {
  return at + kGroups <= xData.size() && xData[at].code == 1000 && xData.textOf(xData[at]) == "DesignCenter Data" &&
         xData[at + 1].code == 1002 && xData[at + 2].code == 1070 && xData[at + 3].code == 1070 &&
         xData[at + 3].kind == GroupKind::kInt16 && xData[at + 4].code == 1002;
}

void appendUnits(GroupList& to, std::int16_t units) {
  to.utf8(1000, "DesignCenter Data");
  to.utf8(1002, "{");
  to.integer(1070, 1);
  to.integer(1070, units);
  to.utf8(1002, "}");
}

} // namespace

bool takeUnits(GroupList& xData, std::int16_t& units) {
  const std::size_t application = findApplication(xData);
  std::size_t at = application;
  while (at < xData.size() && !isUnits(xData, at) && (at == application || xData[at].code != 1001))
    ++at;
  if (at >= xData.size() || !isUnits(xData, at))
    return false;
  units = static_cast<std::int16_t>(xData[at + 3].integer);
  xData.erase(at, kGroups);
  if (application + 1 == xData.size() || (application + 1 < xData.size() && xData[application + 1].code == 1001))
    xData.erase(application, 1);
  return true;
}

void putUnits(GroupList& xData, std::int16_t units) {
  const std::size_t application = findApplication(xData);
  GroupList with;
  if (application < xData.size())
    xData.writeTo(with, 0, application);
  else
    xData.writeTo(with);
  with.utf8(1001, "ACAD");
  appendUnits(with, units);
  if (application < xData.size())
    xData.writeTo(with, application + 1, xData.size() - application - 1);
  xData = std::move(with);
}

} // namespace drawing
