// Entities that stand before a sequence of others: the attributes of a reference, the vertices of a polyline.
#pragma once

#include "DbEntity.h"

#include <vector>

// What owners of sequences share beside being entities. Parts live, move and are erased with their owner.
class MVDRAWING_API OdDbSequenceOwner {
public:
  virtual ~OdDbSequenceOwner();
  const std::vector<OdDbObjectId>& subEntities() const { return parts_; } // in file order, erased ones included
  OdDbObjectId sequenceEndId() const { return end_; }                     // null when it has none
  // For readers: takes a resident part (or the end of the sequence) as its own.
  void adoptSubEntity(OdDbObjectId id, bool isEnd);
  // Makes the sequence's end when there is none. `owner` is this object.
  void ensureEnd(OdDbEntity& owner);

protected:
  // Makes the part resident when it is free, and the sequence's end when there is none. Owners that are not resident
  // throw OdError(eNotInDatabase).
  OdDbObjectId appendPart(OdDbEntity& owner, OdDbEntity* part);
  // All living parts move, or none of them: then the reason. Locked layers of the parts do not hold them back.
  OdResult transformParts(const OdGeMatrix3d& matrix) const;
  void listParts(std::vector<OdDbObjectId>& ids) const;
  void visitParts(drawing::ReferenceVisitor& visitor);
  void dropLostParts(); // those that cloning left behind

private:
  std::vector<OdDbObjectId> parts_;
  OdDbObjectId end_;
};

// The end of a sequence of attributes or vertices.
class MVDRAWING_API OdDbSequenceEnd : public OdDbEntity {
public:
  ODDB_DECLARE_MEMBERS(OdDbSequenceEnd);
  OdDbSequenceEnd() = default;

protected:
  OdResult subTransformBy(const OdGeMatrix3d&) override { return eOk; }
};
