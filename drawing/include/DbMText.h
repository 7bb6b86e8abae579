// Multiline text with formatting codes.
#pragma once

#include "DbEntity.h"
#include "Ge/GeVector3d.h"

class OdDbMText;
using OdDbMTextPtr = OdSmartPtr<OdDbMText>;

// Multiline text. Points and vectors are world coordinates, lengths drawing units. Setters throw
// OdError(eNotOpenForWrite) for a resident entity that is not open for write, and store the value unchecked.
class MVDRAWING_API OdDbMText : public OdDbEntity {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbMText);
  OdDbMText() = default;

  // Point of the text box that is at the location; values as in files (group 71).
  enum AttachmentPoint : std::int16_t {
    kTopLeft = 1,
    kTopCenter,
    kTopRight,
    kMiddleLeft,
    kMiddleCenter,
    kMiddleRight,
    kBottomLeft,
    kBottomCenter,
    kBottomRight
  };

  // Text with its formatting codes (\P for a new line, \H, \f, {} ...).
  const OdString& contents() const { return contents_; }
  void setContents(const OdString& value);
  // Text without formatting codes; lines are separated by "\n", stacked fractions are written with a slash.
  OdString plainText() const;

  // Attachment point, normal of the plane (unit length), and direction of the lines, perpendicular to the normal. Each
  // setter keeps the other two.
  OdGePoint3d location() const { return location_; }
  void setLocation(const OdGePoint3d& value);
  OdGeVector3d normal() const { return normal_; }
  void setNormal(const OdGeVector3d& value);
  OdGeVector3d direction() const { return direction_; }
  void setDirection(const OdGeVector3d& value);
  // Angle of the direction against the OCS x axis of the normal, in radians, [0, 2 pi). Setting it sets the direction
  // to a unit vector.
  double rotation() const;
  void setRotation(double angleRad);

  // Height of capital letters without formatting codes, and the width at which lines break (0: they do not).
  double textHeight() const { return height_; }
  void setTextHeight(double value);
  double width() const { return width_; }
  void setWidth(double value);
  AttachmentPoint attachment() const { return static_cast<AttachmentPoint>(attachment_); }
  void setAttachment(AttachmentPoint value);
  // Text style; null: "Standard".
  OdDbObjectId textStyle() const { return style_; }
  void setTextStyle(OdDbObjectId value);
  // Factor of the distance between lines, which is 5/3 of the text height at 1.
  double lineSpacingFactor() const { return lineSpacing_; }
  void setLineSpacingFactor(double value);

  // Size of the text box as stored in the file by the program that wrote it; 0 when it is absent. Setters do not
  // update it, transforming scales it.
  double actualWidth() const { return actualWidth_; }
  double actualHeight() const { return actualHeight_; }

  // Height of columns; 0 when the file does not state it.
  double definedHeight() const { return definedHeight_; }
  // All other groups of the text (background, columns ...) in file order.
  const drawing::GroupList& furtherGroups() const { return rest_; }

  // Extents of the text box in world coordinates: the stored size, else an estimate without font metrics. Always eOk.
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

  // -- SDK internals. --
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void visitReferences(drawing::ConstReferenceVisitor& visitor) const override;
  // Description of its groups, which multiline attributes share.
  static const drawing::SubclassLayout& textSubclass();
  // Writes the contents in groups of at most 250 characters: group 3 for all but the last, which is group 1.
  static void writeContents(const OdString& contents, drawing::GroupSink& sink);

protected:
  // Accepts matrices that keep shapes in the plane of the text; a reflection reverses the normal.
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;

private:
  static bool readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);

  OdString contents_;
  OdGePoint3d location_;
  OdGeVector3d normal_{0, 0, 1};
  OdGeVector3d direction_{1, 0, 0};
  OdDbObjectId style_;
  double height_ = 0;
  double width_ = 0;
  double definedHeight_ = 0;
  double actualWidth_ = 0, actualHeight_ = 0;
  double lineSpacing_ = 1;
  std::int16_t attachment_ = kTopLeft;
  std::int16_t flowDirection_ = 1;
  std::int16_t lineSpacingStyle_ = 1;
  drawing::GroupList rest_;                           // background, columns, embedded object: in file order
  bool afterColumns_ = false, afterEmbedded_ = false; // reader state: these groups have been read
};
