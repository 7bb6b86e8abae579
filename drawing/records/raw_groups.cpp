#include "drawing/records/raw_groups.h"

#include "drawing/ge/plane_map.h"

#include <cmath>

namespace drawing {

bool tripleAt(const GroupList& groups, std::size_t i, OdGePoint3d& point) {
  for (int k = 0; k < 3; ++k) {
    const std::size_t at = i + static_cast<std::size_t>(k);
    if (at >= groups.size() || groups[at].kind != GroupKind::kReal || groups[at].code != groups[i].code + 10 * k)
      return false;
    point[k] = groups[at].real;
  }
  return true;
}

void setTripleAt(GroupList& groups, std::size_t i, const OdGePoint3d& point) {
  groups.setReal(i, point.x);
  groups.setReal(i + 1, point.y);
  groups.setReal(i + 2, point.z);
}

namespace {

void moveTriple(GroupList& groups, std::size_t i, GeometricRole role, const OdGeMatrix3d& matrix) {
  OdGePoint3d value;
  if (!tripleAt(groups, i, value))
    return;
  OdGeVector3d v = value.asVector();
  if (role == GeometricRole::kPoint)
    v = (matrix * value).asVector();
  else if (v.isZeroLength() || isTranslation(matrix))
    return;
  else
    v = role == GeometricRole::kNormal   ? matrix.transformNormal(v)
        : role == GeometricRole::kVector ? matrix * v
                                         : (matrix * v).normal();
  if (role == GeometricRole::kPoint || !v.isEqualTo(value.asVector(), OdGeTol(1e-14)))
    setTripleAt(groups, i, OdGePoint3d() + v);
}

} // namespace

void transformRawGroups(GroupList& groups, std::size_t first, std::size_t end, std::span<const GroupRole> table,
                        const OdGeMatrix3d& matrix, double lengthScale) {
  for (std::size_t i = first; i < end; ++i) {
    for (const GroupRole& one : table) {
      if (groups[i].code != one.code || groups[i].kind != GroupKind::kReal)
        continue;
      if (one.role == GeometricRole::kLength)
        groups.setReal(i, groups[i].real * lengthScale);
      else
        moveTriple(groups, i, one.role, matrix);
    }
  }
}

namespace {

// The first group of that code and kind; the size when there is none.
std::size_t findRaw(const GroupList& groups, int code, GroupKind kind) {
  std::size_t i = groups.find(code);
  while (i < groups.size() && groups[i].kind != kind)
    i = groups.find(code, i + 1);
  return i;
}

} // namespace

double rawReal(const GroupList& groups, int code, double absent) {
  const std::size_t i = findRaw(groups, code, GroupKind::kReal);
  return i < groups.size() ? groups[i].real : absent;
}

std::int64_t rawInteger(const GroupList& groups, int code, std::int64_t absent) {
  const std::size_t i = findRaw(groups, code, groupKindOf(code));
  return i < groups.size() ? groups[i].integer : absent;
}

OdGePoint3d rawPoint(const GroupList& groups, int code, const OdGePoint3d& absent) {
  OdGePoint3d point;
  return tripleAt(groups, groups.find(code), point) ? point : absent;
}

OdString rawText(const GroupList& groups, int code) {
  const std::size_t i = findRaw(groups, code, GroupKind::kText);
  return i < groups.size() ? groups.stringOf(groups[i]) : OdString();
}

OdDbObjectId rawReference(const GroupList& groups, int code) {
  const std::size_t i = findRaw(groups, code, GroupKind::kReference);
  return i < groups.size() ? groups.idOf(groups[i]) : OdDbObjectId();
}

bool isIdentity(const OdGeMatrix3d& matrix) {
  const OdGeVector3d by = matrix.translation();
  return isTranslation(matrix) && by.x == 0 && by.y == 0 && by.z == 0;
}

} // namespace drawing
