#include "blockcommon/filters.h"

#include "DbAttribute.h"
#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbViewport.h"
#include "blockcommon/block_lookup.h"
#include "morvane/drawing_tools.h"

#include <unordered_set>
#include <vector>

namespace blockUtils {
namespace {

bool isExactly(const OdDbObjectId& id, const OdRxClass* kind) {
  const OdDbObjectPtr object = id.safeOpenObject();
  return !object.isNull() && object->isA() == kind;
}

// Looks for one definition below references, in the order in which the references stand. A definition that was looked
// through without finding it is not looked through again, so one search may serve many references.
class SearchBelow {
public:
  explicit SearchBelow(OdDbObjectId wanted) : wanted_(wanted) {}

  bool finds(const OdDbBlockReference& reference) {
    std::vector<OdDbObjectIteratorPtr> open; // the definitions down to the present one
    if (references(reference, open))
      return true;
    while (!open.empty()) {
      const OdDbObjectIteratorPtr iterator = open.back();
      if (iterator->done()) {
        open.pop_back();
        continue;
      }
      const OdDbBlockReferencePtr nested = OdDbBlockReference::cast(iterator->entity());
      iterator->step();
      if (!nested.isNull() && references(*nested, open))
        return true;
    }
    return false;
  }

private:
  // Opens what the reference shows unless that is the wanted definition.
  bool references(const OdDbBlockReference& reference, std::vector<OdDbObjectIteratorPtr>& open) {
    const OdDbObjectId referenced = reference.blockTableRecord();
    if (!referenced.isValid())
      return false;
    if (referenced == wanted_)
      return true;
    if (!seen_.insert(referenced).second)
      return false;
    const OdDbBlockTableRecordPtr definition = referenced.safeOpenObject();
    if (!definition.isNull())
      open.push_back(definition->newIterator());
    return false;
  }

  OdDbObjectId wanted_;
  std::unordered_set<OdDbObjectId> seen_;
};

} // namespace

void kickOutSomeKindOfObjs(OdArray<OdDbObjectId>& ids) {
  OdDbObjectIdArray kept;
  for (const OdDbObjectId& id : ids) {
    if (!isExactly(id, OdDbCamera::desc()))
      kept.append(id);
  }
  ids.swap(kept);
}

void kickOutAttrdefID(OdArray<OdDbObjectId>& ids, OdArray<OdDbObjectId>& attdefIds) {
  OdDbObjectIdArray kept;
  OdDbObjectIdArray definitions;
  for (const OdDbObjectId& id : ids)
    (isExactly(id, OdDbAttributeDefinition::desc()) ? definitions : kept).append(id);
  attdefIds.append(definitions);
  ids.swap(kept);
}

bool isBTRefAreBtrItSelf(const OdDbBlockReference* pRef, OdDbObjectId btrId) {
  return pRef != nullptr && btrId.isValid() && SearchBelow(btrId).finds(*pRef);
}

bool isObjsAreBtrItSelf(OdString blockName, const OdArray<OdDbObjectId>& ids) {
  OdDbObjectId block;
  if (ids.isEmpty() || !getBlockIDByName(blockName, block, nullptr))
    return false;
  SearchBelow search(block);
  for (const OdDbObjectId& id : ids) {
    const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(id.safeOpenObject());
    if (!reference.isNull() && search.finds(*reference))
      return true;
  }
  return false;
}

bool isObjOnLockedLayer(OdDbObjectId id) {
  constexpr bool kByLayer = true;
  return id.isValid() && qzutads::isObjLocked(id, kByLayer);
}

} // namespace blockUtils
