// Extents of what is round.
#pragma once

#include "Ge/GeExtents3d.h"
#include "Ge/GeMatrix3d.h"

#include <vector>

namespace drawing {

// How far an arc runs from one angle to the other, counter-clockwise: in (0, 2 pi].
double arcSweep(double startRad, double endRad);

// Adds center + cos(t) a + sin(t) b for t from start on, counter-clockwise, to end.
void addArc(OdGeExtents3d& extents, const OdGePoint3d& center, const OdGeVector3d& a, const OdGeVector3d& b,
            double start, double end);

// A place on a path in a plane; `bulge` is the tangent of a quarter of the angle of the arc to the next place, above 0
// when it runs counter-clockwise. Widths are those of the way to the next place.
struct PathVertex {
  OdGePoint3d point; // in the plane's frame
  double bulge = 0;
  double startWidth = 0, endWidth = 0;
};

void addPath(OdGeExtents3d& extents, const OdGeMatrix3d& planeToWorld, const std::vector<PathVertex>& path,
             bool closed);

} // namespace drawing
