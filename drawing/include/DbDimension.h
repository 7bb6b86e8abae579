// Dimensions. A dimension is drawn by an anonymous dimension block (*D), which setters neither create nor update.
//
// Points are world coordinates, lengths drawing units, angles radians. Setters store the value unchecked. transformBy
// accepts matrices that keep shapes in the plane of the dimension; it moves the definition points and the contents of
// the anonymous block. It does not change the horizontal rotation, which follows the user coordinate system.
#pragma once

#include "DbEntity.h"
#include "Ge/GeVector3d.h"

namespace drawing {
class PlaneMap;
}

// Base class of dimensions.
class MVDRAWING_API OdDbDimension : public OdDbEntity {
public:
  MVDRAWING_DECLARE_CLASS(OdDbDimension);
  // Dimension block, null if there is none; dimension style; text, which is the measurement if it is empty ("<>" in it
  // is replaced by the measurement).
  OdDbObjectId dimBlockId() const { return block_; }
  void setDimBlockId(OdDbObjectId value);
  OdDbObjectId dimensionStyle() const { return style_; }
  void setDimensionStyle(OdDbObjectId value);
  const OdString& dimensionText() const { return text_; }
  void setDimensionText(const OdString& value);

  // Middle of the text; rotation of the text against its usual direction; direction of the user coordinate system's x
  // axis in the plane of the dimension; normal of the plane. Setting the normal keeps the OCS coordinates of the text
  // position, so it moves it in the world.
  OdGePoint3d textPosition() const;
  void setTextPosition(const OdGePoint3d& point);
  double textRotation() const { return textRotation_; }
  void setTextRotation(double value);
  double horizontalRotation() const { return horizontalRotation_; }
  void setHorizontalRotation(double value);
  OdGeVector3d normal() const { return normal_; }
  OdGeVector3d planeNormal() const override { return normal_; }
  void setNormal(const OdGeVector3d& value);

  // Measurement as the file states it, a length or an angle; -1 if it does not. Setters do not update it.
  double getMeasurement() const { return measurement_; }

  // World extents of the definition points and the text position, without the dimension block. Always eOk.
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;
  void movedAlong(std::vector<OdDbObjectId>& ids) const override;

protected:
  explicit OdDbDimension(std::int16_t type) : type_(type) {} // kind as in files (group 70)
  static const drawing::SubclassLayout& dimensionSubclass(); // groups that all dimensions have
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;

  using PointList = std::vector<OdGePoint3d*>;
  // Points of the kind in world coordinates, and those in the OCS.
  virtual PointList worldPoints() = 0;
  virtual PointList planePoints() { return {}; }
  // Transforms the angles and lengths of the kind.
  virtual void moveRest(const drawing::PlaneMap&) {}
  void moveDimensionBlock(const OdGeMatrix3d& matrix); // transforms the contents of the dimension block
  virtual bool measuresAngle() const { return false; }

  OdDbObjectId block_;
  OdDbObjectId style_;
  OdString text_;
  OdGePoint3d definition_;   // point of the dimension line or arc
  OdGePoint3d textPosition_; // OCS
  OdGeVector3d normal_{0, 0, 1};
  double textRotation_ = 0;
  double horizontalRotation_ = 0;
  double lineSpacing_ = 1;
  double measurement_ = -1;
  std::int16_t version_ = 0;
  std::int16_t type_ = 0;
  std::int16_t attachment_ = 5;
  std::int16_t lineSpacingStyle_ = 1;
};
using OdDbDimensionPtr = OdSmartPtr<OdDbDimension>;

