#include "blockcommon/document_queries.h"

#include "DbAttribute.h"
#include "DbBlockReference.h"
#include "DbSymbolRecords.h"
#include "blockcommon/attributes.h"
#include "blockcommon/block_lookup.h"
#include "blockcommon/host/services.h"
#include "morvane/documents.h"
#include "morvane/result_codes.h"

namespace commonFun {
namespace {

using hostAccess::currentDatabase;

// Null without a current drawing.
OdDbBlockTablePtr currentBlockTable() {
  const OdDbDatabase* database = currentDatabase();
  return database == nullptr ? OdDbBlockTablePtr() : OdDbBlockTablePtr(database->getBlockTableId().safeOpenObject());
}

OdDbBlockTableRecordPtr currentBlock(const OdString& name) {
  const OdDbBlockTablePtr table = currentBlockTable();
  return table.isNull() ? OdDbBlockTableRecordPtr() : OdDbBlockTableRecordPtr(table->getAt(name).safeOpenObject());
}

bool needsAnswer(const OdDbObjectPtr& object) {
  if (const OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::cast(object); !definition.isNull())
    return !definition->isPreset() && !definition->isConstant();
  const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(object);
  return !block.isNull() && !insertCommon::hasPresetAttribute(block);
}

} // namespace

bool isDoc(OdString filePath) {
  const mvsi::MvsiApDocument* current = hostAccess::currentDocument();
  for (const mvsi::MvsiApDocument* document : hostAccess::openDocuments()) {
    if (document != current && document->fileName().iCompare(filePath) == 0)
      return true;
  }
  return false;
}

bool iscurDoc(OdString filePath) {
  const mvsi::MvsiApDocument* current = hostAccess::currentDocument();
  return current != nullptr && current->fileName().iCompare(filePath) == 0;
}

void checkPointerData(OdSmartPtr<OdDbDatabase>, OdSmartPtr<OdDbBlockTable>, OdSmartPtr<OdDbDatabase>& pOutDb,
                      OdSmartPtr<OdDbSymbolTableIterator>&) {
  OdDbDatabase* database = currentDatabase();
  if (database == nullptr)
    __builtin_trap();
  pOutDb = database;
}

bool isBlockNameInCurDb(OdString blockName) {
  if (blockName.isEmpty())
    return false;
  const OdDbBlockTablePtr table = currentBlockTable();
  return !table.isNull() && table->has(blockName);
}

int getCurDocBlockName(bool includeXrefs, OdArray<OdString>& names) {
  const OdDbBlockTablePtr table = currentBlockTable();
  if (table.isNull())
    return RTERROR;
  for (const auto iterator = table->newIterator(); !iterator->done(); iterator->step()) {
    const OdDbBlockTableRecordPtr block = iterator->getRecordId().safeOpenObject();
    if (block.isNull() || (!includeXrefs && block->isFromExternalReference()))
      continue;
    const OdString name = block->getName();
    if (!name.isEmpty() && name.getAt(0) != L'*')
      names.append(name);
  }
  return RTNORM;
}

int getBlockNameByID(OdDbObjectId& objectId, OdString& name) {
  OdDbObjectPtr object = objectId.safeOpenObject();
  if (object.isNull())
    return RTERROR;
  if (const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(object); !reference.isNull())
    object = reference->blockTableRecord().safeOpenObject();
  if (object.isNull())
    return RTERROR;
  const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(object);
  if (block.isNull())
    return RTREJ;
  name = block->getName();
  return RTNORM;
}

bool isExternalReference(const OdDbObjectId& blockId) {
  const OdDbBlockTableRecordPtr block = blockId.safeOpenObject();
  return !block.isNull() && block->isFromExternalReference();
}

int getBlockReferenceCount(const OdString& blockName) {
  OdDbObjectId id;
  return !blockName.isEmpty() && blockUtils::getBlockIDByName(blockName, id, nullptr) ? getBlockReferenceCount(id) : 0;
}

int getBlockReferenceCount(const OdDbObjectId& blockId) {
  constexpr bool kDirectOnly = true;
  constexpr bool kForceValidity = false;
  const OdDbBlockTableRecordPtr block = blockId.safeOpenObject();
  OdDbObjectIdArray ids;
  if (!block.isNull())
    block->getBlockReferenceIds(ids, kDirectOnly, kForceValidity);
  return static_cast<int>(ids.size());
}

bool isBlockVisable(const OdString& blockName) {
  const OdDbBlockTableRecordPtr block = currentBlock(blockName);
  if (block.isNull())
    return true;
  bool isVisible = true;
  for (auto it = block->newIterator(); !it->done(); it->step()) {
    const OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::cast(it->entity());
    if (definition.isNull())
      continue;
    if (!definition->isInvisible())
      return true;
    isVisible = false;
  }
  return isVisible;
}

bool isCanEditAttributeBlock(OdDbObjectId blockId) {
  const OdDbBlockTableRecordPtr block = blockId.safeOpenObject();
  if (block.isNull())
    return false;
  for (auto it = block->newIterator(); !it->done(); it->step()) {
    const OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::cast(it->entity());
    if (!definition.isNull() && !definition->isConstant())
      return true;
  }
  return false;
}

bool hasAttdef(const OdDbObjectIdArray& ids) {
  for (const OdDbObjectId& id : ids) {
    if (needsAnswer(id.safeOpenObject()))
      return true;
  }
  return false;
}

} // namespace commonFun

namespace insertCommon {

bool isCurLayerLocked() {
  const OdDbDatabase* database = hostAccess::currentDatabase();
  if (database == nullptr)
    return false;
  const OdDbLayerTableRecordPtr layer = database->getCLAYER().safeOpenObject();
  return !layer.isNull() && layer->isLocked();
}

void getBeditBlockName(OdString& name) {
  if (const mvsi::MvsiApDocument* document = hostAccess::currentDocument())
    name = document->blockEditorName();
}

} // namespace insertCommon
