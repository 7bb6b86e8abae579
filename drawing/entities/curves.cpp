#include "DbCurves.h"

#include "Ge/GeUtil.h"

#include <cmath>

using drawing::field;

ODDB_DEFINE_MEMBERS(OdDbLine, OdDbEntity, "LINE");

const drawing::Description& OdDbLine::ownDescription() {
  using Self = OdDbLine;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(), {{"AcDbLine",
                                       {field<&Self::thickness_>(39).unless(0), field<&Self::start_>(10),
                                        field<&Self::end_>(11), field<&Self::normal_>(210).unless(0, 0, 1)}}});
  return description;
}

void OdDbLine::setStartPoint(const OdGePoint3d& point) {
  assertWriteEnabled();
  start_ = point;
}

void OdDbLine::setEndPoint(const OdGePoint3d& point) {
  assertWriteEnabled();
  end_ = point;
}

OdResult OdDbLine::subTransformBy(const OdGeMatrix3d& matrix) {
  start_ = matrix * start_;
  end_ = matrix * end_;
  thickness_ *= (matrix * normal_).length();
  normal_ = matrix.transformNormal(normal_);
  return eOk;
}

OdResult OdDbLine::getGeomExtents(OdGeExtents3d& extents) const {
  extents.addPoint(start_);
  extents.addPoint(end_);
  return eOk;
}
