// Transforming an entity, with the attached data that moves with it.
#include "DbEntity.h"

#include "drawing/entities/common/annotation_contexts.h"
#include "drawing/ge/plane_map.h"
#include "drawing/model/object_store.h"

namespace {

// Extended data that names places, distances and directions moves with its entity.
void transformXData(drawing::GroupList& groups, const OdGeMatrix3d& matrix) {
  const double scale = matrix.scale();
  for (std::size_t i = 0; i < groups.size(); ++i) {
    const int code = groups[i].code;
    if (code == 1041 || code == 1042) {
      groups.setReal(i, groups[i].real * scale);
    } else if (code >= 1011 && code <= 1013 && i + 2 < groups.size()) {
      OdGePoint3d p(groups[i].real, groups[i + 1].real, groups[i + 2].real);
      OdGeVector3d v = p.asVector();
      if (code == 1011)
        v = (matrix * p).asVector();
      else
        v = matrix * v;
      if (code == 1013 && !v.isZeroLength())
        v = v.normal() * p.asVector().length();
      groups.setReal(i, v.x);
      groups.setReal(i + 1, v.y);
      groups.setReal(i + 2, v.z);
    }
  }
}

bool movesWithEntity(const drawing::GroupList* groups) {
  if (groups == nullptr)
    return false;
  for (std::size_t i = 0; i < groups->size(); ++i) {
    const int code = (*groups)[i].code;
    if ((code >= 1011 && code <= 1013) || code == 1041 || code == 1042)
      return true;
  }
  return false;
}

constexpr const char* kCommonMarker = "AcDbEntity";

// The carried groups behind the marker that all entities have.
struct GroupRun {
  std::size_t first = 0, length = 0;
};

GroupRun commonRun(const drawing::GroupList& groups) {
  for (std::size_t i = groups.find(100); i < groups.size(); i = groups.find(100, i + 1)) {
    if (groups.textOf(groups[i]) == kCommonMarker)
      return {i + 1, groups.find(100, i + 1) - i - 1};
  }
  return {groups.size(), 0};
}

// A picture of the entity for programs that do not know its kind: its length, and bytes with world coordinates.
GroupRun proxyGraphics(const drawing::GroupList* groups) {
  constexpr int kBytes = 310, kLength = 92, kLongLength = 160;
  const GroupRun run = groups == nullptr ? GroupRun{} : commonRun(*groups);
  const std::size_t end = run.first + run.length;
  for (std::size_t i = run.first; i + 1 < end; ++i) {
    const int code = (*groups)[i].code;
    if ((code != kLength && code != kLongLength) || (*groups)[i + 1].code != kBytes)
      continue;
    std::size_t next = i + 1;
    while (next < end && (*groups)[next].code == kBytes)
      ++next;
    return {i, next - i};
  }
  return {};
}

void dropProxyGraphics(drawing::GroupList& groups) {
  const GroupRun common = commonRun(groups), graphics = proxyGraphics(&groups);
  const bool alone = graphics.length == common.length;
  groups.erase(graphics.first - (alone ? 1 : 0), graphics.length + (alone ? 1 : 0));
}

// What stood behind the markers of a kind says nothing to another kind.
void keepCommonGroups(drawing::GroupList& groups) {
  if (proxyGraphics(&groups).length > 0)
    dropProxyGraphics(groups);
  const GroupRun run = commonRun(groups);
  drawing::GroupList kept;
  kept.append(groups, 0, groups.find(100));
  if (run.length > 0)
    kept.append(groups, run.first - 1, run.length + 1);
  groups = std::move(kept);
}

} // namespace

OdResult OdDbEntity::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  if (!drawing::isInvertibleMap(matrix)) // nothing could be brought back from where it leads
    return eCannotTransform;
  const drawing::ContextData contextData(*this);
  const OdResult result = applyTransform(matrix);
  if (result == eCannotTransform && isResident())
    return becomeAnother(matrix);
  if (result != eOk)
    return result;
  if (movesWithEntity(xDataGroups()))
    transformXData(xDataGroupsForWrite(), matrix);
  if (proxyGraphics(unmodelledGroupsOrNull()).length > 0)
    dropProxyGraphics(unmodelledGroups());
  contextData.move(matrix);
  return result;
}

OdResult OdDbEntity::becomeAnother(const OdGeMatrix3d& matrix) {
  const OdDbEntityPtr other = transformedAsAnother(matrix);
  if (other.isNull())
    return eCannotTransform;
  static_cast<OdDbEntity&>(*other) = *this;
  if (unmodelledGroupsOrNull() != nullptr)
    keepCommonGroups(other->unmodelledGroups());
  if (movesWithEntity(other->xDataGroups()))
    transformXData(other->xDataGroupsForWrite(), matrix);
  drawing::Store::of(objectId())->supersede(objectId(), other.get());
  return eOk;
}
