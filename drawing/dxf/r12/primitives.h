// Draws with what R12 has, in place of one entity.
#pragma once

#include "DbMText.h"
#include "DbPolyline.h"
#include "drawing/dxf/r12/writer.h"
#include "drawing/entities/hatch/hatch_fill.h"

#include <vector>

namespace drawing::dxf {

class R12Drawing {
public:
  R12Drawing(const OdDbEntity& source, R12Writer& writer) : source_(source), writer_(writer) {}

  void line(const OdGePoint3d& from, const OdGePoint3d& to);
  void polyline(const std::vector<OdGePoint3d>& points, bool closed); // in space
  void polyline(const OdDbPolyline& polyline);                        // in its plane
  void face(const std::vector<OdGePoint3d>& corners);                 // three or four
  void solid(const Trapezoid& corners, double elevation, const OdGeVector3d& normal);
  void reference(const OdString& block, const OdGePoint3d& position, double scale, double angleRad = 0);
  std::size_t lines(const OdDbMText& text); // one TEXT each; how many there are

  double reach() const; // the length of the drawing's diagonal
  double dimensionTextHeight(OdDbObjectId style) const;

private:
  GroupSink& sink() { return writer_.sink(); }
  void point(int code, const OdGePoint3d& p) { sink().point(code, p); }
  void vertex(const OdGePoint3d& p, int flags);
  void normal(const OdGeVector3d& n);

  const OdDbEntity& source_;
  R12Writer& writer_;
};

} // namespace drawing::dxf
