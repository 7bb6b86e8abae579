#include "blockcommon/attributes.h"

#include "morvane/drawing_tools.h"

namespace insertCommon {

void getAllAttributeDefinesOfBlk(OdSmartPtr<OdDbBlockReference> pRef, OdDbObjectIdArray& ids) {
  if (pRef.isNull())
    return;
  const OdDbBlockTableRecordPtr block = pRef->blockTableRecord().safeOpenObject();
  if (block.isNull() || !block->hasAttributeDefinitions())
    return;
  for (auto it = block->newIterator(); !it->done(); it->step()) {
    const OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::cast(it->entity());
    if (!definition.isNull() && !definition->isConstant())
      ids.append(it->objectId());
  }
}

void getAllAttributesOfBlkRef(OdSmartPtr<OdDbBlockReference> pRef, OdDbObjectIdArray& ids) {
  if (pRef.isNull())
    return;
  for (auto it = pRef->attributeIterator(); !it->done(); it->step())
    ids.append(it->objectId());
}

bool hasAttribute(OdSmartPtr<OdDbBlockReference> pRef) {
  if (pRef.isNull())
    return false;
  const OdDbBlockTableRecordPtr block = pRef->blockTableRecord().safeOpenObject();
  return !block.isNull() && block->hasAttributeDefinitions();
}

bool isAllAttributeInLockLayer(OdDbObjectId refId, bool& allLocked) {
  constexpr bool kByLayer = true;
  allLocked = true;
  if (!refId.isValid())
    return false;
  const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(refId.safeOpenObject());
  if (reference.isNull())
    return false;
  bool anyLocked = false;
  for (auto it = reference->attributeIterator(); !it->done() && (allLocked || !anyLocked); it->step()) {
    const bool locked = qzutads::isObjLocked(it->objectId(), kByLayer);
    anyLocked = anyLocked || locked;
    allLocked = allLocked && locked;
  }
  return anyLocked;
}

bool hasPresetAttribute(OdSmartPtr<OdDbBlockTableRecord> pBlock) {
  if (pBlock.isNull())
    return true;
  for (auto it = pBlock->newIterator(); !it->done(); it->step()) {
    const OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::cast(it->entity());
    if (!definition.isNull() && !definition->isPreset() && !definition->isConstant())
      return false;
  }
  return true;
}

void setAttriAnnoByBlockRef(OdSmartPtr<OdDbBlockReference> pRef) {
  if (pRef.isNull())
    return;
  commonFun::isAnnotative(pRef);
  for (auto it = pRef->attributeIterator(); !it->done(); it->step()) {
    const OdDbAttributePtr attribute = it->entity(OdDb::kForWrite);
    if (!attribute.isNull())
      commonFun::isAnnotative(attribute);
  }
}

void addAnnoToObj(const OdDbObjectId& blockId, bool) {
  const OdDbBlockTableRecordPtr block = blockId.safeOpenObject(OdDb::kForWrite);
}

bool isExistAnnoPO(const OdDbObjectId& blockId) {
  const OdDbBlockTableRecordPtr block = blockId.safeOpenObject();
  return !block.isNull() && block->xData(L"AcadAnnoPO").isNull();
}

} // namespace insertCommon

namespace commonFun {

bool isAnnotative(OdSmartPtr<OdDbObject>) {
  return false;
}

bool isAnnotativeObject(const OdDbObjectId& id) {
  const OdDbObjectPtr object = id.safeOpenObject();
  return !object.isNull() && isAnnotative(object);
}

} // namespace commonFun
