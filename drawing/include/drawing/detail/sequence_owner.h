// Entities that own a sequence of others: the attributes of a block reference, the vertices of a polyline.
#pragma once

#include "DbEntity.h"

#include <vector>

// Mixin of entities that own a sequence. The parts are transformed, cloned and erased with their owner.
class MVDRAWING_API OdDbSequenceOwner {
public:
  virtual ~OdDbSequenceOwner();
  // Parts in file order, erased ones included, and the SEQEND entity, null if there is none.
  const std::vector<OdDbObjectId>& subEntities() const { return subEntities_; }
  OdDbObjectId sequenceEndId() const { return end_; }
  // For readers: lists a resident part, or sets the SEQEND entity.
  void attachSubEntity(OdDbObjectId id, bool isEnd);
  // Creates the SEQEND entity on the layer of the owner if there is none. `owner` is this object.
  void ensureEnd(OdDbEntity& owner);

protected:
  // Lists a part, which becomes resident if it is free, and creates the SEQEND entity if there is none. Throws OdError:
  // eNullObjectPtr for null, eNotOpenForWrite, eNotInDatabase for a free owner.
  OdDbObjectId appendSubEntity(OdDbEntity& owner, OdDbEntity* part);
  // Transforms all parts that are not erased, or none of them and returns the reason. Locked layers of parts do not
  // matter.
  OdResult transformSubEntities(const OdGeMatrix3d& matrix) const;
  // The parts and the SEQEND entity for ownedObjects and visitReferences; dropLostSubEntities removes null ids after
  // cloning.
  void listSubEntities(std::vector<OdDbObjectId>& ids) const;
  void visitSubEntities(drawing::ReferenceVisitor& visitor);
  void visitSubEntities(drawing::ConstReferenceVisitor& visitor) const;
  void dropLostSubEntities();

private:
  std::vector<OdDbObjectId> subEntities_;
  OdDbObjectId end_;
};

// The SEQEND entity after a sequence of attributes or vertices.
class MVDRAWING_API OdDbSequenceEnd : public OdDbEntity {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbSequenceEnd);
  OdDbSequenceEnd() = default;

protected:
  OdResult applyTransform(const OdGeMatrix3d&) override { return eOk; }
};
