// Text of several lines with formatting.
#pragma once

#include "DbEntity.h"
#include "Ge/GeVector3d.h"

class OdDbMText;
using OdDbMTextPtr = OdSmartPtr<OdDbMText>;

class MVDRAWING_API OdDbMText : public OdDbEntity {
public:
  ODDB_DECLARE_MEMBERS(OdDbMText);
  OdDbMText() = default;

  // Which point of its box stands at the location.
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

  const OdString& contents() const { return contents_; } // with its formatting codes
  void setContents(const OdString& value);
  // Without formatting; lines end with "\n", stacked fractions are written with a slash.
  OdString plainText() const;

  OdGePoint3d location() const { return location_; } // world coordinates
  void setLocation(const OdGePoint3d& value);
  OdGeVector3d normal() const { return normal_; }
  void setNormal(const OdGeVector3d& value);
  OdGeVector3d direction() const { return direction_; } // of the lines, in world coordinates
  void setDirection(const OdGeVector3d& value);
  double rotation() const; // radians, of the direction in the plane of the normal
  void setRotation(double angleRad);
  double textHeight() const { return height_; }
  void setTextHeight(double value);
  double width() const { return width_; } // lines break there; 0: nowhere
  void setWidth(double value);
  AttachmentPoint attachment() const { return static_cast<AttachmentPoint>(attachment_); }
  void setAttachment(AttachmentPoint value);
  OdDbObjectId textStyle() const { return style_; }
  void setTextStyle(OdDbObjectId value);
  double lineSpacingFactor() const { return lineSpacing_; }
  void setLineSpacingFactor(double value);
  // The size that its last program measured; 0 when none did.
  double actualWidth() const { return actualWidth_; }
  double actualHeight() const { return actualHeight_; }

  double definedHeight() const { return definedHeight_; } // of columns; 0 when it was not given
  // Background, columns and the rest of the section, in file order.
  const drawing::GroupList& furtherGroups() const { return rest_; }

  // Without font metrics, so about.
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

  // -- For the SDK's own machinery. --
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  static const drawing::Section& textSection();
  static void writeContents(const OdString& contents, drawing::GroupSink& sink);

protected:
  // Takes matrices that keep shapes in the text's plane; mirrors turn the plane over.
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;

private:
  static bool readGroup(OdDbObject& object, const drawing::Pair& pair, drawing::LoadContext& context);
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
  drawing::GroupList rest_;                             // background, columns, embedded object: in file order
  bool behindColumns_ = false, behindEmbedded_ = false; // while reading
};
