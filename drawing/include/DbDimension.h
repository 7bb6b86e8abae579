// Dimensions. Their picture is an anonymous block of its own, which this SDK neither makes nor moves.
//
// Points that these functions take and answer are world coordinates; angles are radians. transformBy takes matrices
// that keep shapes in the dimension's plane. It moves the definition points and leaves the horizontal rotation alone:
// that one follows the user coordinate system, and whoever moves dimensions into another system sets it.
#pragma once

#include "DbEntity.h"
#include "Ge/GeVector3d.h"

namespace drawing {
class PlaneMap;
}

class MVDRAWING_API OdDbDimension : public OdDbEntity {
public:
  ODRX_DECLARE_MEMBERS(OdDbDimension);
  OdDbObjectId dimBlockId() const { return block_; } // its picture; null when it has none
  void setDimBlockId(OdDbObjectId value);
  OdDbObjectId dimensionStyle() const { return style_; }
  void setDimensionStyle(OdDbObjectId value);
  const OdString& dimensionText() const { return text_; } // empty: the measurement
  void setDimensionText(const OdString& value);
  OdGePoint3d textPosition() const; // the middle of the text
  void setTextPosition(const OdGePoint3d& point);
  double textRotation() const { return textRotation_; } // away from its usual direction
  void setTextRotation(double value);
  double horizontalRotation() const { return horizontalRotation_; }
  void setHorizontalRotation(double value);
  OdGeVector3d normal() const { return normal_; }
  OdGeVector3d planeNormal() const override { return normal_; }
  void setNormal(const OdGeVector3d& value);             // the text position keeps its numbers in the plane's own frame
  double getMeasurement() const { return measurement_; } // as its last program measured it

  OdResult getGeomExtents(OdGeExtents3d& extents) const override;
  void movedParts(std::vector<OdDbObjectId>& ids) const override;

protected:
  explicit OdDbDimension(std::int16_t type) : type_(type) {}
  static const drawing::Section& dimensionSection();
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;

  using PointList = std::vector<OdGePoint3d*>;
  // The kind's own points in world coordinates, and those in the frame of the plane.
  virtual PointList worldPoints() = 0;
  virtual PointList planePoints() { return {}; }
  // What else turns and grows.
  virtual void moveRest(const drawing::PlaneMap&) {}
  void movePicture(const OdGeMatrix3d& matrix);
  virtual bool measuresAngle() const { return false; }

  OdDbObjectId block_;
  OdDbObjectId style_;
  OdString text_;
  OdGePoint3d definition_;   // of the dimension line or arc
  OdGePoint3d textPosition_; // in the plane's frame
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

// What aligned and rotated dimensions share.
class MVDRAWING_API OdDbLinearDimension : public OdDbDimension {
public:
  ODRX_DECLARE_MEMBERS(OdDbLinearDimension);
  OdGePoint3d xLine1Point() const { return first_; }
  OdGePoint3d xLine2Point() const { return second_; }
  OdGePoint3d dimLinePoint() const { return definition_; }
  void setXLine1Point(const OdGePoint3d& value);
  void setXLine2Point(const OdGePoint3d& value);
  void setDimLinePoint(const OdGePoint3d& value);
  double oblique() const { return oblique_; } // of the extension lines
  void setOblique(double value);

protected:
  using OdDbDimension::OdDbDimension;
  static drawing::Section linearSection();
  PointList worldPoints() override { return {&definition_, &first_, &second_}; }
  void moveRest(const drawing::PlaneMap& map) override;

