// Lines, points, circles, arcs, ellipses, rays and construction lines. All points and vectors are world coordinates,
// lengths drawing units, angles radians. Setters store the value unchecked unless stated otherwise.
#pragma once

#include "DbEntity.h"
#include "Ge/GeVector3d.h"

// Base class of curves.
class MVDRAWING_API OdDbCurve : public OdDbEntity {
public:
  MVDRAWING_DECLARE_CLASS(OdDbCurve);

protected:
  OdDbCurve() = default;
};
using OdDbCurvePtr = OdSmartPtr<OdDbCurve>;

// A line segment. Accepts every invertible matrix.
class MVDRAWING_API OdDbLine : public OdDbCurve {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbLine);
  OdDbLine() = default;
  // End points, and extrusion by the thickness (negative: against the normal) along the normal (unit length).
  OdGePoint3d startPoint() const { return start_; }
  OdGePoint3d endPoint() const { return end_; }
  void setStartPoint(const OdGePoint3d& point);
  void setEndPoint(const OdGePoint3d& point);
  OdGeVector3d normal() const { return normal_; }
  void setNormal(const OdGeVector3d& value);
  double thickness() const { return thickness_; }
  void setThickness(double value);

  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;

private:
  OdGePoint3d start_;
  OdGePoint3d end_;
  OdGeVector3d normal_{0, 0, 1};
  double thickness_ = 0;
};
using OdDbLinePtr = OdSmartPtr<OdDbLine>;

// A point; PDMODE decides its symbol. Accepts every invertible matrix.
class MVDRAWING_API OdDbPoint : public OdDbEntity {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbPoint);
  OdDbPoint() = default;
  // Position, and extrusion by the thickness (negative: against the normal) along the normal (unit length).
  OdGePoint3d position() const { return position_; }
  void setPosition(const OdGePoint3d& value);
  OdGeVector3d normal() const { return normal_; }
  void setNormal(const OdGeVector3d& value);
  double thickness() const { return thickness_; }
  void setThickness(double value);
  // Angle of the x axis of the point symbol in the plane of the normal, clockwise as in files (group 50).
  double ecsRotation() const { return ecsRotation_; }
  void setEcsRotation(double value);

  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;

private:
  OdGePoint3d position_;
  OdGeVector3d normal_{0, 0, 1};
  double thickness_ = 0;
  double ecsRotation_ = 0;
};
using OdDbPointPtr = OdSmartPtr<OdDbPoint>;

// Common base of circles and arcs. They accept matrices that scale their plane uniformly; under any other matrix a
// resident entity without thickness becomes an ellipse (see OdDbEntity::transformBy), and one with thickness is
// refused, as no entity has an elliptic outline and a thickness.
class MVDRAWING_API OdDbRoundCurve : public OdDbCurve {
public:
  MVDRAWING_DECLARE_CLASS(OdDbRoundCurve);
  // Centre, normal of the plane (unit length), radius, and extrusion along the normal. Setting the normal keeps the OCS
  // coordinates of the centre, so it moves the centre in the world; set the centre afterwards. setRadius returns
  // eInvalidInput, and changes nothing, for a negative or non-finite value.
  OdGePoint3d center() const;
  void setCenter(const OdGePoint3d& point);
  OdGeVector3d normal() const { return normal_; }
  void setNormal(const OdGeVector3d& value);
  double radius() const { return radius_; }
  OdResult setRadius(double value);
  double thickness() const { return thickness_; }
  void setThickness(double value);
  // Point of the circle at an angle against the OCS x axis, counter-clockwise as seen against the normal.
  OdGePoint3d pointAt(double angleRad) const;

protected:
  OdDbRoundCurve() = default;
  static const drawing::SubclassLayout& circleSubclass(); // groups that both kinds have
  // The transformed ellipse from `startRad` to `endRad`; null if there is none.
  OdDbEntityPtr asEllipse(const OdGeMatrix3d& matrix, double startRad, double endRad) const;

  OdGePoint3d center_; // OCS
  OdGeVector3d normal_{0, 0, 1};
  double radius_ = 0;
  double thickness_ = 0;
};

