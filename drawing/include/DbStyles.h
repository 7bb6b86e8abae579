// Styles that are entries of dictionaries of the drawing, under their names there. Setters throw
// OdError(eNotOpenForWrite) for a resident style that is not open for write, and store the value unchecked.
#pragma once

#include "DbEntity.h"

#include <vector>

// Base of styles that are stored as groups of the file. Values that the file does not state are read as 0, empty text
// or null unless stated otherwise.
class MVDRAWING_API OdDbRawStyle : public OdDbObject {
public:
  MVDRAWING_DECLARE_CLASS(OdDbRawStyle);
  // Key of the entry in its dictionary; empty when it is in none.
  OdString getName() const;
  // All groups of the style in file order.
  const drawing::GroupList& groups() const { return groups_; }
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void visitReferences(drawing::ConstReferenceVisitor& visitor) const override;

protected:
  OdDbRawStyle() = default;
  // Replace the first group of that code, or append one.
  void putReal(int code, double value);
  void putReference(int code, OdDbObjectId value);

  drawing::GroupList groups_; // all groups of the subclass
};

// Style of multileaders. Lengths are drawing units at scale 1.
class MVDRAWING_API OdDbMLeaderStyle : public OdDbRawStyle {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbMLeaderStyle);
  OdDbMLeaderStyle() = default;

  // Description for people, and the kind of content as OdDbMLeader::ContentType (text when it is not stated).
  OdString getDescription() const;
  std::int16_t contentType() const;

  // Overall scale (1 when it is not stated), and sizes before it is applied.
  double scale() const;
  void setScale(double value);
  double textHeight() const;
  void setTextHeight(double value);
  double arrowSize() const;
  void setArrowSize(double value);
  double landingGap() const;
  double doglegLength() const;

  // Text style, linetype of the leader lines, arrowhead block (null: the closed filled arrow), block of block contents,
  // and text that new multileaders start with.
  OdDbObjectId textStyleId() const;
  void setTextStyleId(OdDbObjectId value);
  OdDbObjectId leaderLineTypeId() const;
  OdDbObjectId arrowSymbolId() const;
  OdDbObjectId blockId() const;
  OdString defaultMText() const;
};
using OdDbMLeaderStylePtr = OdSmartPtr<OdDbMLeaderStyle>;

// Style of tables. Margins and heights are drawing units.
class MVDRAWING_API OdDbTableStyle : public OdDbRawStyle {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbTableStyle);
  OdDbTableStyle() = default;
  // Kinds of rows, in the order in which files describe them.
  enum RowType : unsigned { kDataRow, kTitleRow, kHeaderRow };

  // Properties of the whole table. A table that flows up has its title at the bottom.
  OdString getDescription() const;
  bool isFlowUp() const;
  double horzCellMargin() const;
  double vertCellMargin() const;
  bool isTitleSuppressed() const;
  bool isHeaderSuppressed() const;
  // Text height, and text style by name, of the cells of such rows; 0 and empty when the style does not state them.
  double textHeight(RowType row) const;
  OdString textStyleName(RowType row) const;
};
using OdDbTableStylePtr = OdSmartPtr<OdDbTableStyle>;

// Visual style: the way in which solids and surfaces are displayed.
class MVDRAWING_API OdDbVisualStyle : public OdDbRawStyle {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbVisualStyle);
  OdDbVisualStyle() = default;
  // Values as in files: description (group 2), type (group 70), and whether people should not choose it (group 291).
  OdString getDescription() const;
  std::int16_t type() const;
  bool isInternalUseOnly() const;
};
using OdDbVisualStylePtr = OdSmartPtr<OdDbVisualStyle>;

// Style of multilines: their parallel lines in order of the file, usually from the largest offset to the smallest.
class MVDRAWING_API OdDbMlineStyle : public OdDbObject {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbMlineStyle);
  OdDbMlineStyle() = default;
  // One of the parallel lines.
  struct Element {
    double offset = 0; // drawing units at scale 1, positive to the left of the direction of the multiline
    OdCmColor color;
    OdDbObjectId linetype; // null: by layer
  };
  // Name as stored in the style (the key of its dictionary entry counts), and description for people.
  const OdString& name() const { return name_; }
  const OdString& getDescription() const { return description_; }
  void setDescription(const OdString& value);

  // Flags (group 70): filled between the outer lines, mitres drawn at vertices, kinds of caps at both ends.
  bool filled() const { return (flags_ & 1) != 0; }
  bool showsMiters() const { return (flags_ & 2) != 0; }
  bool startSquareCap() const { return (flags_ & 16) != 0; }
  bool startRoundCap() const { return (flags_ & 64) != 0; }
  bool endSquareCap() const { return (flags_ & 256) != 0; }
  bool endRoundCap() const { return (flags_ & 1024) != 0; }
  // Colour of the filling, angles of the caps against the multiline in radians, and the parallel lines.
  OdCmColor fillColor() const { return {fillColor_, fillTrueColor_}; }
  double startAngle() const { return startAngle_; }
  double endAngle() const { return endAngle_; }
  const std::vector<Element>& elements() const { return elements_; }
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void visitReferences(drawing::ConstReferenceVisitor& visitor) const override;

private:
  static bool readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);

  OdString name_, description_;
  std::int16_t flags_ = 0, fillColor_ = 256;
  std::int32_t fillTrueColor_ = OdCmColor::kNoTrueColor;
  double startAngle_ = 1.5707963267948966, endAngle_ = 1.5707963267948966;
  std::vector<Element> elements_;
};
using OdDbMlineStylePtr = OdSmartPtr<OdDbMlineStyle>;

// Material of surfaces. Reflection and textures are preserved as groups of the file.
class MVDRAWING_API OdDbMaterial : public OdDbObject {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbMaterial);
  OdDbMaterial() = default;
  // Name as stored in the material (the key of its dictionary entry counts), and description for people.
  const OdString& name() const { return name_; }
  const OdString& getDescription() const { return description_; }
  void setDescription(const OdString& value);

private:
  OdString name_, description_;
};
using OdDbMaterialPtr = OdSmartPtr<OdDbMaterial>;
