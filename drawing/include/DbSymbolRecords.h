// Records of the symbol tables, blocks excepted (DbBlockTable.h).
#pragma once

#include "DbEntity.h"
#include "DbSymbolTable.h"
#include "Ge/GeMatrix3d.h"

class MVDRAWING_API OdDbLayerTableRecord : public OdDbSymbolTableRecord {
public:
  ODDB_DECLARE_MEMBERS(OdDbLayerTableRecord);
  OdDbLayerTableRecord() = default;

  bool isFrozen() const { return (flags_ & kFrozen) != 0; }
  void setIsFrozen(bool frozen) { setFlag(kFrozen, frozen); }
  bool isLocked() const { return (flags_ & kLocked) != 0; }
  void setIsLocked(bool locked) { setFlag(kLocked, locked); }
  bool isOff() const { return color_ < 0; }
  void setIsOff(bool off);
  bool isPlottable() const { return plottable_; }
  void setIsPlottable(bool plottable);
  OdCmColor color() const;
  void setColor(const OdCmColor& color);
  OdDbObjectId linetypeObjectId() const { return linetype_; }
  void setLinetypeObjectId(OdDbObjectId linetype);
  std::int16_t lineWeight() const { return lineWeight_; }
  void setLineWeight(std::int16_t weight);

  void joinedTable() override; // a layer without a line type gets the continuous one
  static constexpr std::int16_t kFrozen = 1, kFrozenInNew = 2, kLocked = 4;

private:
  OdDbObjectId linetype_;
  OdDbObjectId plotStyle_;
  OdDbObjectId material_;
  OdDbObjectId visualStyle_;
  std::int32_t trueColor_ = OdCmColor::kNoTrueColor;
  std::int16_t color_ = 7; // negative: the layer is off
  std::int16_t lineWeight_ = -3;
  bool plottable_ = true;
};
using OdDbLayerTableRecordPtr = OdSmartPtr<OdDbLayerTableRecord>;

// A line type. Its dashes are carried as the file holds them.
class MVDRAWING_API OdDbLinetypeTableRecord : public OdDbSymbolTableRecord {
public:
  ODDB_DECLARE_MEMBERS(OdDbLinetypeTableRecord);
  OdDbLinetypeTableRecord() = default;
  const OdString& comments() const { return comments_; }
  void setComments(const OdString& text);
  double patternLength() const { return patternLength_; }
  std::int16_t numDashes() const { return numDashes_; }

private:
  OdString comments_;
  double patternLength_ = 0;
  std::int16_t alignment_ = 65;
  std::int16_t numDashes_ = 0;
};
using OdDbLinetypeTableRecordPtr = OdSmartPtr<OdDbLinetypeTableRecord>;

class MVDRAWING_API OdDbTextStyleTableRecord : public OdDbSymbolTableRecord {
public:
  ODDB_DECLARE_MEMBERS(OdDbTextStyleTableRecord);
  OdDbTextStyleTableRecord() = default;
  bool isShapeFile() const { return (flags_ & 1) != 0; } // a file of shapes, without a name of its own
  bool isVertical() const { return (flags_ & 4) != 0; }
  const OdString& fileName() const { return fontFile_; }
  void setFileName(const OdString& name);
  const OdString& bigFontFileName() const { return bigFontFile_; }
  double textSize() const { return height_; } // 0: asked for with each text
  void setTextSize(double height);
  double xScale() const { return widthFactor_; }
  void setXScale(double factor);
  double obliquingAngle() const { return oblique_; } // radians
  double priorSize() const { return lastHeight_; }

private:
  OdString fontFile_;
  OdString bigFontFile_;
  double height_ = 0;
  double widthFactor_ = 1;
  double oblique_ = 0;
  double lastHeight_ = 2.5;
  std::int16_t generation_ = 0;
};
using OdDbTextStyleTableRecordPtr = OdSmartPtr<OdDbTextStyleTableRecord>;

// A dimension style. The variables that blocks and text depend on are typed, the others carried.
class MVDRAWING_API OdDbDimStyleTableRecord : public OdDbSymbolTableRecord {
public:
  ODDB_DECLARE_MEMBERS(OdDbDimStyleTableRecord);
  OdDbDimStyleTableRecord() = default;
  double dimscale() const { return scale_; }
  double dimasz() const { return arrowSize_; }
  double dimtxt() const { return textHeight_; }
  OdDbObjectId dimtxsty() const { return textStyle_; }
  OdDbObjectId dimblk() const { return arrow_; } // null: the closed filled arrow
  OdDbObjectId dimldrblk() const { return leaderArrow_; }

private:
  double scale_ = 1;
  double arrowSize_ = 0.18; // the value of files that do not say
  double textHeight_ = 0.18;
  OdDbObjectId textStyle_;
  OdDbObjectId leaderArrow_;
  OdDbObjectId arrow_;
  OdDbObjectId firstArrow_;
  OdDbObjectId secondArrow_;
};
using OdDbDimStyleTableRecordPtr = OdSmartPtr<OdDbDimStyleTableRecord>;

class MVDRAWING_API OdDbRegAppTableRecord : public OdDbSymbolTableRecord {
public:
  ODDB_DECLARE_MEMBERS(OdDbRegAppTableRecord);
  OdDbRegAppTableRecord() = default;
};

class MVDRAWING_API OdDbUCSTableRecord : public OdDbSymbolTableRecord {
public:
  ODDB_DECLARE_MEMBERS(OdDbUCSTableRecord);
  OdDbUCSTableRecord() = default;
  OdGePoint3d origin() const { return origin_; }
  OdGeVector3d xAxis() const { return xAxis_; }
  OdGeVector3d yAxis() const { return yAxis_; }
  void set(const OdGePoint3d& origin, const OdGeVector3d& xAxis, const OdGeVector3d& yAxis);

private:
  OdGePoint3d origin_;
  OdGeVector3d xAxis_{1, 0, 0};
  OdGeVector3d yAxis_{0, 1, 0};
};

class MVDRAWING_API OdDbViewTableRecord : public OdDbSymbolTableRecord {
public:
  ODDB_DECLARE_MEMBERS(OdDbViewTableRecord);
  OdDbViewTableRecord() = default;

private:
  double height_ = 1;
  double width_ = 1;
  OdGePoint2d center_;
};

// A tiled viewport configuration; several records share the name "*Active".
class MVDRAWING_API OdDbViewportTableRecord : public OdDbSymbolTableRecord {
public:
  ODDB_DECLARE_MEMBERS(OdDbViewportTableRecord);
  OdDbViewportTableRecord() = default;

private:
  OdGePoint2d lowerLeft_;
  OdGePoint2d upperRight_{1, 1};
  OdGePoint2d center_;
  double height_ = 1;
  double aspect_ = 1;
};