// Common base of aligned and rotated dimensions.
class MVDRAWING_API OdDbLinearDimension : public OdDbDimension {
public:
  MVDRAWING_DECLARE_CLASS(OdDbLinearDimension);
  // Origins of the extension lines, a point of the dimension line, and the angle of the extension lines against the
  // dimension line (0: perpendicular).
  OdGePoint3d xLine1Point() const { return first_; }
  OdGePoint3d xLine2Point() const { return second_; }
  OdGePoint3d dimLinePoint() const { return definition_; }
  void setXLine1Point(const OdGePoint3d& value);
  void setXLine2Point(const OdGePoint3d& value);
  void setDimLinePoint(const OdGePoint3d& value);
  double oblique() const { return oblique_; }
  void setOblique(double value);

protected:
  using OdDbDimension::OdDbDimension;
  static drawing::SubclassLayout linearSubclass(); // groups that both kinds have
  PointList worldPoints() override { return {&definition_, &first_, &second_}; }
  void moveRest(const drawing::PlaneMap& map) override;

  OdGePoint3d first_, second_;
  OdGePoint3d insertion_; // insertion point of the dimension block, OCS
  double oblique_ = 0;
};

// Measures the distance of two points.
class MVDRAWING_API OdDbAlignedDimension : public OdDbLinearDimension {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbAlignedDimension);
  OdDbAlignedDimension() : OdDbLinearDimension(1) {} // all points at the origin
};
using OdDbAlignedDimensionPtr = OdSmartPtr<OdDbAlignedDimension>;

// Measures the distance of two points along a direction.
class MVDRAWING_API OdDbRotatedDimension : public OdDbLinearDimension {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbRotatedDimension);
  OdDbRotatedDimension() : OdDbLinearDimension(0) {} // all points at the origin, horizontal
  // Angle of the dimension line against the OCS x axis.
  double rotation() const { return rotation_; }
  void setRotation(double value);

protected:
  void moveRest(const drawing::PlaneMap& map) override;

private:
  double rotation_ = 0;
};
using OdDbRotatedDimensionPtr = OdSmartPtr<OdDbRotatedDimension>;

// Common base of angular dimensions. The comments give the DXF group codes of the points.
class MVDRAWING_API OdDbAngularDimension : public OdDbDimension {
public:
  MVDRAWING_DECLARE_CLASS(OdDbAngularDimension);
  // Three points: 13 and 14 are the ends of the sides, 15 the vertex, 10 a point of the dimension arc. Two lines: 13
  // and 14 are the ends of the first line, 15 and 10 those of the second, 16 a point of the dimension arc.
  OdGePoint3d definitionPoint() const { return definition_; } // group 10
  OdGePoint3d xLine1Point() const { return first_; }          // group 13
  OdGePoint3d xLine2Point() const { return second_; }         // group 14
  OdGePoint3d centerPoint() const { return third_; }          // group 15
  OdGePoint3d arcPoint() const;                               // group 16
  void setDefinitionPoint(const OdGePoint3d& value);
  void setXLine1Point(const OdGePoint3d& value);
  void setXLine2Point(const OdGePoint3d& value);
  void setCenterPoint(const OdGePoint3d& value);
  void setArcPoint(const OdGePoint3d& point);
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  using OdDbDimension::OdDbDimension;
  static drawing::SubclassLayout angularSubclass(const char* marker); // groups that both kinds have
  PointList worldPoints() override { return {&definition_, &first_, &second_, &third_}; }
  PointList planePoints() override { return {&arc_}; }
  bool measuresAngle() const override { return true; }

private:
  OdGePoint3d first_, second_, third_;
  OdGePoint3d arc_; // OCS
};

// Measures the angle between two lines.
class MVDRAWING_API OdDb2LineAngularDimension : public OdDbAngularDimension {
public:
  MVDRAWING_DECLARE_OBJECT(OdDb2LineAngularDimension);
  OdDb2LineAngularDimension() : OdDbAngularDimension(2) {} // all points at the origin
};

// Measures the angle at a vertex.
class MVDRAWING_API OdDb3PointAngularDimension : public OdDbAngularDimension {
public:
  MVDRAWING_DECLARE_OBJECT(OdDb3PointAngularDimension);
  OdDb3PointAngularDimension() : OdDbAngularDimension(5) {} // all points at the origin
};

