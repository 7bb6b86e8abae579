// Lists of numbers and points in the groups of a section.
#pragma once

#include "Ge/GePoint2d.h"
#include "Ge/GePoint3d.h"
#include "drawing/model/load_context.h"

#include <cstdint>
#include <vector>

namespace drawing {

// Takes a coordinate of a point of a list whose x stands under `code`: an x begins a new point. Coordinates before
// any x are not taken.
inline bool takePoint(std::vector<OdGePoint3d>& points, int code, const Pair& pair, LoadContext& context) {
  const int component = (pair.code - code) / 10;
  if (component < 0 || component > 2 || code + 10 * component != pair.code || (component > 0 && points.empty()))
    return false;
  double value = 0;
  if (!context.real(pair, value))
    return true;
  if (component == 0)
    points.emplace_back();
  (&points.back().x)[component] = value;
  return true;
}

inline bool takeReal(double& target, const Pair& pair, LoadContext& context) {
  context.real(pair, target);
  return true;
}

inline bool takeReal(std::vector<double>& list, const Pair& pair, LoadContext& context) {
  double value = 0;
  if (context.real(pair, value))
    list.push_back(value);
  return true;
}

template <class Int>
bool takeInteger(Int& target, const Pair& pair, LoadContext& context) {
  std::int64_t value = 0;
  if (context.integer(pair, value))
    target = static_cast<Int>(value);
  return true;
}

inline void writePoints(GroupSink& sink, int code, const std::vector<OdGePoint3d>& points) {
  for (const OdGePoint3d& point : points)
    sink.point(code, point);
}

} // namespace drawing
