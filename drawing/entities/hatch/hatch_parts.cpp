#include "drawing/entities/hatch/hatch_parts.h"

#include "Ge/GeUtil.h"
#include "drawing/entities/curves/arc_extents.h"

#include <cmath>
#include <utility>

namespace drawing {

namespace {

constexpr std::int64_t kPolylineLoop = 2;

HatchPartKind edgeKind(std::int64_t type) {
  constexpr HatchPartKind kEdges[] = {HatchPartKind::kLine, HatchPartKind::kArc, HatchPartKind::kEllipse,
                                      HatchPartKind::kSpline};
  return type >= 1 && type <= 4 ? kEdges[type - 1] : HatchPartKind::kLoopHeader;
}

// Whether a group begins another part behind a part of that kind.
bool beginsPart(HatchPartKind in, const Group& group, bool onlyPolylines, HatchPartKind& next) {
  const bool inPolyline = in == HatchPartKind::kPolyline;
  const bool inLoops = in >= HatchPartKind::kLoopHeader && in <= HatchPartKind::kSpline;
  if (group.code == 92 && in <= HatchPartKind::kSpline)
    next =
        onlyPolylines || (group.integer & kPolylineLoop) != 0 ? HatchPartKind::kPolyline : HatchPartKind::kLoopHeader;
  else if (group.code == 72 && inLoops && !inPolyline)
    next = edgeKind(group.integer);
  else if ((group.code == 75 || group.code == 76) && in <= HatchPartKind::kSpline) // polygons have no style
    next = HatchPartKind::kPattern;
  else if (group.code == 98)
    next = HatchPartKind::kSeeds;
  else if (group.code == 450)
    next = HatchPartKind::kGradient;
  else
    return false;
  return true;
}

// The part's first group of that code; the part's end when it has none.
std::size_t findIn(const GroupList& groups, const HatchPart& part, int code) {
  std::size_t i = part.first;
  while (i < part.end && groups[i].code != code)
    ++i;
  return i;
}

bool isReal(const GroupList& groups, std::size_t i, int code) {
  return i < groups.size() && groups[i].code == code && groups[i].kind == GroupKind::kReal;
}

bool isPointAt(const GroupList& groups, std::size_t i, int code, int codeOfY) {
  return isReal(groups, i, code) && isReal(groups, i + 1, codeOfY);
}

void movePoint(GroupList& groups, std::size_t i, const PlaneMap& map, double elevation) {
  const OdGePoint3d moved = map.point(OdGePoint3d(groups[i].real, groups[i + 1].real, elevation));
  groups.setReal(i, moved.x);
  groups.setReal(i + 1, moved.y);
}

void moveVector(GroupList& groups, std::size_t i, const PlaneMap& map) {
  const OdGeVector3d moved = map.vector(OdGeVector3d(groups[i].real, groups[i + 1].real, 0));
  groups.setReal(i, moved.x);
  groups.setReal(i + 1, moved.y);
}

double rotatedAngle(const PlaneMap& map, double degrees) {
  const double before = toRadians(degrees), after = map.angle(before);
  return after == before ? degrees : toDegrees(after);
}

// Angles of an arc that runs clockwise are counted clockwise.
void moveArcAngles(GroupList& groups, const HatchPart& part, const PlaneMap& map, bool againstAxis) {
  const std::size_t direction = findIn(groups, part, 73);
  const bool clockwise = direction < part.end && groups[direction].integer == 0;
  for (std::size_t i = part.first; i < part.end && againstAxis; ++i) {
    if (!isReal(groups, i, 50) && !isReal(groups, i, 51))
      continue;
    const double rotationRad = toDegrees(map.rotation());
    groups.setReal(i, groups[i].real + (clockwise != map.isMirrored() ? -rotationRad : rotationRad));
  }
  if (map.isMirrored() && direction < part.end)
    groups.setInteger(direction, clockwise ? 1 : 0);
}

void movePatternGroup(GroupList& groups, std::size_t i, const PlaneMap& map, double elevation) {
  const int code = groups[i].code;
  if (groups[i].kind != GroupKind::kReal)
    return;
  if (code == 52 || code == 53)
    groups.setReal(i, rotatedAngle(map, groups[i].real));
  else if (code == 41 || code == 47 || code == 49)
    groups.setReal(i, groups[i].real * map.scale());
  else if (isPointAt(groups, i, 43, 44))
    movePoint(groups, i, map, elevation);
  else if (isPointAt(groups, i, 45, 46))
    moveVector(groups, i, map);
}

void moveEdgeGroup(GroupList& groups, std::size_t i, HatchPartKind kind, const PlaneMap& map, double elevation) {
  const bool axis = kind == HatchPartKind::kEllipse && isPointAt(groups, i, 11, 21);
  if (axis || isPointAt(groups, i, 12, 22) || isPointAt(groups, i, 13, 23))
    moveVector(groups, i, map);
  else if (isPointAt(groups, i, 10, 20) || isPointAt(groups, i, 11, 21))
    movePoint(groups, i, map, elevation);
  else if (kind == HatchPartKind::kArc && isReal(groups, i, 40))
    groups.setReal(i, groups[i].real * map.scale());
  else if (kind == HatchPartKind::kPolyline && isReal(groups, i, 42) && map.isMirrored())
    groups.setReal(i, -groups[i].real);
}

double realOf(const GroupList& groups, const HatchPart& part, int code) {
  const std::size_t i = findIn(groups, part, code);
  return i < part.end && groups[i].kind == GroupKind::kReal ? groups[i].real : 0;
}

void addRound(OdGeExtents3d& extents, const GroupList& groups, const HatchPart& part, const OdGeMatrix3d& plane,
              double elevation) {
  const bool round = part.kind == HatchPartKind::kArc;
  const double radius = realOf(groups, part, 40);
  const OdGeVector3d major =
      round ? OdGeVector3d(radius, 0, 0) : OdGeVector3d(realOf(groups, part, 11), realOf(groups, part, 21), 0);
  const OdGeVector3d minor = OdGeVector3d(-major.y, major.x, 0) * (round ? 1 : radius);
  const OdGePoint3d center(realOf(groups, part, 10), realOf(groups, part, 20), elevation);
  double start = toRadians(realOf(groups, part, 50)), end = toRadians(realOf(groups, part, 51));
  const std::size_t direction = findIn(groups, part, 73);
  if (direction < part.end && groups[direction].integer == 0) {
    std::swap(start, end);
    start = -start;
    end = -end;
  }
  addArc(extents, plane * center, plane * major, plane * minor, start, end);
}

} // namespace

std::vector<HatchPart> hatchParts(const GroupList& groups, bool onlyPolylines) {
  std::vector<HatchPart> parts{{HatchPartKind::kHeader, 0, groups.size()}};
  for (std::size_t i = 0; i < groups.size(); ++i) {
    HatchPartKind next = HatchPartKind::kHeader;
    if (!beginsPart(parts.back().kind, groups[i], onlyPolylines, next))
      continue;
    parts.back().end = i;
    parts.push_back({next, i, groups.size()});
  }
  return parts;
}

void moveHatchPart(GroupList& groups, const HatchPart& part, const PlaneMap& map, double elevation) {
  for (std::size_t i = part.first; i < part.end; ++i) {
    if (part.kind == HatchPartKind::kPattern)
      movePatternGroup(groups, i, map, elevation);
    else if (part.kind == HatchPartKind::kGradient && isReal(groups, i, 460))
      groups.setReal(i, map.angle(groups[i].real));
    else if (part.kind != HatchPartKind::kHeader && part.kind != HatchPartKind::kGradient)
      moveEdgeGroup(groups, i, part.kind, map, elevation);
  }
  if (part.kind == HatchPartKind::kArc || part.kind == HatchPartKind::kEllipse)
    moveArcAngles(groups, part, map, part.kind == HatchPartKind::kArc);
}

void addHatchPart(OdGeExtents3d& extents, const GroupList& groups, const HatchPart& part, const OdGeMatrix3d& plane,
                  double elevation) {
  if (part.kind < HatchPartKind::kPolyline || part.kind > HatchPartKind::kSpline)
    return;
  if (part.kind == HatchPartKind::kArc || part.kind == HatchPartKind::kEllipse)
    return addRound(extents, groups, part, plane, elevation);
  std::vector<PathVertex> path;
  for (std::size_t i = part.first; i < part.end; ++i) {
    if (isPointAt(groups, i, 10, 20) || (part.kind == HatchPartKind::kLine && isPointAt(groups, i, 11, 21)))
      path.push_back({OdGePoint3d(groups[i].real, groups[i + 1].real, elevation), 0, 0, 0});
    else if (part.kind == HatchPartKind::kPolyline && isReal(groups, i, 42) && !path.empty())
      path.back().bulge = groups[i].real;
  }
  addPath(extents, plane, path, part.kind == HatchPartKind::kPolyline);
}

} // namespace drawing
