// Styles that live in dictionaries of the drawing, under their names there.
#pragma once

#include "DbEntity.h"

#include <vector>

// What they share whose section is kept as files hold it.
class MVDRAWING_API OdDbKeptStyle : public OdDbObject {
public:
  ODRX_DECLARE_MEMBERS(OdDbKeptStyle);
  OdString getName() const; // in its dictionary; empty when it is in none
  const drawing::GroupList& groups() const { return groups_; }
  void visitReferences(drawing::ReferenceVisitor& visitor) override;

protected:
  OdDbKeptStyle() = default;
  void putReal(int code, double value);
  void putReference(int code, OdDbObjectId value);

  drawing::GroupList groups_; // all of the section
};

// Of leaders with branches. Lengths are those of a scale of 1.
class MVDRAWING_API OdDbMLeaderStyle : public OdDbKeptStyle {
public:
  ODDB_DECLARE_MEMBERS(OdDbMLeaderStyle);
  OdDbMLeaderStyle() = default;
  OdString getDescription() const;
  std::int16_t contentType() const; // as OdDbMLeader::ContentType
  double scale() const;
  void setScale(double value);
  double textHeight() const;
  void setTextHeight(double value);
  double arrowSize() const;
  void setArrowSize(double value);
  double landingGap() const;
  double doglegLength() const;
  OdDbObjectId textStyleId() const; // null when it has none
  void setTextStyleId(OdDbObjectId value);
  OdDbObjectId leaderLineTypeId() const;
  OdDbObjectId arrowSymbolId() const; // a block; null: the usual arrow
  OdDbObjectId blockId() const;       // of block contents
  OdString defaultMText() const;
};
using OdDbMLeaderStylePtr = OdSmartPtr<OdDbMLeaderStyle>;

// Of tables.
class MVDRAWING_API OdDbTableStyle : public OdDbKeptStyle {
public:
  ODDB_DECLARE_MEMBERS(OdDbTableStyle);
  OdDbTableStyle() = default;
  enum RowType : unsigned { kDataRow, kTitleRow, kHeaderRow }; // in the order of files
  OdString getDescription() const;
  bool isFlowUp() const;
  double horzCellMargin() const;
  double vertCellMargin() const;
  bool isTitleSuppressed() const;
  bool isHeaderSuppressed() const;
  double textHeight(RowType row) const; // 0 when the style tells none
  OdString textStyleName(RowType row) const;
};
using OdDbTableStylePtr = OdSmartPtr<OdDbTableStyle>;

// How solids and surfaces are shown.
class MVDRAWING_API OdDbVisualStyle : public OdDbKeptStyle {
public:
  ODDB_DECLARE_MEMBERS(OdDbVisualStyle);
  OdDbVisualStyle() = default;
  OdString getDescription() const;
  std::int16_t type() const;
  bool isInternalUseOnly() const;
};
using OdDbVisualStylePtr = OdSmartPtr<OdDbVisualStyle>;

// Of multiple lines: their strokes, from the one farthest to the left on.
class MVDRAWING_API OdDbMlineStyle : public OdDbObject {
public:
  ODDB_DECLARE_MEMBERS(OdDbMlineStyle);
  OdDbMlineStyle() = default;
  struct Element {
    double offset = 0; // to the left of the line
    OdCmColor color;
    OdDbObjectId linetype; // null: by layer
  };
  const OdString& name() const { return name_; }
  const OdString& getDescription() const { return description_; }
  void setDescription(const OdString& value);
  bool filled() const { return (flags_ & 1) != 0; }
  bool showsMiters() const { return (flags_ & 2) != 0; }
  bool startSquareCap() const { return (flags_ & 16) != 0; }
  bool startRoundCap() const { return (flags_ & 64) != 0; }
  bool endSquareCap() const { return (flags_ & 256) != 0; }
  bool endRoundCap() const { return (flags_ & 1024) != 0; }
  OdCmColor fillColor() const { return {fillColor_, fillTrueColor_}; }
  double startAngle() const { return startAngle_; } // of the caps, radians
  double endAngle() const { return endAngle_; }
  const std::vector<Element>& elements() const { return elements_; }
  void visitReferences(drawing::ReferenceVisitor& visitor) override;

private:
  static bool readGroup(OdDbObject& object, const drawing::Pair& pair, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);

  OdString name_, description_;
  std::int16_t flags_ = 0, fillColor_ = 256;
  std::int32_t fillTrueColor_ = OdCmColor::kNoTrueColor;
  double startAngle_ = 1.5707963267948966, endAngle_ = 1.5707963267948966;
  std::vector<Element> elements_;
};
using OdDbMlineStylePtr = OdSmartPtr<OdDbMlineStyle>;

// Of surfaces. How it reflects, and its pictures, are carried.
class MVDRAWING_API OdDbMaterial : public OdDbObject {
public:
  ODDB_DECLARE_MEMBERS(OdDbMaterial);
  OdDbMaterial() = default;
  const OdString& name() const { return name_; }
  const OdString& getDescription() const { return description_; }
  void setDescription(const OdString& value);

private:
  OdString name_, description_;
};
using OdDbMaterialPtr = OdSmartPtr<OdDbMaterial>;
