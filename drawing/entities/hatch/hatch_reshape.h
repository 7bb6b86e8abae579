// Hatches under matrices that change shapes in their plane.
#pragma once

#include "drawing/entities/hatch/hatch_parts.h"

namespace drawing {

// The boundary and the pattern under the map, exactly: round edges become arcs of ellipses, and a polyline with bulges
// becomes a loop of edges. False, and nothing changed, where no such boundary or pattern is (a gradient).
bool reshapeHatch(GroupList& groups, const PlaneMap& map, double elevation);

} // namespace drawing
