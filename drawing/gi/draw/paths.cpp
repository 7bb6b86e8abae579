#include "drawing/gi/draw/paths.h"

#include "DbPolyline.h"
#include "DbVertexPolylines.h"
#include "Ge/GeUtil.h"
#include "drawing/entities/curves/tessellate.h"
#include "drawing/gi/draw/entity_drawers.h"

#include <algorithm>
#include <cmath>

namespace drawing::gi {

namespace {

constexpr double kStep = kPi / 60;
constexpr int kStepsOfSpan = 12; // of a curve through points
constexpr int kHighestDegree = 25;

OdGeVector3d xAxisOf(const OdGeVector3d& normal) {
  return OdGeMatrix3d::planeToWorld(normal) * OdGeVector3d(1, 0, 0);
}

} // namespace

void addArcTo(Path& path, const OdGePoint3d& center, const OdGeVector3d& a, const OdGeVector3d& b, double start,
              double end) {
  const double sweep = end - start;
  if (!std::isfinite(sweep) || std::fabs(sweep) > 1000)
    return;
  const int steps = std::max(1, static_cast<int>(std::ceil(std::fabs(sweep) / kStep - 1e-9)));
  for (int i = 0; i <= steps; ++i) {
    const double angle = i == steps ? end : start + sweep * i / steps;
    path.push_back(center + a * std::cos(angle) + b * std::sin(angle));
  }
}

Path pathOf(const OdDbLine& line) {
  return {line.startPoint(), line.endPoint()};
}

Path pathOf(const OdDbRoundCurve& curve, double start, double end) {
  const OdGeVector3d x = xAxisOf(curve.normal()) * curve.radius(),
                     y = curve.normal().normal().crossProduct(xAxisOf(curve.normal())) * curve.radius();
  Path path;
  addArcTo(path, curve.center(), x, y, start, start + arcSweep(start, end));
  return path;
}

Path pathOf(const OdDbEllipse& ellipse) {
  Path path;
  const double start = ellipse.startParam();
  addArcTo(path, ellipse.center(), ellipse.majorAxis(), ellipse.minorAxis(), start,
           start + arcSweep(start, ellipse.endParam()));
  return path;
}

Path smoothThrough(const std::vector<OdGePoint3d>& points, bool closed) {
  const auto count = static_cast<std::ptrdiff_t>(points.size());
  if (count < 3)
    return points;
  const auto at = [&](std::ptrdiff_t i) {
    return points[static_cast<std::size_t>(closed ? (i + count) % count : std::clamp<std::ptrdiff_t>(i, 0, count - 1))];
  };
  Path path;
  const std::ptrdiff_t spans = closed ? count : count - 1;
  for (std::ptrdiff_t i = 0; i < spans; ++i) {
    const OdGePoint3d from = at(i), to = at(i + 1);
    const OdGeVector3d leave = (to - at(i - 1)) * 0.5, arrive = (at(i + 2) - from) * 0.5;
    for (int k = 0; k < kStepsOfSpan; ++k) {
      const double t = static_cast<double>(k) / kStepsOfSpan, t2 = t * t, t3 = t2 * t;
      path.push_back(from + (to - from) * (3 * t2 - 2 * t3) + leave * (t3 - 2 * t2 + t) + arrive * (t3 - t2));
    }
  }
  path.push_back(at(spans));
  return path;
}

Path pathOf(const OdDbSpline& spline) {
  Path path;
  if (spline.controlPoints().empty())
    return smoothThrough(spline.fitPoints(), spline.isClosed());
  if (spline.degree() > kHighestDegree) // the work grows with its square
    return spline.controlPoints();
  flattenNurbs({spline.degree(), spline.knots(), spline.controlPoints(), spline.weights()}, path);
  return path.empty() ? spline.controlPoints() : path;
}

namespace {

// Appends the way from one vertex to the next without its end; in the plane's frame.
void addSegment(Path& path, const PathVertex& from, const PathVertex& to) {
  const double dx = to.point.x - from.point.x, dy = to.point.y - from.point.y;
  if (from.bulge == 0 || (dx == 0 && dy == 0) || !std::isfinite(from.bulge)) {
    path.push_back(from.point);
    return;
  }
  const double angle = 4 * std::atan(from.bulge), part = (1 - from.bulge * from.bulge) / (4 * from.bulge);
  const OdGePoint3d center(from.point.x + dx / 2 - dy * part, from.point.y + dy / 2 + dx * part, from.point.z);
  const OdGeVector3d radius = from.point - center;
  addArcTo(path, center, radius, {-radius.y, radius.x, 0}, 0, angle);
  path.pop_back();
}

std::size_t segmentsOf(const PlanePath& polyline) {
  const std::size_t count = polyline.vertices.size();
  return polyline.closed ? count : count - std::min<std::size_t>(count, 1);
}

// A quarter turn to the left of the way from one point to another; no length where they are the same.
OdGeVector3d leftOf(const OdGePoint3d& from, const OdGePoint3d& to) {
  const OdGeVector3d way = OdGeVector3d(to.x - from.x, to.y - from.y, 0).normal();
  return {-way.y, way.x, 0};
}

// Where two ways meet: to the corner of their edges, and not farther than twice the width.
OdGeVector3d miter(const OdGeVector3d& before, const OdGeVector3d& after) {
  const OdGeVector3d sum = before + after;
  const double square = sum.dotProduct(sum);
  if (before.isZeroLength() || after.isZeroLength() || square < 0.5)
    return after.isZeroLength() ? before : after;
  return sum * (2 / square);
}

struct WidePoint {
  OdGePoint3d point;
  double width;
};

// One stretch of the polyline whose width changes evenly, as pieces that fit together.
void fillWide(const std::vector<WidePoint>& points, bool closed, const OdGeMatrix3d& toBlock, Canvas& canvas) {
  const std::size_t count = points.size();
  const auto normalFrom = [&](std::size_t i) { return leftOf(points[i].point, points[(i + 1) % count].point); };
  std::vector<OdGeVector3d> out(count);
  for (std::size_t i = 0; i < count; ++i) {
    const bool isFirst = i == 0 && !closed, isLast = i + 1 == count && !closed;
    const OdGeVector3d before = isFirst ? normalFrom(i) : normalFrom((i + count - 1) % count);
    out[i] = miter(before, isLast ? before : normalFrom(i)) * (points[i].width / 2);
  }
  for (std::size_t i = 0; i + (closed ? 0 : 1) < count; ++i) {
    const std::size_t next = (i + 1) % count;
    const OdGePoint3d &a = points[i].point, &b = points[next].point;
    canvas.fill(
        {{toBlock * (a + out[i]), toBlock * (b + out[next]), toBlock * (b - out[next]), toBlock * (a - out[i])}});
  }
}

// Stretches of changing width have their own ends where the width jumps.
void drawTapered(const PlanePath& polyline, Canvas& canvas) {
  for (std::size_t i = 0; i < segmentsOf(polyline); ++i) {
    const PathVertex& from = polyline.vertices[i];
    const PathVertex& to = polyline.vertices[(i + 1) % polyline.vertices.size()];
    Path path;
    addSegment(path, from, to);
    path.push_back(to.point);
    std::vector<WidePoint> points;
    for (std::size_t k = 0; k < path.size(); ++k) {
      const double part = static_cast<double>(k) / static_cast<double>(path.size() - 1);
      points.push_back({path[k], from.startWidth + (from.endWidth - from.startWidth) * part});
    }
    if (from.startWidth == 0 && from.endWidth == 0) {
      for (OdGePoint3d& point : path)
        point = polyline.toBlock * point;
      canvas.stroke(path);
    } else {
      fillWide(points, false, polyline.toBlock, canvas);
    }
  }
}

} // namespace

Path pathOf(const PlanePath& polyline) {
  Path path;
  const std::size_t count = polyline.vertices.size();
  for (std::size_t i = 0; i < segmentsOf(polyline); ++i)
    addSegment(path, polyline.vertices[i], polyline.vertices[(i + 1) % count]);
  if (!polyline.closed && count > 0)
    path.push_back(polyline.vertices.back().point);
  for (OdGePoint3d& point : path)
    point = polyline.toBlock * point;
  return path;
}

void drawPlanePath(const PlanePath& polyline, Canvas& canvas) {
  bool isEven = true;
  const double width = polyline.vertices.empty() ? 0 : polyline.vertices[0].startWidth;
  for (std::size_t i = 0; i < segmentsOf(polyline); ++i) {
    const PathVertex& vertex = polyline.vertices[i];
    isEven = isEven && vertex.startWidth == width && vertex.endWidth == width;
  }
  if (!isEven)
    return drawTapered(polyline, canvas);
  Pen pen = canvas.pen();
  pen.width = width * canvas.scale();
  canvas.stroke(pathOf(polyline), polyline.closed, pen);
}

Path outlineOf(const OdDbEntity& entity) {
  if (entity.isKindOf(OdDbCircle::desc()))
    return pathOf(static_cast<const OdDbCircle&>(entity), 0, kTwoPi);
  if (entity.isKindOf(OdDbEllipse::desc()))
    return pathOf(static_cast<const OdDbEllipse&>(entity));
  if (entity.isKindOf(OdDbSpline::desc()))
    return pathOf(static_cast<const OdDbSpline&>(entity));
  if (entity.isKindOf(OdDbPolyline::desc()))
    return pathOf(planePathOf(static_cast<const OdDbPolyline&>(entity)));
  if (entity.isKindOf(OdDb2dPolyline::desc()))
    return pathOf(planePathOf(static_cast<const OdDb2dPolyline&>(entity)));
  return {};
}

} // namespace drawing::gi
