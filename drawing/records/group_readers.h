// Lists of numbers and points in the groups of a section.
#pragma once

#include "Ge/GePoint2d.h"
#include "Ge/GePoint3d.h"
#include "drawing/model/load_context.h"

#include <cstdint>
#include <vector>

namespace drawing {

// Takes a coordinate of a point of a list whose x has the code `code`: an x begins a new point. Coordinates before any
// x are not taken.
inline bool takePoint(std::vector<OdGePoint3d>& points, int code, const RawGroup& group, LoadContext& context) {
  const int component = (group.code - code) / 10;
  if (component < 0 || component > 2 || code + 10 * component != group.code || (component > 0 && points.empty()))
    return false;
  double value = 0;
  if (!context.real(group, value))
    return true;
  if (component == 0)
    points.emplace_back();
  points.back()[component] = value;
  return true;
}

inline bool takeReal(double& target, const RawGroup& group, LoadContext& context) {
  context.real(group, target);
  return true;
}

inline bool takeReal(std::vector<double>& list, const RawGroup& group, LoadContext& context) {
  double value = 0;
  if (context.real(group, value))
    list.push_back(value);
  return true;
}

template <class Int>
bool takeInteger(Int& target, const RawGroup& group, LoadContext& context) {
  std::int64_t value = 0;
  if (context.integer(group, value))
    target = static_cast<Int>(value);
  return true;
}

inline void writePoints(GroupSink& sink, int code, const std::vector<OdGePoint3d>& points) {
  for (const OdGePoint3d& point : points)
    sink.point(code, point);
}

} // namespace drawing
