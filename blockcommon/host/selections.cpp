#include "blockcommon/selections.h"

#include "DbBlockTable.h"
#include "DbEntity.h"
#include "blockcommon/block_lookup.h"
#include "blockcommon/host/services.h"
#include "blockcommon/messages.h"
#include "morvane/drawing_tools.h"
#include "morvane/result_codes.h"
#include "morvane/selection.h"

namespace commonFun {
namespace {

bool isEmptyName(const long* name) {
  return name == nullptr || (name[0] == 0 && name[1] == 0);
}

bool readMember(const long* set, int index, OdDbObjectId& id) {
  long entity[2] = {0, 0};
  return hostAccess::mvsiedSSName(set, index, entity) == RTNORM && mvsi::mvsidbGetObjectId(id, entity) == 0;
}

// Answers the set's length as the host has it.
int appendMembers(const long* set, OdDbObjectIdArray& ids) {
  int length = 0;
  hostAccess::mvsiedSSLength(set, &length);
  for (int index = 0; index < length; ++index) {
    OdDbObjectId id;
    if (readMember(set, index, id))
      ids.append(id);
  }
  return length;
}

int highlightMembers(const long* set, int length, int mode) {
  int code = RTNORM;
  for (int index = 0; index < length; ++index) {
    long entity[2] = {0, 0};
    if (hostAccess::mvsiedSSName(set, index, entity) == RTNORM)
      code = hostAccess::mvsiedRedraw(entity, mode);
  }
  return code;
}

OdDbObjectPtr openOrThrow(const OdDbObjectId& id, OdDb::OpenMode mode) {
  OdDbObjectPtr object;
  if (const OdResult reason = id.openObject(object, mode); reason != eOk)
    throw OdError(reason);
  return object;
}

} // namespace

int clearSSName(long (&name)[2]) {
  hostAccess::mvsiedSSFree(name);
  name[0] = 0;
  name[1] = 0;
  return 1;
}

bool isSSsetEmpty(const long (&name)[2]) {
  int length = 0;
  return hostAccess::mvsiedSSLength(name, &length) == RTNORM && length == 0;
}

bool isEntityInSSset(const OdDbObjectId& id, const long (&name)[2]) {
  int length = 0;
  if (hostAccess::mvsiedSSLength(name, &length) != RTNORM)
    return false;
  OdDbObjectId member;
  for (int index = 0; index < length && readMember(name, index, member); ++index) {
    if (member == id)
      return true;
  }
  return false;
}

void objectArr2AdsName(const OdDbObjectIdArray& ids, long (&name)[2]) {
  for (const OdDbObjectId& id : ids) {
    long entity[2] = {0, 0};
    if (mvsi::mvsidbGetAdsName(entity, id) == 0)
      hostAccess::mvsiedSSAdd(entity, name, name);
  }
}

void adsName2ObjectArr(const long (&name)[2], OdDbObjectIdArray& ids) {
  appendMembers(name, ids);
}

bool getSelectedEntitiesIDs(OdDbObjectIdArray& ids, long* name) {
  ids.clear();
  return !isEmptyName(name) && appendMembers(name, ids) > 0;
}

int curSelectEntity(OdDbObjectIdArray& ids) {
  constexpr int kAlways = 1;
  constexpr int kAllMembers = -1;
  mvsi::RxSelectSet implied;
  if (implied.impliedSelect() != 0)
    return kAlways;
  implied.asIdArray(ids);
  objsOnLockedLayerPro(ids);
  if (!ids.isEmpty()) {
    implied.hilight(false, kAllMembers);
    hostAccess::mvsiedSSSetFirst(nullptr, nullptr);
  }
  return kAlways;
}

int mvedHighlightEnt(long* name, bool highlight) {
  const int mode = highlight ? 3 : 4;
  if (isEmptyName(name))
    return RTEMPTY;
  int length = 0;
  const int code = hostAccess::mvsiedSSLength(name, &length);
  if (code == RTERROR) // an entity's name
    return hostAccess::mvsiedRedraw(name, mode);
  return code == RTNORM ? highlightMembers(name, length, mode) : code;
}

int eraseEntitys(OdDbObjectIdArray& ids) {
  int erased = 0;
  for (const OdDbObjectId& id : ids) {
    const OdDbEntityPtr entity = openOrThrow(id, OdDb::kForWrite);
    entity->erase(true);
    ++erased;
  }
  return erased;
}

int deleteObjs(OdDbObjectIdArray ids) {
  int erased = 0;
  for (const OdDbObjectId& id : ids) {
    openOrThrow(id, OdDb::kForWrite)->erase(true);
    ++erased;
  }
  return erased;
}

void getEntityWithObjectId(const OdDbObjectId& blockId, OdDbObjectIdArray& ids) {
  if (blockId.isNull())
    return;
  const OdDbBlockTableRecordPtr block = openOrThrow(blockId, OdDb::kForRead);
  for (auto it = block->newIterator(); !it->done(); it->step())
    ids.append(it->objectId());
}

void getEntityWithObjectName(const OdString& blockName, OdDbObjectIdArray& ids) {
  OdDbObjectId blockId;
  if (blockUtils::getBlockIDByName(blockName, blockId, nullptr))
    getEntityWithObjectId(blockId, ids);
}

int objsOnLockedLayerPro(OdDbObjectIdArray& ids) {
  constexpr bool kByLayer = true;
  OdDbObjectIdArray kept;
  for (const OdDbObjectId& id : ids) {
    if (!id.isValid() || !qzutads::isObjLocked(id, kByLayer))
      kept.append(id);
  }
  ids.swap(kept); // `kept` holds what there was
  const int left = static_cast<int>(ids.size());
  if (const int locked = static_cast<int>(kept.size()) - left; locked != 0)
    dlgTips::showBlockLockLayerTips(locked);
  return left;
}

void postRegen(double, const OdDbObjectIdArray&, int, bool) {}

} // namespace commonFun

CMvAutoUnLockEntityLayer::CMvAutoUnLockEntityLayer(const OdDbObjectId& entityId)
    : layerId_(LayerTools::getEntityLayerId(entityId)), wasLocked_(LayerTools::isLayerLocked(layerId_)) {
  if (wasLocked_) {
    LayerTools::lockOrUnlockLayer(layerId_, false);
    unlockedHere_ = true;
  }
}

CMvAutoUnLockEntityLayer::~CMvAutoUnLockEntityLayer() {
  if (unlockedHere_)
    LayerTools::lockOrUnlockLayer(layerId_, wasLocked_);
}
