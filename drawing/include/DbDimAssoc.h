// Associations of dimensions with the geometry that they measure.
#pragma once

#include "DbObject.h"

// An association: entry "ACAD_DIMASSOC" of the extension dictionary of its dimension. It has up to four points, each
// with the objects that the point is on; their groups are stored in file order.
class MVDRAWING_API OdDbDimAssoc : public OdDbObject {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbDimAssoc);
  OdDbDimAssoc() = default;

  // Values as in files: dimension; bits 1, 2, 4, 8 for the points that are associated; whether the dimension is in
  // paper space and the geometry in model space; type of rotated dimensions.
  OdDbObjectId dimObjId() const { return dimension_; }
  void setDimObjId(OdDbObjectId dimension);
  std::int32_t associatedPoints() const { return points_; }
  void setAssociatedPoints(std::int32_t bits);
  bool isTransSpace() const { return transSpace_; }
  std::int16_t rotatedType() const { return rotatedType_; }

  // Objects that the points are on, without duplicates, in file order. For a point inside block references these are
  // included. The second form replaces `ids` and always returns eOk.
  OdDbObjectIdArray getDimAssocGeomIds() const;
  OdResult getDimAssocGeomIds(OdDbObjectIdArray& ids) const;
  // Adds a point on an object, in world coordinates; snap types are those of object snaps (1 end, 3 centre ...).
  // Returns eOutOfRange for a fifth point. Does not change associatedPoints().
  OdResult addPoint(std::int16_t snapType, OdDbObjectId geometry, const OdGePoint3d& point = OdGePoint3d());

  // Makes this the association of a dimension in place of a previous one, and returns 0 and its id. If it is resident
  // and belongs to another dimension, a copy is used. An active association becomes a persistent reactor of the
  // dimension and of its geometry. Any other value is the OdResult of an object that does not open for write or belongs
  // to another drawing (eWrongDatabase); nothing is changed then.
  int post(OdDbObjectId dimension, OdDbObjectId& newAssociation, bool isActive = true);

  // The association of a dimension; null if it has none.
  static OdDbObjectId associationOf(OdDbObjectId dimension);

  // -- SDK internals. --
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void visitReferences(drawing::ConstReferenceVisitor& visitor) const override;
  // Erases a clone that lost geometry, as it would associate the dimension with nothing.
  void afterClone(const OdDbObject& source, OdDbIdMapping& mapping) override;

private:
  static bool readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);

  OdDbObjectId dimension_;
  drawing::GroupList pointGroups_; // all groups from the first point on
  std::int32_t points_ = 0;
  std::int16_t rotatedType_ = 0;
  bool transSpace_ = false;
};
using OdDbDimAssocPtr = OdSmartPtr<OdDbDimAssoc>;
