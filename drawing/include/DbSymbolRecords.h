// Records of the symbol tables except blocks (DbBlockTable.h).
//
// Setters throw OdError(eNotOpenForWrite) for a resident record that is not open for write. Unless stated otherwise
// they store the value unchecked.
#pragma once

#include "DbEntity.h"
#include "DbSymbolTable.h"
#include "Ge/GeMatrix3d.h"

// A layer: default properties of the entities on it. Entities on a locked layer do not open for write.
class MVDRAWING_API OdDbLayerTableRecord : public OdDbSymbolTableRecord {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbLayerTableRecord);
  OdDbLayerTableRecord() = default;

  // State: a layer that is off or frozen is not drawn. Switching a layer off keeps its colour; files store that as a
  // negative colour index (group 62), frozen and locked as flags (group 70).
  bool isFrozen() const { return (flags_ & kFrozen) != 0; }
  void setIsFrozen(bool frozen) { setFlag(kFrozen, frozen); }
  bool isLocked() const { return (flags_ & kLocked) != 0; }
  void setIsLocked(bool locked) { setFlag(kLocked, locked); }
  bool isOff() const { return color_ < 0; }
  void setIsOff(bool off);
  bool isPlottable() const { return plottable_; }
  void setIsPlottable(bool plottable);

  // Colour of entities whose colour is by layer. The index is 1 to 255; setting it does not switch the layer on or off.
  OdCmColor color() const;
  void setColor(const OdCmColor& color);
  // Linetype of entities whose linetype is by layer; null until the record is in a table, which sets "Continuous".
  OdDbObjectId linetypeObjectId() const { return linetype_; }
  void setLinetypeObjectId(OdDbObjectId linetype);
  // Lineweight in hundredths of a millimetre (0 to 211), or -3 for the drawing's default, which a new layer has.
  std::int16_t lineWeight() const { return lineWeight_; }
  void setLineWeight(std::int16_t weight);

  // -- SDK internals. --
  void joinedTable() override; // sets the linetype "Continuous" where there is none

  // Bits of flags().
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

// A linetype. The dashes are preserved as groups of the file and are not accessible.
class MVDRAWING_API OdDbLinetypeTableRecord : public OdDbSymbolTableRecord {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbLinetypeTableRecord);
  OdDbLinetypeTableRecord() = default;

  // Description, often the pattern drawn in characters.
  const OdString& comments() const { return comments_; }
  void setComments(const OdString& text);
  // Length of one repetition in drawing units at linetype scale 1, and the number of dashes, gaps and dots in it; both
  // are 0 for a continuous line.
  double patternLength() const { return patternLength_; }
  std::int16_t numDashes() const { return numDashes_; }

private:
  OdString comments_;
  double patternLength_ = 0;
  std::int16_t alignment_ = 65;
  std::int16_t numDashes_ = 0;
};
using OdDbLinetypeTableRecordPtr = OdSmartPtr<OdDbLinetypeTableRecord>;

// A text style, or a shape file (SHX) that is loaded for SHAPE entities and complex linetypes.
class MVDRAWING_API OdDbTextStyleTableRecord : public OdDbSymbolTableRecord {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbTextStyleTableRecord);
  OdDbTextStyleTableRecord() = default;

  // Kind of the record, from its flags. The record of a shape file has an empty name and is found by its file.
  bool isShapeFile() const { return (flags_ & 1) != 0; }
  bool isVertical() const { return (flags_ & 4) != 0; }

  // Font files as the drawing names them, with or without a folder; the big font adds characters of East Asian scripts
  // and is empty when there is none.
  const OdString& fileName() const { return fontFile_; }
  void setFileName(const OdString& name);
  const OdString& bigFontFileName() const { return bigFontFile_; }

  // Fixed text height in drawing units; 0: each text has its own.
  double textSize() const { return height_; }
  void setTextSize(double height);
  // Width factor of characters, 1 by default.
  double xScale() const { return widthFactor_; }
  void setXScale(double factor);
  // Slant of characters to the right in radians, and the height that was used last with the style in drawing units.
  double obliquingAngle() const { return oblique_; }
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

// A dimension style. The variables that blocks and text depend on are accessible; all others are preserved as groups of
// the file.
class MVDRAWING_API OdDbDimStyleTableRecord : public OdDbSymbolTableRecord {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbDimStyleTableRecord);
  OdDbDimStyleTableRecord() = default;

  // Variables of the same names (DIMSCALE, DIMASZ, DIMTXT). Sizes are drawing units before DIMSCALE is applied; 0.18 in
  // files that do not state them. DIMSCALE 0 means that the scale comes from the viewport.
  double dimscale() const { return scale_; }
  double dimasz() const { return arrowSize_; }
  double dimtxt() const { return textHeight_; }
  // Text style, and the arrowhead blocks of dimensions and leaders; null: the standard style, the closed filled arrow.
  OdDbObjectId dimtxsty() const { return textStyle_; }
  OdDbObjectId dimblk() const { return arrow_; }
  OdDbObjectId dimldrblk() const { return leaderArrow_; }

private:
  double scale_ = 1;
  double arrowSize_ = 0.18; // the value of files that do not state it
  double textHeight_ = 0.18;
  OdDbObjectId textStyle_;
  OdDbObjectId leaderArrow_;
  OdDbObjectId arrow_;
  OdDbObjectId firstArrow_;
  OdDbObjectId secondArrow_;
};
using OdDbDimStyleTableRecordPtr = OdSmartPtr<OdDbDimStyleTableRecord>;

// A registered application: a name under which objects have extended data.
class MVDRAWING_API OdDbRegAppTableRecord : public OdDbSymbolTableRecord {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbRegAppTableRecord);
  OdDbRegAppTableRecord() = default;
};

// A named user coordinate system.
class MVDRAWING_API OdDbUCSTableRecord : public OdDbSymbolTableRecord {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbUCSTableRecord);
  OdDbUCSTableRecord() = default;

  // Origin and axes in world coordinates. Callers pass unit axes that are perpendicular; this is not checked.
  OdGePoint3d origin() const { return origin_; }
  OdGeVector3d xAxis() const { return xAxis_; }
  OdGeVector3d yAxis() const { return yAxis_; }
  void set(const OdGePoint3d& origin, const OdGeVector3d& xAxis, const OdGeVector3d& yAxis);

private:
  OdGePoint3d origin_;
  OdGeVector3d xAxis_{1, 0, 0};
  OdGeVector3d yAxis_{0, 1, 0};
};

// A named view. Its size and centre are read and written; its other properties are preserved as groups of the file.
class MVDRAWING_API OdDbViewTableRecord : public OdDbSymbolTableRecord {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbViewTableRecord);
  OdDbViewTableRecord() = default;

private:
  double height_ = 1;
  double width_ = 1;
  OdGePoint2d center_;
};

// A viewport of a tiled model space configuration; the viewports of the active configuration share the name "*Active".
class MVDRAWING_API OdDbViewportTableRecord : public OdDbSymbolTableRecord {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbViewportTableRecord);
  OdDbViewportTableRecord() = default;

private:
  OdGePoint2d lowerLeft_;
  OdGePoint2d upperRight_{1, 1};
  OdGePoint2d center_;
  double height_ = 1;
  double aspect_ = 1;
};
