// Curves as paths fine enough for pictures.
#pragma once

#include "DbCurves.h"
#include "DbSpline.h"
#include "drawing/entities/curves/arc_extents.h"
#include "drawing/gi/draw/canvas.h"

namespace drawing::gi {

// center + cos(t) a + sin(t) b from start to end, both included.
void addArcTo(Path& path, const OdGePoint3d& center, const OdGeVector3d& a, const OdGeVector3d& b, double start,
              double end);
Path pathOf(const OdDbLine& line);
Path pathOf(const OdDbRoundCurve& curve, double start, double end);
Path pathOf(const OdDbEllipse& ellipse);
// Through the fit points where there are no control points.
Path pathOf(const OdDbSpline& spline);
// A smooth curve through the points.
Path smoothThrough(const std::vector<OdGePoint3d>& points, bool closed);

// Polylines in a plane.
struct PlanePath {
  std::vector<PathVertex> vertices;
  bool closed = false;
  OdGeMatrix3d toBlock = OdGeMatrix3d::kIdentity;
};
Path pathOf(const PlanePath& polyline);
void drawPlanePath(const PlanePath& polyline, Canvas& canvas);

// The closed outline of an entity that bounds something: a circle, ellipse, polyline; empty for any other.
Path outlineOf(const OdDbEntity& entity);

} // namespace drawing::gi
