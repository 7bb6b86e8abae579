// The root of everything that is drawn.
#pragma once

#include "DbObject.h"
#include "Ge/GeExtents3d.h"
#include "Ge/GeMatrix3d.h"

class OdDbEntity;
using OdDbEntityPtr = OdSmartPtr<OdDbEntity>;

// Colour: an index (1 to 255, 0 by block, 256 by layer) or a true colour beside it.
struct OdCmColor {
  static constexpr std::int16_t kByBlock = 0, kByLayer = 256;
  static constexpr std::int32_t kNoTrueColor = -1;
  std::int16_t index = kByLayer;
  std::int32_t trueColor = kNoTrueColor; // 0xRRGGBB
  friend bool operator==(const OdCmColor&, const OdCmColor&) = default;
};

class MVDRAWING_API OdDbEntity : public OdDbObject {
public:
  ODRX_DECLARE_MEMBERS(OdDbEntity);
  static const drawing::Description& ownDescription();
  const drawing::Description& description() const override;

  OdDbObjectId layerId() const { return layer_; }
  OdString layer() const; // the layer's name; "0" when it has none
  OdResult setLayer(OdDbObjectId layer);
  OdResult setLayer(const OdString& name);              // eKeyNotFound when the drawing has no such layer
  OdDbObjectId linetypeId() const { return linetype_; } // null: by layer
  OdResult setLinetype(OdDbObjectId linetype);
  OdCmColor color() const { return {color_, trueColor_}; }
  OdResult setColor(const OdCmColor& color);
  std::int16_t colorIndex() const { return color_; }
  OdResult setColorIndex(std::int16_t index);
  std::int16_t lineWeight() const {
    return lineWeight_;
  } // hundredths of a millimetre; -1 by layer, -2 by block, -3 default
  OdResult setLineWeight(std::int16_t weight);
  double linetypeScale() const { return linetypeScale_; }
  OdResult setLinetypeScale(double scale);
  // As files have it: 0 by layer, 0x01000000 by block, else 0x02000000 and the opacity (0 to 255).
  std::int32_t transparency() const { return transparency_; }
  bool isInvisible() const { return invisible_ != 0; }
  OdResult setInvisible(bool invisible);
  void setPropertiesFrom(const OdDbEntity& other);  // layer, linetype, colour, weight, scale, visibility
  void setDatabaseDefaults(OdDbDatabase* database); // current layer and the like from the header

  OdDbObjectId blockId() const { return ownerId(); } // the block that it is drawn in

  // Moves the entity; world coordinates. 0 on success; eCannotTransform (209) when this kind of entity cannot take
  // this matrix, and then nothing has changed. Extended data that moves with an entity moves too. A picture of the
  // entity that its program left in the file for others is dropped: it shows the old place.
  //
  // An entity of a drawing may become another kind by it (a circle that is stretched is an ellipse). Then another
  // object stands behind the id: with the same handle, owner, place in the block, layer and so on, extended data,
  // extension dictionary and reactors. The pointers that are held from before keep the entity as it was, free of the
  // drawing: what is done to it reaches nothing any more; whoever goes on opens the id again. A free entity cannot
  // become another kind; it answers eCannotTransform.
  OdResult transformBy(const OdGeMatrix3d& matrix);
  // eOk and the extents in the coordinates of its block, or the reason why it has none.
  virtual OdResult getGeomExtents(OdGeExtents3d& extents) const;
  // The normal of the plane that the entity's own coordinates lie in; the z axis for kinds that are not planar.
  virtual OdGeVector3d planeNormal() const { return OdGeVector3d::kZAxis; }

  // Highlighting is a state of the screen: it is neither saved, copied nor undone, and needs no opening for write.
  void highlight(bool on) const { highlight_.on = on; }
  bool isHighlighted() const { return highlight_.on; }

  // Attaches an association (of a dimension) to the entity: its persistent reactor from now on.
  virtual void attachAssociation(OdDbObjectId association);

  bool isOnLockedLayer() const override;

protected:
  OdDbEntity() = default;
  // Applies the matrix, or answers why not and changes nothing. Called with the entity open for write.
  virtual OdResult subTransformBy(const OdGeMatrix3d& matrix);
  // A free entity of another kind that is this one under a matrix that subTransformBy refuses; null when there is none.
  // Layer, extended data and the like are put in by the caller.
  virtual OdDbEntityPtr transformedAsAnother(const OdGeMatrix3d& matrix) const;

  OdDbObjectId layer_;
  OdDbObjectId linetype_;
  double linetypeScale_ = 1;
  std::int32_t trueColor_ = OdCmColor::kNoTrueColor;
  std::int32_t transparency_ = 0;
  std::int16_t color_ = OdCmColor::kByLayer;
  std::int16_t lineWeight_ = -1;
  std::int16_t invisible_ = 0;

private:
  // Of this one object: a clone is not highlighted, and undo leaves it as it is.
  struct Highlight {
    Highlight() = default;
    Highlight(const Highlight&) {}
    Highlight& operator=(const Highlight&) { return *this; }
    bool on = false;
  };

  OdResult becomeAnother(const OdGeMatrix3d& matrix);

  mutable Highlight highlight_;
};
