// What a definition says of the entities in it: references, attributes, draw order, extents.
#include "DbBlockTable.h"

#include "DbAttribute.h"
#include "DbBlockReference.h"
#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbSortentsTable.h"
#include "drawing/blocks/block_graph.h"
#include "drawing/model/object_store.h"
#include "drawing/model/undo_log.h"

#include <algorithm>

using drawing::getIf;

namespace {

template <class Accept>
bool anyDefinition(const std::vector<OdDbObjectId>& members, Accept accept) {
  return std::any_of(members.begin(), members.end(), [&](OdDbObjectId id) {
    const auto* definition = getIf<OdDbAttributeDefinition>(id);
    return definition != nullptr && !definition->isErased() && accept(*definition);
  });
}

} // namespace

bool OdDbBlockTableRecord::hasAttributeDefinitions() const {
  return anyDefinition(members_.ids(), [](const OdDbAttributeDefinition&) { return true; });
}

std::int16_t OdDbBlockTableRecord::derivedFlags() const {
  std::int16_t flags =
      static_cast<std::int16_t>(flags_ & (kExternalReference | kOverlay | kDependent | kResolved | kReferenced));
  if (isAnonymous())
    flags |= kAnonymousBit;
  if (anyDefinition(members_.ids(), [](const OdDbAttributeDefinition& one) { return !one.isConstant(); }))
    flags |= kHasAttributes;
  return flags;
}

OdDbObjectId OdDbBlockTableRecord::appendEntity(OdDbEntity* entity) {
  assertWriteEnabled();
  if (!isResident())
    throw OdError(eNotInDatabase);
  if (const auto* reference = dynamic_cast<const OdDbBlockReference*>(entity); reference != nullptr) {
    const OdDbObjectId referenced = reference->blockTableRecord();
    if (referenced == objectId() || (wasReferenced() && drawing::reaches(referenced, objectId())))
      throw OdError(eSelfReference);
  }
  const OdDbObjectId id = entity->isResident() ? entity->objectId() : database()->addObject(entity, objectId());
  if (const auto* reference = dynamic_cast<const OdDbBlockReference*>(entity))
    reference->recordInDefinition();
  database()->undoLog().listGrows(*this, members_.size());
  members_.push(id);
  return id;
}

OdDbObjectId OdDbBlockTableRecord::getSortentsTableId() const {
  const auto* dictionary = getIf<OdDbDictionary>(extensionDictionary());
  return dictionary == nullptr ? OdDbObjectId() : dictionary->getAt(L"ACAD_SORTENTS");
}

std::vector<OdDbObjectId> OdDbBlockTableRecord::drawOrder() const {
  std::vector<OdDbObjectId> ids;
  for (OdDbObjectId id : members_.ids()) {
    if (!id.isErased())
      ids.push_back(id);
  }
  if (const auto* table = getIf<OdDbSortentsTable>(getSortentsTableId()); table != nullptr && !table->isErased())
    table->sort(ids);
  return ids;
}

OdDbObjectIdArray OdDbBlockTableRecord::getBlockReferenceIds(bool directOnly) const {
  return drawing::referencesTo(*this, directOnly);
}

OdResult OdDbBlockTableRecord::getBlockReferenceIds(OdDbObjectIdArray& ids, bool directOnly, bool) const {
  ids.append(drawing::referencesTo(*this, directOnly));
  return eOk;
}

bool OdDbBlockTableRecord::reaches(OdDbObjectId target) const {
  return drawing::reaches(objectId(), target);
}

OdResult OdDbBlockTableRecord::getGeomExtents(OdGeExtents3d& extents) const {
  return drawing::extentsOf(*this, extents);
}
