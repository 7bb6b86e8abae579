// Associations: what ties a dimension to the geometry that it measures.
#pragma once

#include "DbObject.h"

// Lives in the extension dictionary of its dimension under "ACAD_DIMASSOC". It holds up to four points, each by the
// objects on which the point lies; those groups are kept in file order.
class MVDRAWING_API OdDbDimAssoc : public OdDbObject {
public:
  ODDB_DECLARE_MEMBERS(OdDbDimAssoc);
  OdDbDimAssoc() = default;

  OdDbObjectId dimObjId() const { return dimension_; }
  void setDimObjId(OdDbObjectId dimension);
  // Which of the four points are tied: bits 1, 2, 4, 8.
  std::int32_t associatedPoints() const { return points_; }
  void setAssociatedPoints(std::int32_t bits);
  bool isTransSpace() const { return transSpace_; } // ties paper space to model space
  std::int16_t rotatedType() const { return rotatedType_; }

  // The objects that the points lie on: each once, in file order. The paths to a point inside block references name
  // the references too.
  OdDbObjectIdArray getDimAssocGeomIds() const;
  OdResult getDimAssocGeomIds(OdDbObjectIdArray& ids) const;
  // Ties one more point to an object; snap types are those of object snaps (1 end, 3 centre ...). At most four:
  // eOutOfRange beyond.
  OdResult addPoint(std::int16_t snapType, OdDbObjectId geometry, const OdGePoint3d& point = OdGePoint3d());

  // Makes the association live with that dimension and answers 0 and its id there. One that is resident elsewhere
  // stays, and a copy is made. An active association becomes a persistent reactor of the dimension and of its
  // geometry; an older association of the dimension gives way. Any other answer is the reason (an object that does
  // not open for write, another drawing), and then nothing has changed.
  int post(OdDbObjectId dimension, OdDbObjectId& newAssociation, bool isActive = true);

  // The association of a dimension; null when it has none.
  static OdDbObjectId associationOf(OdDbObjectId dimension);

  // -- For the SDK's own machinery. --
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  // One whose geometry did not come along to another drawing ties the dimension to nothing, and goes.
  void afterClone(const OdDbObject& source, OdDbIdMapping& mapping) override;

private:
  static bool readGroup(OdDbObject& object, const drawing::Pair& pair, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);

  OdDbObjectId dimension_;
  drawing::GroupList pointGroups_; // from the first point on
  std::int32_t points_ = 0;
  std::int16_t rotatedType_ = 0;
  bool transSpace_ = false;
};
using OdDbDimAssocPtr = OdSmartPtr<OdDbDimAssoc>;
