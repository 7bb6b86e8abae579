#include "DbCurves.h"
#include "Ge/GeUtil.h"
#include "drawing/entities/curves/arc_extents.h"
#include "drawing/ge/plane_map.h"
#include "drawing/model/setters.h"

#include <cmath>
#include <utility>

using drawing::field;
using drawing::PlaneMap;

MVDRAWING_DEFINE_ABSTRACT_CLASS(OdDbRoundCurve, OdDbCurve);
MVDRAWING_DEFINE_OBJECT(OdDbCircle, OdDbRoundCurve, "CIRCLE");
MVDRAWING_DEFINE_OBJECT(OdDbArc, OdDbRoundCurve, "ARC");
MVDRAWING_DEFINE_OBJECT(OdDbEllipse, OdDbCurve, "ELLIPSE");

const drawing::SubclassLayout& OdDbRoundCurve::circleSubclass() {
  using Self = OdDbRoundCurve;
  static const drawing::SubclassLayout subclass{"AcDbCircle",
                                                {field<&Self::thickness_>(39).unless(0), field<&Self::center_>(10),
                                                 field<&Self::radius_>(40),
                                                 field<&Self::normal_>(210).unless(0, 0, 1)}};
  return subclass;
}

const drawing::Description& OdDbCircle::ownDescription() {
  static const drawing::Description description(&OdDbEntity::ownDescription(), {circleSubclass()});
  return description;
}

const drawing::Description& OdDbArc::ownDescription() {
  using Self = OdDbArc;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(),
      {circleSubclass(), {"AcDbArc", {field<&Self::startAngle_>(50).angle(), field<&Self::endAngle_>(51).angle()}}});
  return description;
}

const drawing::Description& OdDbEllipse::ownDescription() {
  using Self = OdDbEllipse;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(),
      {{"AcDbEllipse",
        {field<&Self::center_>(10), field<&Self::majorAxis_>(11), field<&Self::normal_>(210).unless(0, 0, 1),
         field<&Self::ratio_>(40), field<&Self::startParam_>(41), field<&Self::endParam_>(42)}}});
  return description;
}

MVDRAWING_SETTER_OCS(OdDbRoundCurve, setCenter, center_)
MVDRAWING_SETTER(OdDbRoundCurve, setNormal, const OdGeVector3d&, normal_)
MVDRAWING_SETTER(OdDbRoundCurve, setThickness, double, thickness_)
MVDRAWING_SETTER(OdDbArc, setStartAngle, double, startAngle_)
MVDRAWING_SETTER(OdDbArc, setEndAngle, double, endAngle_)
MVDRAWING_SETTER(OdDbEllipse, setCenter, const OdGePoint3d&, center_)
MVDRAWING_SETTER(OdDbEllipse, setStartParam, double, startParam_)
MVDRAWING_SETTER(OdDbEllipse, setEndParam, double, endParam_)

OdResult OdDbRoundCurve::setRadius(double value) {
  if (!(value >= 0) || !std::isfinite(value))
    return eInvalidInput;
  assertWriteEnabled();
  radius_ = value;
  return eOk;
}

OdGePoint3d OdDbRoundCurve::center() const {
  return ocsToWcs(center_, normal_);
}

OdGePoint3d OdDbRoundCurve::pointAt(double angleRad) const {
  return ocsToWcs(center_ + OdGeVector3d(std::cos(angleRad), std::sin(angleRad), 0) * radius_, normal_);
}

OdDbEntityPtr OdDbRoundCurve::asEllipse(const OdGeMatrix3d& matrix, double startRad, double endRad) const {
  if (thickness_ != 0)
    return {};
  const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(normal_);
  const OdDbEllipsePtr ellipse = OdDbEllipse::createObject();
  const double end = startRad + drawing::arcSweep(startRad, endRad);
  if (ellipse->set(center(), plane.column(2), plane.column(0) * radius_, 1, startRad, end) != eOk ||
      ellipse->transformBy(matrix) != eOk)
    return {};
  return OdDbEntityPtr(ellipse.get());
}

OdDbEntityPtr OdDbCircle::transformedAsAnother(const OdGeMatrix3d& matrix) const {
  return asEllipse(matrix, 0, kTwoPi);
}

OdDbEntityPtr OdDbArc::transformedAsAnother(const OdGeMatrix3d& matrix) const {
  return asEllipse(matrix, startAngle_, endAngle_);
}

OdResult OdDbCircle::applyTransform(const OdGeMatrix3d& matrix) {
  const PlaneMap map(matrix, normal_);
  if (!map.keepsShapes() || !map.takesThickness(thickness_))
    return eCannotTransform;
  center_ = map.point(center_);
  normal_ = map.normal();
  radius_ *= map.scale();
  thickness_ *= map.thicknessScale();
  return eOk;
}