  OdGePoint3d first_, second_;
  OdGePoint3d insertion_; // of the picture, in the plane's frame
  double oblique_ = 0;
};

class MVDRAWING_API OdDbAlignedDimension : public OdDbLinearDimension {
public:
  ODDB_DECLARE_MEMBERS(OdDbAlignedDimension);
  OdDbAlignedDimension() : OdDbLinearDimension(1) {}
};
using OdDbAlignedDimensionPtr = OdSmartPtr<OdDbAlignedDimension>;

class MVDRAWING_API OdDbRotatedDimension : public OdDbLinearDimension {
public:
  ODDB_DECLARE_MEMBERS(OdDbRotatedDimension);
  OdDbRotatedDimension() : OdDbLinearDimension(0) {}
  double rotation() const { return rotation_; } // of the dimension line
  void setRotation(double value);

protected:
  void moveRest(const drawing::PlaneMap& map) override;

private:
  double rotation_ = 0;
};
using OdDbRotatedDimensionPtr = OdSmartPtr<OdDbRotatedDimension>;

// What the two kinds of angular dimensions share. Their points are known by the group codes of files.
class MVDRAWING_API OdDbAngularDimension : public OdDbDimension {
public:
  ODRX_DECLARE_MEMBERS(OdDbAngularDimension);
  OdGePoint3d definitionPoint() const { return definition_; } // 10
  OdGePoint3d xLine1Point() const { return first_; }          // 13
  OdGePoint3d xLine2Point() const { return second_; }         // 14
  OdGePoint3d centerPoint() const { return third_; }          // 15: of two lines the start of the second
  OdGePoint3d arcPoint() const;                               // 16
  void setDefinitionPoint(const OdGePoint3d& value);
  void setXLine1Point(const OdGePoint3d& value);
  void setXLine2Point(const OdGePoint3d& value);
  void setCenterPoint(const OdGePoint3d& value);
  void setArcPoint(const OdGePoint3d& point);
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  using OdDbDimension::OdDbDimension;
  static drawing::Section angularSection(const char* marker);
  PointList worldPoints() override { return {&definition_, &first_, &second_, &third_}; }
  PointList planePoints() override { return {&arc_}; }
  bool measuresAngle() const override { return true; }

private:
  OdGePoint3d first_, second_, third_;
  OdGePoint3d arc_; // in the plane's frame
};

class MVDRAWING_API OdDb2LineAngularDimension : public OdDbAngularDimension {
public:
  ODDB_DECLARE_MEMBERS(OdDb2LineAngularDimension);
  OdDb2LineAngularDimension() : OdDbAngularDimension(2) {}
};

class MVDRAWING_API OdDb3PointAngularDimension : public OdDbAngularDimension {
public:
  ODDB_DECLARE_MEMBERS(OdDb3PointAngularDimension);
  OdDb3PointAngularDimension() : OdDbAngularDimension(5) {}
};

// Of a radius: from the centre (definition point) to the chord point. Of a diameter: from one to the other.
class MVDRAWING_API OdDbRoundDimension : public OdDbDimension {
public:
  ODRX_DECLARE_MEMBERS(OdDbRoundDimension);
  OdGePoint3d definitionPoint() const { return definition_; }
  OdGePoint3d chordPoint() const { return chord_; }
  double leaderLength() const { return leaderLength_; }
  void setDefinitionPoint(const OdGePoint3d& value);
  void setChordPoint(const OdGePoint3d& value);
  void setLeaderLength(double value);
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  using OdDbDimension::OdDbDimension;
  static drawing::Section roundSection(const char* marker);
  PointList worldPoints() override { return {&definition_, &chord_}; }
  void moveRest(const drawing::PlaneMap& map) override;

private:
  OdGePoint3d chord_;
  double leaderLength_ = 0;
};

class MVDRAWING_API OdDbRadialDimension : public OdDbRoundDimension {
public:
  ODDB_DECLARE_MEMBERS(OdDbRadialDimension);
  OdDbRadialDimension() : OdDbRoundDimension(4) {}
};

class MVDRAWING_API OdDbDiametricDimension : public OdDbRoundDimension {
public:
  ODDB_DECLARE_MEMBERS(OdDbDiametricDimension);
  OdDbDiametricDimension() : OdDbRoundDimension(3) {}
};

class MVDRAWING_API OdDbOrdinateDimension : public OdDbDimension {
public:
  ODDB_DECLARE_MEMBERS(OdDbOrdinateDimension);
  OdDbOrdinateDimension() : OdDbDimension(6) {}
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

// Of the length of an arc.
class MVDRAWING_API OdDbArcDimension : public OdDbDimension {
public:
  ODDB_DECLARE_MEMBERS(OdDbArcDimension);
  OdDbArcDimension() : OdDbDimension(5) {}
  OdGePoint3d arcPoint() const { return definition_; }
  OdGePoint3d xLine1Point() const { return first_; }
  OdGePoint3d xLine2Point() const { return second_; }
  OdGePoint3d centerPoint() const { return center_; }

protected:
  PointList worldPoints() override { return {&definition_, &first_, &second_, &center_, &leaderStart_, &leaderEnd_}; }
  void moveRest(const drawing::PlaneMap& map) override;

private:
  OdGePoint3d first_, second_, center_, leaderStart_, leaderEnd_;
  double startAngle_ = 0, endAngle_ = 0; // of a part of an arc; radians in files too
  bool isPart_ = false, hasLeader_ = false;
};

// Of the radius of a great arc, with a jog, from a centre of its own choice.
class MVDRAWING_API OdDbRadialDimensionLarge : public OdDbDimension {
public:
  ODDB_DECLARE_MEMBERS(OdDbRadialDimensionLarge);
  OdDbRadialDimensionLarge() : OdDbDimension(4) {}
  OdGePoint3d center() const { return definition_; }
  OdGePoint3d overrideCenter() const { return overrideCenter_; }
  OdGePoint3d jogPoint() const { return jog_; }
  OdGePoint3d chordPoint() const { return chord_; }
  double jogAngle() const { return jogAngle_; } // radians

protected:
  PointList worldPoints() override { return {&definition_, &overrideCenter_, &jog_, &chord_}; }

private:
  OdGePoint3d overrideCenter_, jog_, chord_;
  double jogAngle_ = 0; // radians in files too
};
