// Curves as points so close to each other that the lines between them pass for the curve.
#pragma once

#include "Ge/GePoint2d.h"
#include "Ge/GePoint3d.h"
#include "Ge/GeVector3d.h"
#include "drawing/export.h"

#include <vector>

namespace drawing {

// Steps of five degrees; appends the points from start to end, both included.
void flattenArc(const OdGePoint3d& center, const OdGeVector3d& major, const OdGeVector3d& minor, double start,
                double end, std::vector<OdGePoint3d>& points);

// The arc from one vertex to the next; appends its points without the last.
void flattenBulge(const OdGePoint2d& from, const OdGePoint2d& to, double bulge, std::vector<OdGePoint2d>& points);

struct Nurbs {
  int degree = 3;
  std::vector<double> knots;
  std::vector<OdGePoint3d> points;
  std::vector<double> weights; // empty: equal for all
  bool isWhole() const {
    return degree >= 1 && points.size() > static_cast<std::size_t>(degree) &&
           knots.size() == points.size() + static_cast<std::size_t>(degree) + 1 &&
           (weights.empty() || weights.size() == points.size());
  }
};
// Sixteen steps for each span; nothing for a curve that is not whole.
void flattenNurbs(const Nurbs& curve, std::vector<OdGePoint3d>& points);

} // namespace drawing
