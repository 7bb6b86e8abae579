#include "drawing/entities/curves/arc_extents.h"

#include "Ge/GeUtil.h"

#include <algorithm>
#include <cmath>

namespace drawing {

double arcSweep(double startRad, double endRad) {
  constexpr double kLeast = 1e-11; // a whole turn, as angles come out of files, may be a little more than one
  const double sweep = std::fmod(endRad - startRad, kTwoPi);
  return sweep > kLeast ? sweep : sweep + kTwoPi;
}

void addArc(OdGeExtents3d& extents, const OdGePoint3d& center, const OdGeVector3d& a, const OdGeVector3d& b,
            double start, double end) {
  const auto at = [&](double t) { return center + a * std::cos(t) + b * std::sin(t); };
  const double from = normalizeAngle(start), to = from + arcSweep(start, end);
  extents.addPoint(at(from));
  extents.addPoint(at(to));
  // Between the ends a coordinate is greatest or least where its direction turns back.
  const double turn[3] = {std::atan2(b.x, a.x), std::atan2(b.y, a.y), std::atan2(b.z, a.z)};
  for (const double first : turn) {
    for (double t = first + kPi * std::ceil((from - first) / kPi); t < to; t += kPi)
      extents.addPoint(at(t));
  }
}

namespace {

void addBulge(OdGeExtents3d& extents, const OdGeMatrix3d& plane, const PathVertex& from, const OdGePoint3d& to) {
  const OdGeVector3d chord = to - from.point;
  const double length = chord.length();
  if (!(length > 0))
    return;
  // The centre lies on the chord's middle normal; the chord spans four times the bulge's angle.
  const double offset = (1 - from.bulge * from.bulge) / (4 * from.bulge);
  const OdGePoint3d center = from.point + chord * 0.5 + OdGeVector3d(-chord.y, chord.x, 0) * offset;
  const OdGeVector3d start = from.point - center, end = to - center;
  double angles[2] = {std::atan2(start.y, start.x), std::atan2(end.y, end.x)};
  if (from.bulge < 0)
    std::swap(angles[0], angles[1]);
  const double half = std::max(from.startWidth, from.endWidth) / 2;
  for (const double radius : {start.length() - half, start.length() + half})
    addArc(extents, plane * center, plane.column(0) * radius, plane.column(1) * radius, angles[0], angles[1]);
}

void addStraight(OdGeExtents3d& extents, const OdGeMatrix3d& plane, const PathVertex& from, const OdGePoint3d& to) {
  const OdGeVector3d along = (to - from.point).normal();
  const OdGeVector3d across(-along.y, along.x, 0);
  for (const double side : {-0.5, 0.5}) {
    extents.addPoint(plane * (from.point + across * (side * from.startWidth)));
    extents.addPoint(plane * (to + across * (side * from.endWidth)));
  }
}

} // namespace

void addPath(OdGeExtents3d& extents, const OdGeMatrix3d& planeToWorld, const std::vector<PathVertex>& path,
             bool closed) {
  for (std::size_t i = 0; i < path.size(); ++i) {
    extents.addPoint(planeToWorld * path[i].point);
    if (i + 1 == path.size() && !closed)
      break;
    const OdGePoint3d& next = path[(i + 1) % path.size()].point;
    if (path[i].bulge == 0)
      addStraight(extents, planeToWorld, path[i], next);
    else
      addBulge(extents, planeToWorld, path[i], next);
  }
}

} // namespace drawing
