// Single-line text.
#pragma once

#include "DbEntity.h"
#include "Ge/GeVector3d.h"

// Single-line text. Points are world coordinates, lengths drawing units, angles radians. Setters store the value
// unchecked. Accepts every invertible matrix: shearing changes the obliquing angle, unequal scaling the width factor.
class MVDRAWING_API OdDbText : public OdDbEntity {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbText);
  OdDbText() = default;

  // Horizontal and vertical alignment; values as in files (groups 72 and 73). With kLeft and kBase the position places
  // the text; otherwise the alignment point does (kAligned and kFit use both).
  enum HorizontalMode : std::int16_t { kLeft, kCenter, kRight, kAligned, kMid, kFit };
  // Vertical alignment.
  enum VerticalMode : std::int16_t { kBase, kBottom, kMiddle, kTop };

  // Points, and normal of the plane (unit length). The setters of points convert to the OCS of the present normal;
  // setting the normal keeps the OCS coordinates, so it moves the points in the world: set it first.
  OdGePoint3d position() const;
  OdGePoint3d alignmentPoint() const;
  void setPosition(const OdGePoint3d& point);
  void setAlignmentPoint(const OdGePoint3d& point);
  OdGeVector3d normal() const { return normal_; }
  OdGeVector3d planeNormal() const override { return normal_; }
  void setNormal(const OdGeVector3d& normal);

  // Text with control codes (%%d, %%c, %%u ...) as files store it.
  virtual OdString textString() const { return text_; }
  virtual void setTextString(const OdString& text);

  // Height of capital letters; rotation against the OCS x axis; width factor; slant of characters to the right;
  // extrusion along the normal; text style (null: "Standard"). setHeight returns eInvalidInput, and changes nothing,
  // for a negative or non-finite value.
  double height() const { return height_; }
  OdResult setHeight(double height);
  double rotation() const { return rotation_; }
  void setRotation(double angleRad);
  double widthFactor() const { return widthFactor_; }
  void setWidthFactor(double factor);
  double oblique() const { return oblique_; }
  void setOblique(double angleRad);
  double thickness() const { return thickness_; }
  void setThickness(double thickness);
  OdDbObjectId textStyle() const { return style_; }
  void setTextStyle(OdDbObjectId style);

  // Alignment, and mirroring of the characters: backwards (in X), upside down (in Y).
  HorizontalMode horizontalMode() const { return static_cast<HorizontalMode>(horizontal_); }
  void setHorizontalMode(HorizontalMode mode);
  VerticalMode verticalMode() const { return static_cast<VerticalMode>(vertical_); }
  void setVerticalMode(VerticalMode mode);
  bool isMirroredInX() const { return (mirrored_ & 2) != 0; }
  bool isMirroredInY() const { return (mirrored_ & 4) != 0; }

  // World extents, estimated without font metrics. Always eOk.
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

  // Copies all of the above from another text; the text style should be of the same drawing.
  void setTextFrom(const OdDbText& other);

protected:
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;
  static const drawing::SubclassLayout& textSubclass(); // groups that texts and attributes have

  OdString text_;
  OdGePoint3d position_;  // OCS
  OdGePoint3d alignment_; // OCS
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
