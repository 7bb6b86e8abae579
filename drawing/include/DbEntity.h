// Base class of entities: everything that is drawn.
#pragma once

#include "DbObject.h"
#include "Ge/GeExtents3d.h"
#include "Ge/GeMatrix3d.h"
#include "drawing/detail/not_copied.h"

class OdDbEntity;
using OdDbEntityPtr = OdSmartPtr<OdDbEntity>;

// Colour: an index (1 to 255, 0 by block, 256 by layer), and a true colour that takes precedence if there is one.
struct OdCmColor {
  static constexpr std::int16_t kByBlock = 0, kByLayer = 256;
  static constexpr std::int32_t kNoTrueColor = -1;
  std::int16_t index = kByLayer;
  std::int32_t trueColor = kNoTrueColor; // 0xRRGGBB
  friend bool operator==(const OdCmColor&, const OdCmColor&) = default;
};

// An entity: an object of a block that is drawn. Entities differ in the matrices that they accept and in whether they
// have extents; their headers state both.
class MVDRAWING_API OdDbEntity : public OdDbObject {
public:
  MVDRAWING_DECLARE_CLASS(OdDbEntity);
  static const drawing::Description& ownDescription(); // the groups that all entities have
  const drawing::Description& description() const override;

  // Layer, by id and by name; the name is "0" for an entity without a layer. Setting by id does not check the id.
  // Setting by name returns eNoDatabase for a free entity and eKeyNotFound if the drawing has no such layer; case does
  // not matter.
  OdDbObjectId layerId() const { return layer_; }
  OdString layer() const;
  void setLayer(OdDbObjectId layer);
  OdResult setLayer(const OdString& name);
  // Linetype; null: by layer. Setting does not check the id.
  OdDbObjectId linetypeId() const { return linetype_; }
  void setLinetype(OdDbObjectId linetype);
  // Colour. Setting an index removes a true colour. Setting does not check the values.
  OdCmColor color() const { return {color_, trueColor_}; }
  void setColor(const OdCmColor& color);
  std::int16_t colorIndex() const { return color_; }
  void setColorIndex(std::int16_t index);
  // Lineweight in hundredths of a millimetre (0 to 211), or -1 by layer, -2 by block, -3 default. Setting does not
  // check the value.
  std::int16_t lineWeight() const { return lineWeight_; }
  void setLineWeight(std::int16_t weight);
  // Scale of the linetype, greater than 0. Setting returns eInvalidInput for 0, negative and non-finite values.
  double linetypeScale() const { return linetypeScale_; }
  OdResult setLinetypeScale(double scale);
  // Transparency as in files (group 440): 0 by layer, 0x01000000 by block, else 0x02000000 plus the opacity (0 to 255).
  std::int32_t transparency() const { return transparency_; }
  // Whether the entity is hidden regardless of its layer.
  bool isInvisible() const { return invisible_ != 0; }
  void setInvisible(bool invisible);
  // Copies layer, linetype, linetype scale, colour, transparency, lineweight and visibility. The other entity should be
  // of the same drawing: ids are copied as they are.
  void setPropertiesFrom(const OdDbEntity& other);
  // Sets the current layer, linetype, linetype scale, colour and lineweight of the drawing (CLAYER, CELTYPE, CELTSCALE,
  // CECOLOR, CELWEIGHT). Null has no effect.
  void setDatabaseDefaults(OdDbDatabase* database);

  // The block that the entity is in; null for a free entity. For attributes and vertices it is their owner.
  OdDbObjectId blockId() const { return ownerId(); }

  // Applies a matrix in the coordinates of the block that contains the entity (world coordinates for model space).
  // Returns eOk, or eCannotTransform (209) if the matrix cannot be inverted or this kind of entity does not accept it;
  // nothing is changed then. Coordinates, distances and directions in extended data (groups 1011 to 1013, 1041, 1042)
  // are transformed as well. A cached image of the entity for other programs (proxy graphics) is removed: it would show
  // the old position.
  //
  // A resident entity may become another kind (a stretched circle becomes an ellipse). The id then refers to a new
  // object with the same handle, owner, position in the block, general properties, extended data, extension dictionary
  // and reactors. Pointers from before keep the old entity, which is free from then on; open the id again to continue.
  // A free entity cannot become another kind: it returns eCannotTransform.
  OdResult transformBy(const OdGeMatrix3d& matrix);
  // Adds the extents in the coordinates of its block to `extents`. Returns eOk, or the reason why it has none
  // (eNotApplicable for kinds without extents).
  virtual OdResult getGeomExtents(OdGeExtents3d& extents) const;
  // The normal of the plane that the entity's own coordinates lie in; the z axis for kinds that are not planar.
  virtual OdGeVector3d planeNormal() const { return OdGeVector3d::kZAxis; }

  // Highlighting is a state of the display: it is neither saved, copied nor undone, and does not require write access.
  void highlight(bool on) const { highlight_.on = on; }
  bool isHighlighted() const { return highlight_.on; }

  // Adds the association of a dimension to the persistent reactors of the entity.
  virtual void attachAssociation(OdDbObjectId association);

  bool isOnLockedLayer() const override;

protected:
  OdDbEntity() = default;
  // Applies an invertible matrix, or returns the reason and changes nothing. Called with the entity open for write.
  virtual OdResult applyTransform(const OdGeMatrix3d& matrix);
  // A free entity of another kind with the transformed geometry, for a matrix that applyTransform refuses; null if
  // there is none. The caller copies the general properties and extended data.
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
  struct Highlight {
    bool on = false;
  };

  OdResult becomeAnother(const OdGeMatrix3d& matrix);

  mutable drawing::NotCopied<Highlight> highlight_;
};