// Common base of radial and diametric dimensions. Radius: the definition point is the centre, the chord point is on the
// circle. Diameter: both are on the circle, opposite to each other.
class MVDRAWING_API OdDbRoundDimension : public OdDbDimension {
public:
  MVDRAWING_DECLARE_CLASS(OdDbRoundDimension);
  // The points, and the length of the leader beyond the chord point.
  OdGePoint3d definitionPoint() const { return definition_; }
  OdGePoint3d chordPoint() const { return chord_; }
  double leaderLength() const { return leaderLength_; }
  void setDefinitionPoint(const OdGePoint3d& value);
  void setChordPoint(const OdGePoint3d& value);
  void setLeaderLength(double value);
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  using OdDbDimension::OdDbDimension;
  static drawing::SubclassLayout roundSubclass(const char* marker); // groups that both kinds have
  PointList worldPoints() override { return {&definition_, &chord_}; }
  void moveRest(const drawing::PlaneMap& map) override;

private:
  OdGePoint3d chord_;
  double leaderLength_ = 0;
};

// Measures a radius.
class MVDRAWING_API OdDbRadialDimension : public OdDbRoundDimension {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbRadialDimension);
  OdDbRadialDimension() : OdDbRoundDimension(4) {} // all points at the origin
};

// Measures a diameter.
class MVDRAWING_API OdDbDiametricDimension : public OdDbRoundDimension {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbDiametricDimension);
  OdDbDiametricDimension() : OdDbRoundDimension(3) {} // all points at the origin
};

// Measures the x or y distance of a feature from an origin.
class MVDRAWING_API OdDbOrdinateDimension : public OdDbDimension {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbOrdinateDimension);
  OdDbOrdinateDimension() : OdDbDimension(6) {} // all points at the origin, measuring y
  // Origin, feature, end of the leader, and whether x is measured.
  OdGePoint3d origin() const { return definition_; }
  OdGePoint3d definingPoint() const { return feature_; }
  OdGePoint3d leaderEndPoint() const { return leaderEnd_; }
  void setOrigin(const OdGePoint3d& value);
  void setDefiningPoint(const OdGePoint3d& value);
  void setLeaderEndPoint(const OdGePoint3d& value);
  bool isUsingXAxis() const { return (type_ & 64) != 0; }

protected:
  PointList worldPoints() override { return {&definition_, &feature_, &leaderEnd_}; }

private:
  OdGePoint3d feature_, leaderEnd_;
};

// Measures the length of an arc.
class MVDRAWING_API OdDbArcDimension : public OdDbDimension {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbArcDimension);
  OdDbArcDimension() : OdDbDimension(5) {} // all points at the origin
  // A point of the dimension arc, the ends of the arc, and its centre.
  OdGePoint3d arcPoint() const { return definition_; }
  OdGePoint3d xLine1Point() const { return first_; }
  OdGePoint3d xLine2Point() const { return second_; }
  OdGePoint3d centerPoint() const { return center_; }

protected:
  PointList worldPoints() override { return {&definition_, &first_, &second_, &center_, &leaderStart_, &leaderEnd_}; }
  void moveRest(const drawing::PlaneMap& map) override;

private:
  OdGePoint3d first_, second_, center_, leaderStart_, leaderEnd_;
  double startAngle_ = 0, endAngle_ = 0; // of a part of an arc; radians in files as well
  bool isPart_ = false, hasLeader_ = false;
};

// Measures the radius of a large arc, with a jog and a replaced centre.
class MVDRAWING_API OdDbRadialDimensionLarge : public OdDbDimension {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbRadialDimensionLarge);
  OdDbRadialDimensionLarge() : OdDbDimension(4) {} // all points at the origin
  // Centre, point where the dimension line begins instead, middle of the jog, point of the arc, angle of the jog.
  OdGePoint3d center() const { return definition_; }
  OdGePoint3d overrideCenter() const { return overrideCenter_; }
  OdGePoint3d jogPoint() const { return jog_; }
  OdGePoint3d chordPoint() const { return chord_; }
  double jogAngle() const { return jogAngle_; }

protected:
  PointList worldPoints() override { return {&definition_, &overrideCenter_, &jog_, &chord_}; }

private:
  OdGePoint3d overrideCenter_, jog_, chord_;
  double jogAngle_ = 0; // radians in files as well
};
