#include "DbCurves.h"

#include "Ge/GeUtil.h"
#include "drawing/ge/plane_map.h"
#include "drawing/model/setters.h"

#include <cmath>

using drawing::field;

MVDRAWING_DEFINE_ABSTRACT_CLASS(OdDbCurve, OdDbEntity);
MVDRAWING_DEFINE_ABSTRACT_CLASS(OdDbUnboundedLine, OdDbCurve);
MVDRAWING_DEFINE_OBJECT(OdDbLine, OdDbCurve, "LINE");
MVDRAWING_DEFINE_OBJECT(OdDbPoint, OdDbEntity, "POINT");
MVDRAWING_DEFINE_OBJECT(OdDbRay, OdDbUnboundedLine, "RAY");
MVDRAWING_DEFINE_OBJECT(OdDbXline, OdDbUnboundedLine, "XLINE");

const drawing::Description& OdDbLine::ownDescription() {
  using Self = OdDbLine;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(), {{"AcDbLine",
                                       {field<&Self::thickness_>(39).unless(0), field<&Self::start_>(10),
                                        field<&Self::end_>(11), field<&Self::normal_>(210).unless(0, 0, 1)}}});
  return description;
}

const drawing::Description& OdDbPoint::ownDescription() {
  using Self = OdDbPoint;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(),
      {{"AcDbPoint",
        {field<&Self::position_>(10), field<&Self::thickness_>(39).unless(0),
         field<&Self::normal_>(210).unless(0, 0, 1), field<&Self::ecsRotation_>(50).angle().unless(0)}}});
  return description;
}

drawing::SubclassLayout OdDbUnboundedLine::lineSubclass(const char* marker) {
  return {marker, {field<&OdDbUnboundedLine::base_>(10), field<&OdDbUnboundedLine::direction_>(11)}};
}

const drawing::Description& OdDbRay::ownDescription() {
  static const drawing::Description description(&OdDbEntity::ownDescription(), {lineSubclass("AcDbRay")});
  return description;
}

const drawing::Description& OdDbXline::ownDescription() {
  static const drawing::Description description(&OdDbEntity::ownDescription(), {lineSubclass("AcDbXline")});
  return description;
}

MVDRAWING_SETTER(OdDbLine, setStartPoint, const OdGePoint3d&, start_)
MVDRAWING_SETTER(OdDbLine, setEndPoint, const OdGePoint3d&, end_)
MVDRAWING_SETTER(OdDbLine, setNormal, const OdGeVector3d&, normal_)
MVDRAWING_SETTER(OdDbLine, setThickness, double, thickness_)
MVDRAWING_SETTER(OdDbPoint, setPosition, const OdGePoint3d&, position_)
MVDRAWING_SETTER(OdDbPoint, setNormal, const OdGeVector3d&, normal_)
MVDRAWING_SETTER(OdDbPoint, setThickness, double, thickness_)
MVDRAWING_SETTER(OdDbPoint, setEcsRotation, double, ecsRotation_)
MVDRAWING_SETTER(OdDbUnboundedLine, setBasePoint, const OdGePoint3d&, base_)

OdResult OdDbLine::applyTransform(const OdGeMatrix3d& matrix) {
  start_ = matrix * start_;
  end_ = matrix * end_;
  drawing::mapSweep(matrix, normal_, thickness_);
  return eOk;
}

OdResult OdDbLine::getGeomExtents(OdGeExtents3d& extents) const {
  const OdGeVector3d sweep = normal_ * thickness_;
  for (const OdGePoint3d& point : {start_, end_, start_ + sweep, end_ + sweep})
    extents.addPoint(point);
  return eOk;
}

OdResult OdDbPoint::applyTransform(const OdGeMatrix3d& matrix) {
  // The sign turns with the image of its x axis.
  const OdGeVector3d x(std::cos(ecsRotation_), -std::sin(ecsRotation_), 0);
  const OdGeVector3d rotated = matrix * (OdGeMatrix3d::planeToWorld(normal_) * x);
  const bool turns = !drawing::isTranslation(matrix);
  position_ = matrix * position_;
  drawing::mapSweep(matrix, normal_, thickness_);
  const OdGeVector3d inPlane = OdGeMatrix3d::worldToPlane(normal_) * rotated;
  if (turns && !inPlane.normal().isEqualTo(x, OdGeTol(1e-14)))
    ecsRotation_ = normalizeAngle(-std::atan2(inPlane.y, inPlane.x));
  return eOk;
}

OdResult OdDbPoint::getGeomExtents(OdGeExtents3d& extents) const {
  extents.addPoint(position_);
  extents.addPoint(position_ + normal_ * thickness_);
  return eOk;
}

void OdDbUnboundedLine::setUnitDir(const OdGeVector3d& direction) {
  assertWriteEnabled();
  direction_ = direction.normal();
}

OdResult OdDbUnboundedLine::applyTransform(const OdGeMatrix3d& matrix) {
  base_ = matrix * base_;
  if (!drawing::isTranslation(matrix))
    direction_ = (matrix * direction_).normal();
  return eOk;
}
