// The steps of making a block definition, clones excepted (creation_clones.cpp).
#include "blockcommon/creation.h"

#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "blockcommon/block_lookup.h"
#include "blockcommon/host/services.h"
#include "blockcommon/properties.h"
#include "blockcommon/transforms.h"
#include "morvane/documents.h"
#include "morvane/result_codes.h"
#include "morvane/variables.h"

namespace blockUtils {

namespace {

using Groups = std::map<OdDbDatabase*, OdArray<OdDbObjectId>*>;

// Frees the arrays of a grouping.
struct GroupOwner {
  Groups groups;
  ~GroupOwner() {
    for (const auto& [database, ids] : groups)
      delete ids;
  }
};

class TransactionScope {
public:
  explicit TransactionScope(OdDbDatabase& database) : database_(database) { database_.startTransaction(); }
  ~TransactionScope() { database_.endTransaction(); }
  TransactionScope(const TransactionScope&) = delete;
  TransactionScope& operator=(const TransactionScope&) = delete;

private:
  OdDbDatabase& database_;
};

void eraseContents(const OdDbBlockTableRecord& record) {
  for (auto it = record.newIterator(); !it->done(); it->step()) {
    OdDbObjectPtr entity;
    if (const OdResult reason = it->objectId().openObject(entity, OdDb::kForWrite); reason != eOk)
      throw OdError(reason);
    entity->erase(true);
  }
}

// Comments and units of a definition whose contents are in place.
bool finishDefinition(OdDbObjectId blockId, const OdString& description) {
  {
    const OdDbBlockTableRecordPtr record = blockId.safeOpenObject(OdDb::kForWrite);
    record->setComments(description);
  }
  short insertUnits = 0;
  mvsi::getVar(L"INSUNITS", insertUnits);
  return setBtrInsertUnit(blockId, static_cast<OdDb::UnitsValue>(insertUnits));
}

} // namespace

bool emptyRec(OdDbDatabase* pDb, OdString name) {
  if (name.isEmpty() || pDb == nullptr)
    return false;
  OdDbObjectId id;
  if (!getBlockIDByName(name, id, pDb))
    return false;
  const TransactionScope scope(*pDb);
  const OdDbBlockTableRecordPtr record = OdDbBlockTableRecord::cast(id.safeOpenObject().get());
  if (record.isNull())
    return false;
  eraseContents(*record);
  return true;
}

bool addBlockInfo(OdDbDatabase* pDb, OdDbObjectId& blockId, OdString& name, OdString description) {
  if (pDb == nullptr)
    return false;
  if (blockId.isValid())
    return true;
  const OdDbBlockTablePtr table = pDb->getBlockTableId().safeOpenObject(OdDb::kForWrite);
  const OdRxObjectPtr made = OdDbBlockTableRecord::desc()->create();
  if (made.isNull())
    throw OdError(OdString(L"OdDbOdDbBlockTableRecordis not loaded"));
  const OdDbBlockTableRecordPtr record = made;
  record->setName(name);
  if (!description.isEmpty())
    record->setComments(description);
  blockId = table->add(record.get());
  return !blockId.isNull();
}

bool groupForEntity(OdDbDatabase*, OdArray<OdDbObjectId> ids, Groups& groups) {
  for (const OdDbObjectId& id : ids) {
    OdArray<OdDbObjectId>*& group = groups[id.database()];
    if (group == nullptr)
      group = new OdArray<OdDbObjectId>;
    group->append(id);
  }
  return true;
}

OdDbObjectId create(OdDbDatabase* pDb, OdString blockName, OdArray<OdDbObjectId>& ids, bool bRedefine, bool& bCreated,
                    OdGePoint3d basePoint, OdString description) {
  bCreated = false;
  OdGePoint3d baseWcs;
  OdGeMatrix3d ucs;
  if (mvsi::mvsidbUcs2Wcs(basePoint, baseWcs, false) != RTNORM || hostAccess::currentUcsMatrix(ucs) != RTNORM)
    return OdDbObjectId::kNull;
  if (blockName.isEmpty() || pDb == nullptr)
    return OdDbObjectId::kNull;

  OdDbObjectId blockId;
  if (getBlockIDByName(blockName, blockId, pDb)) {
    if (!bRedefine)
      return OdDbObjectId::kNull;
    if (!emptyRec(pDb, blockName))
      return blockId;
  }
  const OdGeMatrix3d ecs = createEcsMatrixByMatrix(baseWcs, ucs);
  if (!transformEntityByEcs(pDb, ids, ecs) || !addBlockInfo(pDb, blockId, blockName, description))
    return OdDbObjectId::kNull;
  GroupOwner owner;
  if (!groupForEntity(pDb, ids, owner.groups))
    return OdDbObjectId::kNull;
  if (!copyDataToNewBlock(pDb, owner.groups, blockId, ecs, bCreated))
    return blockId; // the record exists, possibly half filled
  if (!recoverCoordinateSystem(pDb, ids, ecs) || !finishDefinition(blockId, description))
    return OdDbObjectId::kNull;
  bCreated = true;
  return blockId;
}

} // namespace blockUtils
