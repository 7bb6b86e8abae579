// Single-line text.
#pragma once

#include "DbEntity.h"
#include "Ge/GeVector3d.h"

class MVDRAWING_API OdDbText : public OdDbEntity {
public:
  ODDB_DECLARE_MEMBERS(OdDbText);
  OdDbText() = default;

  // Horizontal and vertical alignment. With kLeft and kBase the position places the text; otherwise the alignment
  // point does (kAligned and kFit use both).
  enum HorizontalMode : std::int16_t { kLeft, kCenter, kRight, kAligned, kMid, kFit };
  enum VerticalMode : std::int16_t { kBase, kBottom, kMiddle, kTop };

  OdGePoint3d position() const;       // world coordinates
  OdGePoint3d alignmentPoint() const; // world coordinates
  void setPosition(const OdGePoint3d& point);
  void setAlignmentPoint(const OdGePoint3d& point);
  OdGeVector3d normal() const { return normal_; }
  OdGeVector3d planeNormal() const override { return normal_; }
  void setNormal(const OdGeVector3d& normal); // the points keep their numbers in the plane's own frame
  virtual OdString textString() const { return text_; }
  virtual void setTextString(const OdString& text);
  double height() const { return height_; }
  void setHeight(double height);
  double rotation() const { return rotation_; } // radians, in the text's plane
  void setRotation(double angleRad);
  double widthFactor() const { return widthFactor_; }
  void setWidthFactor(double factor);
  double oblique() const { return oblique_; } // radians
  void setOblique(double angleRad);
  double thickness() const { return thickness_; } // along the normal
  void setThickness(double thickness);
  OdDbObjectId textStyle() const { return style_; }
  void setTextStyle(OdDbObjectId style);
  HorizontalMode horizontalMode() const { return static_cast<HorizontalMode>(horizontal_); }
  void setHorizontalMode(HorizontalMode mode);
  VerticalMode verticalMode() const { return static_cast<VerticalMode>(vertical_); }
  void setVerticalMode(VerticalMode mode);
  bool isMirroredInX() const { return (mirrored_ & 2) != 0; } // backwards
  bool isMirroredInY() const { return (mirrored_ & 4) != 0; } // upside down

  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

  // All that makes the text look as it does, from another text; the string included.
  void setTextFrom(const OdDbText& other);

protected:
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;
  static const drawing::Section& textSection(); // the section that texts and attributes share

  OdString text_;
  OdGePoint3d position_;  // in the plane's frame
  OdGePoint3d alignment_; // in the plane's frame
  OdGeVector3d normal_{0, 0, 1};
  OdDbObjectId style_;
  double height_ = 0;
  double rotation_ = 0;
  double widthFactor_ = 1;
  double oblique_ = 0;
  double thickness_ = 0;
  std::int16_t mirrored_ = 0;
  std::int16_t horizontal_ = 0;
  std::int16_t vertical_ = 0;
};
using OdDbTextPtr = OdSmartPtr<OdDbText>;
