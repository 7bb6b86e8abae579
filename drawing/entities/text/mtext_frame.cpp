#include "drawing/entities/text/mtext_frame.h"

#include "Ge/GeUtil.h"
#include "drawing/ge/plane_map.h"

#include <cmath>

namespace drawing {

bool MTextFrame::transform(const OdGeMatrix3d& matrix, bool nearest) {
  alongScale = acrossScale = 1;
  const OdGePoint3d moved = matrix * location;
  if (isTranslation(matrix)) {
    location = moved;
    return true;
  }
  const OdGeVector3d unit = direction.normal();
  const OdGeVector3d along = matrix * unit, up = matrix * normal.crossProduct(unit);
  const OdGeVector3d across = along.crossProduct(up);
  const double width = along.length(), upLength = up.length();
  if (!(across.length() > 1e-12 * width * upLength))
    return false;
  const bool similar =
      std::fabs(along.dotProduct(up)) <= 1e-10 * width * upLength && std::fabs(width - upLength) <= 1e-10 * width;
  if (!similar && !nearest)
    return false;
  location = moved;
  const OdGeVector3d newNormal = across.normal(), newUnit = along * (1 / width);
  if (!newNormal.isEqualTo(normal, OdGeTol(1e-14)))
    normal = newNormal;
  if (!newUnit.isEqualTo(unit, OdGeTol(1e-14)))
    direction = newUnit;
  const double height = across.length() / width; // of letters that stay upright
  alongScale = std::fabs(width - 1) > 1e-14 ? width : 1;
  acrossScale = similar ? alongScale : height;
  return true;
}

namespace {

double realAt(const GroupList& groups, std::size_t first, int code, double absent) {
  const std::size_t i = groups.find(code, first);
  return i < groups.size() && groups[i].kind == GroupKind::kReal ? groups[i].real : absent;
}

void putReal(GroupList& groups, std::size_t first, int code, double value, double absent) {
  const std::size_t i = groups.find(code, first);
  if (i < groups.size() && groups[i].kind == GroupKind::kReal)
    groups.setReal(i, value);
  else if (i >= groups.size() && value != absent)
    groups.real(code, value);
}

void scaleReal(GroupList& groups, std::size_t first, int code, double factor) {
  const std::size_t i = groups.find(code, first);
  if (i < groups.size() && groups[i].kind == GroupKind::kReal)
    groups.setReal(i, groups[i].real * factor);
}

// The three coordinates; where the list has none of them, they are added unless they are what absence means.
template <class Triple>
void getTriple(const GroupList& groups, std::size_t first, int code, Triple& value) {
  value.x = realAt(groups, first, code, value.x);
  value.y = realAt(groups, first, code + 10, value.y);
  value.z = realAt(groups, first, code + 20, value.z);
}

template <class Triple>
void putTriple(GroupList& groups, std::size_t first, int code, const Triple& value, const Triple& absent) {
  const bool present = groups.find(code, first) < groups.size();
  if (!present && value.x == absent.x && value.y == absent.y && value.z == absent.z)
    return;
  const double coordinates[3] = {value.x, value.y, value.z};
  for (int i = 0; i < 3; ++i)
    putReal(groups, first, code + 10 * i, coordinates[i], HUGE_VAL);
}

} // namespace

bool transformMTextGroups(GroupList& groups, std::size_t first, const OdGeMatrix3d& matrix, bool nearest) {
  MTextFrame frame;
  getTriple(groups, first, 10, frame.location);
  getTriple(groups, first, 11, frame.direction);
  getTriple(groups, first, 210, frame.normal);
  const bool angled = groups.find(11, first) >= groups.size() && groups.find(50, first) < groups.size();
  if (angled) {
    const double angle = toRadians(realAt(groups, first, 50, 0));
    frame.direction = OdGeMatrix3d::planeToWorld(frame.normal) * OdGeVector3d(std::cos(angle), std::sin(angle), 0);
  }
  if (!frame.transform(matrix, nearest))
    return false;
  putTriple(groups, first, 10, frame.location, OdGePoint3d());
  if (!angled || !isTranslation(matrix)) // a direction behind an angle is the one that holds
    putTriple(groups, first, 11, frame.direction, OdGeVector3d(1, 0, 0));
  putTriple(groups, first, 210, frame.normal, OdGeVector3d(0, 0, 1));
  for (const int code : {40, 43, 46})
    scaleReal(groups, first, code, frame.acrossScale);
  for (const int code : {41, 42})
    scaleReal(groups, first, code, frame.alongScale);
  return true;
}

void scaleColumns(GroupList& rest, const OdGeMatrix3d& matrix, double scale) {
  const std::size_t embedded = rest.find(101);
  for (std::size_t i = rest.find(75); i < embedded; ++i) { // widths, gutter and heights
    const int code = rest[i].code;
    if (code >= 48 && code <= 50 && rest[i].kind == GroupKind::kReal)
      rest.setReal(i, rest[i].real * scale);
  }
  if (embedded >= rest.size())
    return;
  // The object of newer files repeats direction and place, and then has nothing but lengths.
  OdGeVector3d direction(1, 0, 0);
  OdGePoint3d position;
  getTriple(rest, embedded, 10, direction);
  getTriple(rest, embedded, 11, position);
  if (!isTranslation(matrix))
    putTriple(rest, embedded, 10, (matrix * direction).normal(), OdGeVector3d(1, 0, 0));
  putTriple(rest, embedded, 11, matrix * position, OdGePoint3d());
  for (std::size_t i = embedded; i < rest.size(); ++i) {
    if (rest[i].code >= 40 && rest[i].code <= 46 && rest[i].kind == GroupKind::kReal)
      rest.setReal(i, rest[i].real * scale);
  }
}

} // namespace drawing
