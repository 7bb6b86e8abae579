#include "DbSpatialFilter.h"

#include "DbBlockReference.h"
#include "DbDictionary.h"
#include "drawing/model/load_context.h"
#include "drawing/model/object_store.h"

#include <algorithm>

using drawing::getIf;

MVDRAWING_DEFINE_OBJECT(OdDbSpatialFilter, OdDbObject, "SPATIAL_FILTER");

namespace {

constexpr std::size_t kEntries = 12; // three rows of four

} // namespace

const drawing::Description& OdDbSpatialFilter::ownDescription() {
  static const drawing::Description description(
      &OdDbObject::ownDescription(), {{"AcDbFilter", {}}, {"AcDbSpatialFilter", {}, readGroup, writeGroups}});
  return description;
}

// Front distance, then the rows of both matrices: all under one code.
bool OdDbSpatialFilter::takeReal(double value) {
  const std::size_t at = realsRead_++;
  if (hasFront_ && at == 0) {
    front_ = value;
    return true;
  }
  const std::size_t entry = at - (hasFront_ ? 1 : 0);
  if (entry >= 2 * kEntries)
    return false;
  OdGeMatrix3d& matrix = entry < kEntries ? inverseInsert_ : clip_;
  matrix.entry[entry % kEntries / 4][entry % 4] = value;
  return true;
}

bool OdDbSpatialFilter::readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context) {
  auto& filter = static_cast<OdDbSpatialFilter&>(object);
  double value = 0;
  std::int64_t whole = 0;
  switch (group.code) {
  case 70:
    return true; // the count
  case 71:
    filter.enabled_ = context.integer(group, whole) && whole != 0;
    return true;
  case 72:
    filter.hasFront_ = context.integer(group, whole) && whole != 0;
    return true;
  case 73:
    filter.hasBack_ = context.integer(group, whole) && whole != 0;
    return true;
  case 41:
    context.real(group, filter.back_);
    return true;
  case 40:
    return !context.real(group, value) || filter.takeReal(value);
  case 10:
    filter.boundary_.emplace_back();
    context.real(group, filter.boundary_.back().x);
    return true;
  case 20:
    return !filter.boundary_.empty() && (context.real(group, filter.boundary_.back().y), true);
  default:
    break;
  }
  const int component = group.code % 100 / 10 - 1;
  if (group.code == 210 || group.code == 220 || group.code == 230) {
    context.real(group, filter.normal_[component]);
    return true;
  }
  if (group.code == 11 || group.code == 21 || group.code == 31) {
    context.real(group, filter.origin_[component]);
    return true;
  }
  return false;
}

void OdDbSpatialFilter::writeGroups(const OdDbObject& object, drawing::GroupSink& sink) {
  const auto& filter = static_cast<const OdDbSpatialFilter&>(object);
  sink.integer(70, static_cast<std::int64_t>(filter.boundary_.size()));
  for (const OdGePoint2d& corner : filter.boundary_) {
    sink.real(10, corner.x);
    sink.real(20, corner.y);
  }
  sink.point(210, OdGePoint3d() + filter.normal_);
  sink.point(11, filter.origin_);
  sink.integer(71, filter.enabled_ ? 1 : 0);
  sink.integer(72, filter.hasFront_ ? 1 : 0);
  if (filter.hasFront_)
    sink.real(40, filter.front_);
  sink.integer(73, filter.hasBack_ ? 1 : 0);
  if (filter.hasBack_)
    sink.real(41, filter.back_);
  for (const OdGeMatrix3d* matrix : {&filter.inverseInsert_, &filter.clip_}) {
    for (std::size_t i = 0; i < kEntries; ++i)
      sink.real(40, matrix->entry[i / 4][i % 4]);
  }
}

std::optional<double> OdDbSpatialFilter::frontClipDist() const {
  return hasFront_ ? std::optional<double>(front_) : std::nullopt;
}

std::optional<double> OdDbSpatialFilter::backClipDist() const {
  return hasBack_ ? std::optional<double>(back_) : std::nullopt;
}

std::vector<OdGePoint3d> OdDbSpatialFilter::inBlock(std::vector<OdGePoint2d> corners) const {
  OdGeMatrix3d toWorld;
  if (corners.size() < 2 || !clip_.inverse(toWorld))
    return {};
  if (corners.size() == 2)
    corners = {corners[0], {corners[1].x, corners[0].y}, corners[1], {corners[0].x, corners[1].y}};
  const OdGeMatrix3d toBlock = inverseInsert_ * toWorld;
  std::vector<OdGePoint3d> points;
  for (const OdGePoint2d& corner : corners)
    points.push_back(toBlock * OdGePoint3d(corner.x, corner.y, 0));
  return points;
}

std::vector<OdGePoint3d> OdDbSpatialFilter::boundaryInBlock() const {
  return inBlock(boundary_);
}

namespace {

constexpr const char* kHole = "ACAD_INVERTEDCLIP_ROUNDTRIP";
constexpr const char* kBoundary = "ACAD_INVERTEDCLIP_ROUNDTRIP_COMPARE";

// The corners behind that mark.
std::vector<OdGePoint2d> cornersAfter(const drawing::GroupList& groups, std::string_view marker) {
  std::vector<OdGePoint2d> corners;
  std::size_t i = groups.find(102);
  while (i < groups.size() && groups.textOf(groups[i]) != marker)
    i = groups.find(102, i + 1);
  for (++i; i + 1 < groups.size() && groups[i].code != 102; ++i) {
    if (groups[i].code == 10 && groups[i + 1].code == 20)
      corners.emplace_back(groups[i].real, groups[i + 1].real);
  }
  return corners;
}

bool areSame(const std::vector<OdGePoint2d>& a, const std::vector<OdGePoint2d>& b) {
  constexpr double kNearly = 1e-6;
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const OdGePoint2d& p, const OdGePoint2d& q) { return p.isEqualTo(q, OdGeTol(kNearly)); });
}

} // namespace

// The record of the hole holds as long as the boundary that it was written with is the filter's.
std::vector<OdGePoint3d> OdDbSpatialFilter::holeInBlock() const {
  const auto* extension = getIf<OdDbDictionary>(extensionDictionary());
  if (extension == nullptr)
    return {};
  for (const OdDbDictionary::Entry& entry : extension->entries()) {
    const auto* record = getIf<OdDbXrecord>(entry.id);
    if (record == nullptr || !areSame(cornersAfter(record->groups(), kBoundary), boundary_))
      continue;
    if (std::vector<OdGePoint3d> hole = inBlock(cornersAfter(record->groups(), kHole)); !hole.empty())
      return hole;
  }
  return {};
}

OdDbSpatialFilterPtr OdDbSpatialFilter::of(const OdDbBlockReference& reference) {
  const auto* extension = getIf<OdDbDictionary>(reference.extensionDictionary());
  const auto* filters = extension == nullptr ? nullptr : getIf<OdDbDictionary>(extension->getAt(L"ACAD_FILTER"));
  return filters == nullptr ? OdDbSpatialFilterPtr()
                            : OdDbSpatialFilter::cast(filters->getAt(L"SPATIAL").safeOpenObject().get());
}
