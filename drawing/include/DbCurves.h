// Lines, circles and their kin. All points and vectors that these functions take and answer are world coordinates.
#pragma once

#include "DbEntity.h"
#include "Ge/GeVector3d.h"

// The root of everything that is a line, straight or bent.
class MVDRAWING_API OdDbCurve : public OdDbEntity {
public:
  ODRX_DECLARE_MEMBERS(OdDbCurve);

protected:
  OdDbCurve() = default;
};
using OdDbCurvePtr = OdSmartPtr<OdDbCurve>;

class MVDRAWING_API OdDbLine : public OdDbCurve {
public:
  ODDB_DECLARE_MEMBERS(OdDbLine);
  OdDbLine() = default;
  OdGePoint3d startPoint() const { return start_; }
  OdGePoint3d endPoint() const { return end_; }
  void setStartPoint(const OdGePoint3d& point);
  void setEndPoint(const OdGePoint3d& point);
  OdGeVector3d normal() const { return normal_; } // the direction of the thickness
  void setNormal(const OdGeVector3d& value);
  double thickness() const { return thickness_; }
  void setThickness(double value);

  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;

private:
  OdGePoint3d start_;
  OdGePoint3d end_;
  OdGeVector3d normal_{0, 0, 1};
  double thickness_ = 0;
};
using OdDbLinePtr = OdSmartPtr<OdDbLine>;

class MVDRAWING_API OdDbPoint : public OdDbEntity {
public:
  ODDB_DECLARE_MEMBERS(OdDbPoint);
  OdDbPoint() = default;
  OdGePoint3d position() const { return position_; }
  void setPosition(const OdGePoint3d& value);
  OdGeVector3d normal() const { return normal_; } // the direction of the thickness
  void setNormal(const OdGeVector3d& value);
  double thickness() const { return thickness_; }
  void setThickness(double value);
  // Where the x axis of the point's sign stands in the plane of the normal; counted clockwise, as files have it.
  double ecsRotation() const { return ecsRotation_; }
  void setEcsRotation(double value);

  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;

private:
  OdGePoint3d position_;
  OdGeVector3d normal_{0, 0, 1};
  double thickness_ = 0;
  double ecsRotation_ = 0;
};
using OdDbPointPtr = OdSmartPtr<OdDbPoint>;

// What circles and arcs share. A matrix that leaves circles in their plane circles moves them; under any other one an
// entity of a drawing becomes an ellipse (see OdDbEntity::transformBy), unless it has a thickness: nothing that files
// know has an elliptic outline and a thickness.
class MVDRAWING_API OdDbRoundCurve : public OdDbCurve {
public:
  ODRX_DECLARE_MEMBERS(OdDbRoundCurve);
  OdGePoint3d center() const;
  void setCenter(const OdGePoint3d& point);
  OdGeVector3d normal() const { return normal_; }
  void setNormal(const OdGeVector3d& value); // the centre keeps its numbers in the plane's own frame
  double radius() const { return radius_; }
  void setRadius(double value);
  double thickness() const { return thickness_; }
  void setThickness(double value);
  // The point that lies there, against the x axis of the plane's frame.
  OdGePoint3d pointAt(double angleRad) const;

protected:
  OdDbRoundCurve() = default;
  static const drawing::Section& circleSection();
  // The ellipse from the angle `startRad` to `endRad`; null when there is none.
  OdDbEntityPtr asEllipse(const OdGeMatrix3d& matrix, double startRad, double endRad) const;

  OdGePoint3d center_; // in the plane's frame
  OdGeVector3d normal_{0, 0, 1};
  double radius_ = 0;
  double thickness_ = 0;
};

class MVDRAWING_API OdDbCircle : public OdDbRoundCurve {
public:
  ODDB_DECLARE_MEMBERS(OdDbCircle);
  OdDbCircle() = default;
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;
  OdDbEntityPtr transformedAsAnother(const OdGeMatrix3d& matrix) const override;
};
using OdDbCirclePtr = OdSmartPtr<OdDbCircle>;

// Runs counter-clockwise, as seen against the normal, from the start angle to the end angle; all the way round when
// they are the same.
class MVDRAWING_API OdDbArc : public OdDbRoundCurve {
public:
  ODDB_DECLARE_MEMBERS(OdDbArc);
  OdDbArc() = default;
  double startAngle() const { return startAngle_; } // radians
  double endAngle() const { return endAngle_; }
  void setStartAngle(double value);
  void setEndAngle(double value);
  OdGePoint3d startPoint() const { return pointAt(startAngle_); }
  OdGePoint3d endPoint() const { return pointAt(endAngle_); }
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;
  OdDbEntityPtr transformedAsAnother(const OdGeMatrix3d& matrix) const override;

private:
  double startAngle_ = 0;
  double endAngle_ = 0;
};
using OdDbArcPtr = OdSmartPtr<OdDbArc>;

// center + cos(t) majorAxis + sin(t) minorAxis, for t from the start to the end parameter. Takes every matrix.
class MVDRAWING_API OdDbEllipse : public OdDbCurve {
public:
  ODDB_DECLARE_MEMBERS(OdDbEllipse);
  OdDbEllipse() = default;
  OdGePoint3d center() const { return center_; }
  void setCenter(const OdGePoint3d& value);
  OdGeVector3d majorAxis() const { return majorAxis_; }
  OdGeVector3d minorAxis() const;
  OdGeVector3d normal() const { return normal_; }
  double radiusRatio() const { return ratio_; } // minor against major
  double startParam() const { return startParam_; }
  double endParam() const { return endParam_; }
  void setStartParam(double value);
  void setEndParam(double value);
  // Parameters in radians. eInvalidInput unless the axis has a length and stands square to the normal.
  OdResult set(const OdGePoint3d& center, const OdGeVector3d& normal, const OdGeVector3d& majorAxis, double radiusRatio,
               double startParam = 0, double endParam = 6.283185307179586);
  OdGePoint3d pointAt(double param) const;
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;

private:
  void moveParams(double shift, bool turnedRound);

  OdGePoint3d center_;
  OdGeVector3d majorAxis_{1, 0, 0};
  OdGeVector3d normal_{0, 0, 1};
  double ratio_ = 1;
  double startParam_ = 0;
  double endParam_ = 6.283185307179586;
};
using OdDbEllipsePtr = OdSmartPtr<OdDbEllipse>;

// Lines without an end (rays) and without a beginning. They have no extents.
class MVDRAWING_API OdDbUnboundedLine : public OdDbCurve {
public:
  ODRX_DECLARE_MEMBERS(OdDbUnboundedLine);
  OdGePoint3d basePoint() const { return base_; }
  void setBasePoint(const OdGePoint3d& value);
  OdGeVector3d unitDir() const { return direction_; }
  void setUnitDir(const OdGeVector3d& direction); // made a unit vector

protected:
  OdDbUnboundedLine() = default;
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;
  static drawing::Section lineSection(const char* marker);

private:
  OdGePoint3d base_;
  OdGeVector3d direction_{1, 0, 0};
};

class MVDRAWING_API OdDbRay : public OdDbUnboundedLine {
public:
  ODDB_DECLARE_MEMBERS(OdDbRay);
  OdDbRay() = default;
};
using OdDbRayPtr = OdSmartPtr<OdDbRay>;

class MVDRAWING_API OdDbXline : public OdDbUnboundedLine {
public:
  ODDB_DECLARE_MEMBERS(OdDbXline);
  OdDbXline() = default;
};
using OdDbXlinePtr = OdSmartPtr<OdDbXline>;
