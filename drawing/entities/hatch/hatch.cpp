#include "DbHatch.h"

#include "Ge/GeUtil.h"
#include "drawing/entities/hatch/hatch_parts.h"
#include "drawing/entities/hatch/hatch_reshape.h"
#include "drawing/model/load_context.h"
#include "drawing/model/object_store.h"
#include "drawing/model/visit_references.h"

#include <algorithm>

using drawing::GroupList;

MVDRAWING_DEFINE_OBJECT(OdDbHatch, OdDbEntity, "HATCH");
MVDRAWING_DEFINE_OBJECT(OdDbMPolygon, OdDbHatch, "MPOLYGON");

const drawing::Description& OdDbHatch::ownDescription() {
  static const drawing::Description description(&OdDbEntity::ownDescription(),
                                                {{"AcDbHatch", {}, readGroup, writeGroups}});
  return description;
}

const drawing::Description& OdDbMPolygon::ownDescription() {
  static const drawing::Description description(&OdDbEntity::ownDescription(),
                                                {{"AcDbMPolygon", {}, readGroup, writeGroups}});
  return description;
}

bool OdDbHatch::readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context) {
  context.append(static_cast<OdDbHatch&>(object).groups_, group);
  return true;
}

void OdDbHatch::writeGroups(const OdDbObject& object, drawing::GroupSink& sink) {
  static_cast<const OdDbHatch&>(object).groups_.writeTo(sink);
}

MVDRAWING_VISIT_REFERENCES(OdDbHatch, OdDbEntity, drawing::visitGroups(groups_, visitor);)

// Boundary objects that were not cloned do not bound the copy, and it follows none of them.
void OdDbHatch::afterClone(const OdDbObject& source, OdDbIdMapping& mapping) {
  constexpr int kCount = 97, kBoundary = 330, kAssociative = 71;
  OdDbEntity::afterClone(source, mapping);
  bool lost = false;
  std::size_t count = groups_.size();
  for (std::size_t i = 0; i < groups_.size();) {
    const drawing::Group group = groups_[i];
    if (group.code != kBoundary || group.kind != drawing::GroupKind::kReference || !groups_.idOf(group).isNull()) {
      count = group.code == kCount ? i : group.code == kBoundary ? count : groups_.size();
      ++i;
      continue;
    }
    groups_.erase(i, 1);
    if (count < i)
      groups_.setInteger(count, groups_[count].integer - 1);
    lost = true;
  }
  const std::size_t associative = groups_.find(kAssociative);
  if (lost && associative < groups_.size())
    groups_.setInteger(associative, 0);
}

std::int64_t OdDbHatch::integerOf(int code) const {
  const std::size_t i = groups_.find(code);
  return i < groups_.size() && groups_[i].kind != drawing::GroupKind::kUnparsed ? groups_[i].integer : 0;
}

OdString OdDbHatch::patternName() const {
  const std::size_t i = groups_.find(2);
  return i < groups_.size() ? groups_.stringOf(groups_[i]) : OdString();
}

namespace {

double firstReal(const GroupList& groups, int code, double absent) {
  const std::size_t i = groups.find(code);
  return i < groups.size() && groups[i].kind == drawing::GroupKind::kReal ? groups[i].real : absent;
}

} // namespace

// The head's place comes first: of its coordinates only z means something.
double OdDbHatch::elevation() const {
  return firstReal(groups_, 30, 0);
}

OdGeVector3d OdDbHatch::normal() const {
  return {firstReal(groups_, 210, 0), firstReal(groups_, 220, 0), firstReal(groups_, 230, 1)};
}

void OdDbHatch::setNormal(const OdGeVector3d& normal) {
  const double values[3] = {normal.x, normal.y, normal.z};
  if (groups_.find(230) < groups_.size()) {
    for (int i = 0; i < 3; ++i) {
      if (const std::size_t at = groups_.find(210 + 10 * i); at < groups_.size())
        groups_.setReal(at, values[i]);
    }
    return;
  }
  // Behind the place, where files have it.
  const std::size_t split = std::min(groups_.find(30) + 1, groups_.size());
  GroupList all;
  all.append(groups_, 0, split);
  for (int i = 0; i < 3; ++i)
    all.real(210 + 10 * i, values[i]);
  all.append(groups_, split, groups_.size() - split);
  groups_ = std::move(all);
}

OdResult OdDbHatch::applyTransform(const OdGeMatrix3d& matrix) {
  const OdGeVector3d before = normal();
  const drawing::PlaneMap map(matrix, before);
  const double height = elevation();
  if (map.keepsShapes()) {
    for (const drawing::HatchPart& part : drawing::hatchParts(groups_, onlyPolylines()))
      drawing::moveHatchPart(groups_, part, map, height);
  } else if (!drawing::reshapeHatch(groups_, map, height)) {
    return eCannotTransform;
  }
  if (const std::size_t z = groups_.find(30); z < groups_.size())
    groups_.setReal(z, map.point(OdGePoint3d(0, 0, height)).z);
  const OdGeVector3d& after = map.normal();
  if (after.x != before.x || after.y != before.y || after.z != before.z)
    setNormal(after);
  return eOk;
}

OdResult OdDbHatch::getGeomExtents(OdGeExtents3d& extents) const {
  const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(normal());
  OdGeExtents3d all;
  for (const drawing::HatchPart& part : drawing::hatchParts(groups_, onlyPolylines()))
    drawing::addHatchPart(all, groups_, part, plane, elevation());
  extents.addExt(all);
  return all.isValidExtents() ? eOk : eNotApplicable;
}

// After the pattern comes a vector: the offset of the fill from the boundary.
OdResult OdDbMPolygon::applyTransform(const OdGeMatrix3d& matrix) {
  const drawing::PlaneMap map(matrix, normal());
  if (!map.keepsShapes())
    return eCannotTransform;
  const std::vector<drawing::HatchPart> parts = drawing::hatchParts(groups_, onlyPolylines());
  for (std::size_t i = parts.back().first;
       i + 1 < groups_.size() && parts.back().kind >= drawing::HatchPartKind::kPattern; ++i) {
    if (groups_[i].code != 11 || groups_[i + 1].code != 21)
      continue;
    const OdGeVector3d moved = map.vector(OdGeVector3d(groups_[i].real, groups_[i + 1].real, 0));
    groups_.setReal(i, moved.x);
    groups_.setReal(i + 1, moved.y);
  }
  return OdDbHatch::applyTransform(matrix);
}
