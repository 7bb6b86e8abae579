#include "drawing/entities/curves/tessellate.h"

#include "Ge/GeUtil.h"

#include <algorithm>
#include <cmath>

namespace drawing {

namespace {

constexpr double kStep = kPi / 36;
constexpr int kStepsOfSpan = 16;

int stepsOf(double angle) {
  return std::max(1, static_cast<int>(std::ceil(std::fabs(angle) / kStep - 1e-9)));
}

// A point of a rational curve: coordinates times weight, and the weight.
struct Weighted {
  double x, y, z, w;
};

Weighted between(const Weighted& a, const Weighted& b, double part) {
  const double rest = 1 - part;
  return {a.x * rest + b.x * part, a.y * rest + b.y * part, a.z * rest + b.z * part, a.w * rest + b.w * part};
}

// De Boor's way to the point at `t`, which lies in the span that begins at that knot.
OdGePoint3d pointAt(const Nurbs& curve, std::size_t span, double t, std::vector<Weighted>& work) {
  const auto degree = static_cast<std::size_t>(curve.degree);
  work.clear();
  for (std::size_t i = span - degree; i <= span; ++i) {
    const double w = curve.weights.empty() ? 1 : curve.weights[i];
    work.push_back({curve.points[i].x * w, curve.points[i].y * w, curve.points[i].z * w, w});
  }
  for (std::size_t round = 1; round <= degree; ++round) {
    for (std::size_t j = degree; j >= round; --j) {
      const double low = curve.knots[span - degree + j], high = curve.knots[span + 1 + j - round];
      work[j] = between(work[j - 1], work[j], high > low ? (t - low) / (high - low) : 0);
    }
  }
  const Weighted& end = work[degree];
  const double w = end.w == 0 ? 1 : end.w;
  return {end.x / w, end.y / w, end.z / w};
}

} // namespace

void flattenArc(const OdGePoint3d& center, const OdGeVector3d& major, const OdGeVector3d& minor, double start,
                double end, std::vector<OdGePoint3d>& points) {
  const int steps = stepsOf(end - start);
  for (int i = 0; i <= steps; ++i) {
    const double angle = start + (end - start) * i / steps;
    points.push_back(center + major * std::cos(angle) + minor * std::sin(angle));
  }
}

void flattenBulge(const OdGePoint2d& from, const OdGePoint2d& to, double bulge, std::vector<OdGePoint2d>& points) {
  points.push_back(from);
  const double dx = to.x - from.x, dy = to.y - from.y;
  if (bulge == 0 || (dx == 0 && dy == 0))
    return;
  const double angle = 4 * std::atan(bulge);
  const double part = (1 - bulge * bulge) / (4 * bulge); // how far the centre is off the chord, in chords
  const OdGePoint2d center(from.x + dx / 2 - dy * part, from.y + dy / 2 + dx * part);
  const double x = from.x - center.x, y = from.y - center.y;
  const int steps = stepsOf(angle);
  for (int i = 1; i < steps; ++i) {
    const double turn = angle * i / steps, c = std::cos(turn), s = std::sin(turn);
    points.emplace_back(center.x + x * c - y * s, center.y + x * s + y * c);
  }
}

void flattenNurbs(const Nurbs& curve, std::vector<OdGePoint3d>& points) {
  if (!curve.isWhole())
    return;
  std::vector<Weighted> work;
  const auto degree = static_cast<std::size_t>(curve.degree);
  std::size_t last = degree;
  for (std::size_t span = degree; span < curve.points.size(); ++span) {
    const double from = curve.knots[span], to = curve.knots[span + 1];
    if (!(to > from))
      continue;
    for (int i = 0; i < kStepsOfSpan; ++i)
      points.push_back(pointAt(curve, span, from + (to - from) * i / kStepsOfSpan, work));
    last = span;
  }
  if (!points.empty())
    points.push_back(pointAt(curve, last, curve.knots[last + 1], work));
}

} // namespace drawing