OdResult OdDbCircle::getGeomExtents(OdGeExtents3d& extents) const {
  const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(normal_);
  OdGeExtents3d flat;
  drawing::addArc(flat, center(), plane.column(0) * radius_, plane.column(1) * radius_, 0, kTwoPi);
  flat.expandBy(plane.column(2) * thickness_);
  extents.addExt(flat);
  return eOk;
}

OdResult OdDbArc::applyTransform(const OdGeMatrix3d& matrix) {
  const PlaneMap map(matrix, normal_);
  if (!map.keepsShapes() || !map.takesThickness(thickness_))
    return eCannotTransform;
  center_ = map.point(center_);
  normal_ = map.normal();
  radius_ *= map.scale();
  thickness_ *= map.thicknessScale();
  drawing::mapArcAngles(map, startAngle_, endAngle_);
  return eOk;
}

OdResult OdDbArc::getGeomExtents(OdGeExtents3d& extents) const {
  const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(normal_);
  OdGeExtents3d flat;
  drawing::addArc(flat, center(), plane.column(0) * radius_, plane.column(1) * radius_, startAngle_, endAngle_);
  flat.expandBy(plane.column(2) * thickness_);
  extents.addExt(flat);
  return eOk;
}

OdGeVector3d OdDbEllipse::minorAxis() const {
  return normal_.crossProduct(majorAxis_) * ratio_;
}

OdGePoint3d OdDbEllipse::pointAt(double param) const {
  return center_ + majorAxis_ * std::cos(param) + minorAxis() * std::sin(param);
}

OdResult OdDbEllipse::set(const OdGePoint3d& center, const OdGeVector3d& normal, const OdGeVector3d& majorAxis,
                          double radiusRatio, double startParam, double endParam) {
  if (majorAxis.isZeroLength() || !normal.isPerpendicularTo(majorAxis) || radiusRatio == 0)
    return eInvalidInput;
  assertWriteEnabled();
  center_ = center;
  normal_ = normal.normal();
  majorAxis_ = majorAxis;
  ratio_ = radiusRatio;
  startParam_ = startParam;
  endParam_ = endParam;
  return eOk;
}

void OdDbEllipse::moveParams(double shift, bool reversesDirection) {
  if (reversesDirection) {
    std::swap(startParam_, endParam_);
    startParam_ = -startParam_;
    endParam_ = -endParam_;
  }
  double sweep = endParam_ - startParam_;
  if (std::fabs(sweep - kTwoPi) < 1e-12) { // a whole ellipse has no beginning
    startParam_ = 0;
    endParam_ = kTwoPi;
    return;
  }
  sweep = drawing::arcSweep(0, sweep);
  startParam_ = normalizeAngle(startParam_ + (reversesDirection ? shift : -shift));
  endParam_ = startParam_ + sweep;
}

// The images of the axes are conjugate diameters. The point of the image that lies farthest from the centre, at the
// parameter `phase`, gives its major axis, and parameters count from there.
OdResult OdDbEllipse::applyTransform(const OdGeMatrix3d& matrix) {
  const OdGePoint3d center = matrix * center_;
  if (drawing::isTranslation(matrix)) {
    center_ = center;
    return eOk;
  }
  const OdGeVector3d a = matrix * majorAxis_, b = matrix * minorAxis(), normal = matrix.transformNormal(normal_);
  const double lengthA = a.length(), lengthB = b.length();
  if (!(lengthA > 0) || !(lengthB > 0) || normal.isZeroLength())
    return eCannotTransform;
  const bool sameShape = std::fabs(a.dotProduct(b)) <= 1e-12 * lengthA * lengthB &&
                         std::fabs(lengthB / lengthA - std::fabs(ratio_)) <= 1e-12 * std::fabs(ratio_);
  const double phase = sameShape ? 0 : 0.5 * std::atan2(2 * a.dotProduct(b), lengthA * lengthA - lengthB * lengthB);
  const OdGeVector3d major = a * std::cos(phase) + b * std::sin(phase);
  const OdGeVector3d minor = b * std::cos(phase) - a * std::sin(phase);
  const double ratio = sameShape ? ratio_ : minor.length() / major.length();
  const bool reversesDirection = normal.crossProduct(major).dotProduct(minor) * ratio < 0;
  center_ = center;
  majorAxis_ = major;
  if (!normal.isEqualTo(normal_, OdGeTol(1e-14)))
    normal_ = normal;
  ratio_ = ratio;
  if (phase != 0 || reversesDirection)
    moveParams(phase, reversesDirection);
  return eOk;
}

OdResult OdDbEllipse::getGeomExtents(OdGeExtents3d& extents) const {
  drawing::addArc(extents, center_, majorAxis_, minorAxis(), startParam_, endParam_);
  return eOk;
}
