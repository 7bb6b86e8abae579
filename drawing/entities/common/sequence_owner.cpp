#include "drawing/detail/sequence_owner.h"

#include "DbDatabase.h"
#include "drawing/model/object_store.h"
#include "drawing/model/visit_references.h"

#include <algorithm>
#include <memory>

using drawing::getIf;

MVDRAWING_DEFINE_OBJECT(OdDbSequenceEnd, OdDbEntity, "SEQEND");

const drawing::Description& OdDbSequenceEnd::ownDescription() {
  return OdDbEntity::ownDescription();
}

OdDbSequenceOwner::~OdDbSequenceOwner() = default;

void OdDbSequenceOwner::attachSubEntity(OdDbObjectId id, bool isEnd) {
  if (isEnd)
    end_ = id;
  else
    subEntities_.push_back(id);
}

OdDbObjectId OdDbSequenceOwner::appendSubEntity(OdDbEntity& owner, OdDbEntity* part) {
  if (part == nullptr)
    throw OdError(eNullObjectPtr);
  owner.assertWriteEnabled();
  if (!owner.isResident())
    throw OdError(eNotInDatabase);
  const OdDbObjectId id = part->isResident() ? part->objectId() : owner.database()->addObject(part, owner.objectId());
  subEntities_.push_back(id);
  ensureEnd(owner);
  return id;
}

void OdDbSequenceOwner::ensureEnd(OdDbEntity& owner) {
  if (getIf<OdDbSequenceEnd>(end_) != nullptr)
    return;
  owner.assertWriteEnabled();
  OdSmartPtr<OdDbSequenceEnd> end = OdDbSequenceEnd::createObject();
  end->setLayer(owner.layerId());
  end_ = owner.database()->addObject(end.get(), owner.objectId());
}

OdResult OdDbSequenceOwner::transformSubEntities(const OdGeMatrix3d& matrix) const {
  // Every kind takes a matrix that keeps shapes; only others can fail half-way and need the way back.
  const bool canFail = !matrix.isUniformlyScaled();
  std::vector<std::pair<OdDbEntity*, std::unique_ptr<OdDbObject>>> moved;
  for (OdDbObjectId id : subEntities_) {
    auto* part = getIf<OdDbEntity>(id);
    if (part == nullptr || part->isErased())
      continue;
    const drawing::WriteScope scope(*part);
    if (canFail)
      moved.emplace_back(part, part->makeCopy());
    if (const OdResult result = part->transformBy(matrix); result != eOk) {
      for (auto& [entity, before] : moved)
        entity->assignState(*before);
      return result;
    }
  }
  return eOk;
}

void OdDbSequenceOwner::listSubEntities(std::vector<OdDbObjectId>& ids) const {
  ids.insert(ids.end(), subEntities_.begin(), subEntities_.end());
  if (!end_.isNull())
    ids.push_back(end_);
}

void OdDbSequenceOwner::visitSubEntities(drawing::ReferenceVisitor& visitor) {
  drawing::visitIds(subEntities_, OdDb::kHardOwnershipRef, visitor);
  visitor.visit(end_, OdDb::kHardOwnershipRef);
}

void OdDbSequenceOwner::visitSubEntities(drawing::ConstReferenceVisitor& visitor) const {
  drawing::visitIds(subEntities_, OdDb::kHardOwnershipRef, visitor);
  visitor.visit(end_, OdDb::kHardOwnershipRef);
}

void OdDbSequenceOwner::dropLostSubEntities() {
  subEntities_.erase(
      std::remove_if(subEntities_.begin(), subEntities_.end(), [](OdDbObjectId id) { return id.isNull(); }),
      subEntities_.end());
}
