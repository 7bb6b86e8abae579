// What a hatch draws: its loops as polygons, the lines of its pattern, the area of a solid fill. All in the frame of
// the hatch's plane.
#pragma once

#include "Ge/GePoint2d.h"
#include "drawing/export.h"

#include <array>
#include <optional>
#include <vector>

class OdDbHatch;

namespace drawing {

using Polygon = std::vector<OdGePoint2d>; // closed: the last point leads to the first

std::vector<Polygon> hatchLoops(const OdDbHatch& hatch);

struct HatchLine {
  OdGePoint2d from, to;
};
// The pattern cut at the loops, whose inside is what an odd number of them encloses. Nothing when the work would exceed
// `most` cuts: patterns can be any number of times finer than the area. `spent` receives the work that was done.
std::optional<std::vector<HatchLine>> hatchLines(const OdDbHatch& hatch, const std::vector<Polygon>& loops,
                                                 std::size_t limit, std::size_t* spent = nullptr);

// The inside as trapezoids: two corners below from left to right, two above from left to right.
using Trapezoid = std::array<OdGePoint2d, 4>;
std::optional<std::vector<Trapezoid>> hatchArea(const std::vector<Polygon>& loops, std::size_t limit);

} // namespace drawing
