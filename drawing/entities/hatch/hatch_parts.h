// What the runs of a hatch's groups are.
#pragma once

#include "Ge/GeExtents3d.h"
#include "drawing/detail/groups.h"
#include "drawing/ge/plane_map.h"

#include <vector>

namespace drawing {

enum class HatchPartKind {
  kHeader,
  kLoopHeader,
  kPolyline,
  kLine,
  kArc,
  kEllipse,
  kSpline,
  kPattern,
  kSeeds,
  kGradient
};

struct HatchPart {
  HatchPartKind kind = HatchPartKind::kHeader;
  std::size_t first = 0, end = 0; // groups first .. end - 1
};

// A bit of a loop states whether it is a polyline, unless all are.
std::vector<HatchPart> hatchParts(const GroupList& groups, bool onlyPolylines = false);

// Moves a part in the plane; the head is not touched.
void moveHatchPart(GroupList& groups, const HatchPart& part, const PlaneMap& map, double elevation);

// Adds what the part's boundary takes; other parts add nothing.
void addHatchPart(OdGeExtents3d& extents, const GroupList& groups, const HatchPart& part, const OdGeMatrix3d& plane,
                  double elevation);

} // namespace drawing
