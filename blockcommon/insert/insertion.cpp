#include "blockcommon/insertion.h"

#include "blockcommon/document_queries.h"
#include "blockcommon/file_paths.h"
#include "blockcommon/host/services.h"
#include "blockcommon/properties.h"
#include "morvane/host_api.h"

namespace insertCommon {
namespace {

bool isDrawingName(const OdString& path) {
  const OdString extension = qzutads::getPathFileExtName(path);
  for (const wchar_t* known : {L".dwg", L".dws", L".dxf"}) {
    if (extension.iCompare(known) == 0)
      return true;
  }
  return false;
}

// Null when the file cannot be read.
OdDbDatabasePtr readSource(const OdString& path) {
  return isDrawingName(path) ? mvdbSystemServices().readDrawing(path).database : OdDbDatabasePtr();
}

} // namespace

bool insertBlockRecord(const OdString& filePath, const OdString& blockName, OdDbObjectId& newBlockId) {
  const OdDbDatabasePtr source = readSource(filePath);
  if (source.isNull())
    return false;
  OdString edited;
  getBeditBlockName(edited);
  if (checkSameBlock(source, edited)) {
    CancelInsertTips(edited);
    return false;
  }
  if (!insertDb(source, blockName, newBlockId))
    return false;
  setExplodableInfo(source, newBlockId);
  if (!blockUtils::setBtrInsertUnit(newBlockId, source->getINSUNITS()))
    return false;
  checkExternalReference(filePath);
  return true;
}

bool insertDb(OdSmartPtr<OdDbDatabase> pSource, OdString blockName, OdDbObjectId& newBlockId) {
  constexpr bool kPreserveSource = true;
  OdDbDatabase* target = hostAccess::currentDatabase();
  if (pSource.isNull() || target == nullptr)
    return false;
  newBlockId = target->insert(blockName, pSource.get(), kPreserveSource);
  return !newBlockId.isNull();
}

bool checkSameBlock(OdSmartPtr<OdDbDatabase> pSource, OdString editedBlockName) {
  if (pSource.isNull() || editedBlockName.isEmpty())
    return false;
  const OdDbBlockTablePtr table = pSource->getBlockTableId().safeOpenObject();
  return !table.isNull() && table->has(editedBlockName);
}

void CancelInsertTips(OdString blockName) {
  mvsi::mvsiutPrintf(L"\n忽略块 %s 的重复定义。", blockName);
  mvsi::mvsiutPrintf(L"\n块 %s 参照本身", blockName);
}

void setExplodableInfo(OdSmartPtr<OdDbDatabase> pSource, OdDbObjectId blockId) {
  if (pSource.isNull())
    return;
  const OdDbBlockTableRecordPtr block = blockId.safeOpenObject(OdDb::kForWrite);
  if (!block.isNull())
    block->setExplodable(isBlockCanExplode(pSource->getModelSpaceId()));
}

void checkExternalReference(const OdString& filePath) {
  const OdDbDatabase* database = hostAccess::currentDatabase();
  if (database == nullptr)
    return;
  const OdDbBlockTablePtr table = database->getBlockTableId().safeOpenObject();
  if (table.isNull())
    return;
  for (const auto iterator = table->newIterator(); !iterator->done(); iterator->step()) {
    const OdDbBlockTableRecordPtr block = iterator->getRecordId().safeOpenObject(OdDb::kForWrite);
    if (!block.isNull() && !block->getName().isEmpty())
      insertExternalReference(block, block->getName(), filePath);
  }
}

void insertExternalReference(OdSmartPtr<OdDbBlockTableRecord> pRec, OdString blockName, const OdString& filePath) {
  if (pRec.isNull() || !pRec->isFromExternalReference())
    return;
  OdString pathName = pRec->pathName();
  if (isFileExist(pathName))
    mvsi::mvsiutPrintf(L"\n融入 外部参照 %s: %s\n", blockName, pathName);
  else
    reloadExternalReference(pRec, pathName, blockName, pathName, filePath);
}

void reloadExternalReference(OdSmartPtr<OdDbBlockTableRecord>, OdString&, OdString, OdString, const OdString&) {}

bool isXrefBlock(const OdDbObjectId& blockId) {
  const OdDbBlockTableRecordPtr block = blockId.safeOpenObject();
  return !block.isNull() && (block->isFromExternalReference() || block->getName().find(L'|') >= 0);
}

bool isBlockUniformScaled(const OdDbObjectId& blockId) {
  const OdDbBlockTableRecordPtr block = blockId.safeOpenObject();
  return !block.isNull() && block->blockScaling() == OdDbBlockTableRecord::kUniform;
}

bool isBlockCanExplode(const OdDbObjectId& blockId) {
  const OdDbBlockTableRecordPtr block = blockId.safeOpenObject();
  return !block.isNull() && block->explodable();
}

} // namespace insertCommon
