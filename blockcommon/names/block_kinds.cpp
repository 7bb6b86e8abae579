#include "blockcommon/block_names.h"

#include "blockcommon/block_lookup.h"

#include "DbBlockTable.h"
#include "DbDatabase.h"

namespace {

// The record of that name in the working drawing; null when there is none or it is of another class.
OdDbBlockTableRecordPtr findRecord(const OdString& name) {
  OdDbObjectId id;
  if (name.isEmpty() || !blockUtils::getBlockIDByName(name, id, nullptr))
    return nullptr;
  return OdDbBlockTableRecord::cast(id.safeOpenObject());
}

} // namespace

namespace blockUtils {

bool isAnonymous(OdString name) {
  if (name.find(L'*') >= 0)
    return true;
  const OdDbBlockTableRecordPtr record = findRecord(name);
  return !record.isNull() && record->isAnonymous();
}

bool isExternalDependent(OdString name) {
  const OdDbBlockTableRecordPtr record = findRecord(name);
  return !record.isNull() && record->isDependent();
}

bool isFromExternalReference(OdString name) {
  const OdDbBlockTableRecordPtr record = findRecord(name);
  return !record.isNull() && record->isFromExternalReference();
}

} // namespace blockUtils

namespace commonFun {

bool isBlockRenameAble(OdString name) {
  if (blockUtils::isExternalDependent(name) || blockUtils::isAnonymous(name))
    return false;
  return name.iCompare(modelSpaceStr) != 0 && name.iCompare(paperSpaceStr) != 0;
}

} // namespace commonFun