// A circle.
class MVDRAWING_API OdDbCircle : public OdDbRoundCurve {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbCircle);
  OdDbCircle() = default;
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;
  OdDbEntityPtr transformedAsAnother(const OdGeMatrix3d& matrix) const override;
};
using OdDbCirclePtr = OdSmartPtr<OdDbCircle>;

// An arc, counter-clockwise as seen against the normal from the start angle to the end angle; a full circle if they are
// equal.
class MVDRAWING_API OdDbArc : public OdDbRoundCurve {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbArc);
  OdDbArc() = default;
  // Angles against the OCS x axis, and the points there.
  double startAngle() const { return startAngle_; }
  double endAngle() const { return endAngle_; }
  void setStartAngle(double value);
  void setEndAngle(double value);
  OdGePoint3d startPoint() const { return pointAt(startAngle_); }
  OdGePoint3d endPoint() const { return pointAt(endAngle_); }
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;
  OdDbEntityPtr transformedAsAnother(const OdGeMatrix3d& matrix) const override;

private:
  double startAngle_ = 0;
  double endAngle_ = 0;
};
using OdDbArcPtr = OdSmartPtr<OdDbArc>;

// center + cos(t) majorAxis + sin(t) minorAxis, for t from the start to the end parameter. Accepts every invertible
// matrix.
class MVDRAWING_API OdDbEllipse : public OdDbCurve {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbEllipse);
  OdDbEllipse() = default;
  // Centre, axes from there to the outline, unit normal, length of the minor axis divided by that of the major axis,
  // and range of the parameter in radians. The minor axis follows from the others.
  OdGePoint3d center() const { return center_; }
  void setCenter(const OdGePoint3d& value);
  OdGeVector3d majorAxis() const { return majorAxis_; }
  OdGeVector3d minorAxis() const;
  OdGeVector3d normal() const { return normal_; }
  double radiusRatio() const { return ratio_; }
  double startParam() const { return startParam_; }
  double endParam() const { return endParam_; }
  void setStartParam(double value);
  void setEndParam(double value);
  // Sets everything; the normal is normalised. Returns eInvalidInput, and changes nothing, if the major axis has no
  // length or is not perpendicular to the normal, or the ratio is 0.
  OdResult set(const OdGePoint3d& center, const OdGeVector3d& normal, const OdGeVector3d& majorAxis, double radiusRatio,
               double startParam = 0, double endParam = 6.283185307179586);
  // Point of the ellipse at a parameter, which may be outside the range.
  OdGePoint3d pointAt(double param) const;
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;

private:
  void moveParams(double shift, bool reversesDirection);

  OdGePoint3d center_;
  OdGeVector3d majorAxis_{1, 0, 0};
  OdGeVector3d normal_{0, 0, 1};
  double ratio_ = 1;
  double startParam_ = 0;
  double endParam_ = 6.283185307179586;
};
using OdDbEllipsePtr = OdSmartPtr<OdDbEllipse>;

// Common base of rays and construction lines. They accept every invertible matrix and have no extents.
class MVDRAWING_API OdDbUnboundedLine : public OdDbCurve {
public:
  MVDRAWING_DECLARE_CLASS(OdDbUnboundedLine);
  // A point of the line (of a ray, its start), and the direction, which setUnitDir normalises.
  OdGePoint3d basePoint() const { return base_; }
  void setBasePoint(const OdGePoint3d& value);
  OdGeVector3d unitDir() const { return direction_; }
  void setUnitDir(const OdGeVector3d& direction);

protected:
  OdDbUnboundedLine() = default;
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;
  static drawing::SubclassLayout lineSubclass(const char* marker); // groups that both kinds have

private:
  OdGePoint3d base_;
  OdGeVector3d direction_{1, 0, 0};
};

// A ray: infinite in one direction.
class MVDRAWING_API OdDbRay : public OdDbUnboundedLine {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbRay);
  OdDbRay() = default;
};
using OdDbRayPtr = OdSmartPtr<OdDbRay>;

// A construction line: infinite in both directions.
class MVDRAWING_API OdDbXline : public OdDbUnboundedLine {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbXline);
  OdDbXline() = default;
};
using OdDbXlinePtr = OdSmartPtr<OdDbXline>;
