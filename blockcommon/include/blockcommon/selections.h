// Between the host's selections and object ids: selection sets and entity names, the selection made before a command,
// highlighting, erasing, and locked layers.
//
// Selection sets and entities are named by two values; {0, 0} is no name. A set belongs to the host until it is freed.
// Arrays keep their order and are appended to unless said otherwise. What has no name, or no id, is passed over without
// a word. Without a selection service sets cannot be read: they count as having no members. The time is linear in the
// ids and members.
#pragma once

#include "DbObjectId.h"
#include "OdString.h"
#include "blockcommon/export.h"

namespace commonFun {

// -- Selection sets. --

// Frees the set and empties the name. Always 1.
BLOCKCOMMON_API int clearSSName(long (&name)[2]);
// True only for a set that can be read and has no members: a name that is no set's is not that of an empty one.
BLOCKCOMMON_API bool isSSsetEmpty(const long (&name)[2]);
// Looks until it meets the id, or a member that cannot be read.
BLOCKCOMMON_API bool isEntityInSSset(const OdDbObjectId& id, const long (&name)[2]);
// Adds the ids to the set; the empty name becomes that of a new set with the first of them.
BLOCKCOMMON_API void objectArr2AdsName(const OdDbObjectIdArray& ids, long (&name)[2]);
// Appends the set's members.
BLOCKCOMMON_API void adsName2ObjectArr(const long (&name)[2], OdDbObjectIdArray& ids);
// Empties the array, then does the same. True when the set has members, even if none of them could be read. The name
// (two values) may be null, which is no name.
BLOCKCOMMON_API bool getSelectedEntitiesIDs(OdDbObjectIdArray& ids, long* name);

// -- What was selected before the command. --

// Appends the pick-first selection and takes everything on locked layers out of the whole array
// (objsOnLockedLayerPro). When something is left, that selection is no longer highlighted and no longer picked first.
// Always 1; the array tells whether there was a selection.
BLOCKCOMMON_API int curSelectEntity(OdDbObjectIdArray& ids);

// Highlights, or takes the highlight away from, the members of a set or, when the host knows no set of that name, the
// entity. Answers the last result of the host: 5100, 5000 for null and the empty name, -5001 for a name behind which
// nothing opens. Throws OdError_NotThatKindOfClass for the name of something that is no entity.
BLOCKCOMMON_API int mvedHighlightEnt(long* name, bool highlight);

// -- Erasing. --

// Erase the objects and answer how many. Throw OdError with the reason at the first id that does not open for write;
// those before it stay erased. eraseEntitys throws OdError_NotThatKindOfClass for anything that is no entity.
BLOCKCOMMON_API int eraseEntitys(OdDbObjectIdArray& ids);
BLOCKCOMMON_API int deleteObjs(OdDbObjectIdArray ids);

// -- Contents of blocks. --

// Appends the entities of the block definition, erased ones excepted. Nothing for the null id. Throws OdError with the
// reason for an id that does not open, OdError_NotThatKindOfClass for anything that is no definition.
BLOCKCOMMON_API void getEntityWithObjectId(const OdDbObjectId& blockId, OdDbObjectIdArray& ids);
// The same for the block of that name in the working database; nothing for an unknown name.
BLOCKCOMMON_API void getEntityWithObjectName(const OdString& blockName, OdDbObjectIdArray& ids);

// -- Locked layers. --

// Takes the objects on locked layers out of the array and tells the user how many they were. Ids that are not valid
// stay. Answers how many ids are left.
BLOCKCOMMON_API int objsOnLockedLayerPro(OdDbObjectIdArray& ids);

// Does nothing.
BLOCKCOMMON_API void postRegen(double, const OdDbObjectIdArray&, int, bool);

} // namespace commonFun

// Unlocks the layer of an entity for its own lifetime. A layer that was not locked is left alone, so scopes for the
// same layer may be nested. Ids without a layer are no error. Never throws.
class BLOCKCOMMON_API CMvAutoUnLockEntityLayer {
public:
  explicit CMvAutoUnLockEntityLayer(const OdDbObjectId& entityId);
  ~CMvAutoUnLockEntityLayer();
  CMvAutoUnLockEntityLayer(const CMvAutoUnLockEntityLayer&) = delete;
  CMvAutoUnLockEntityLayer& operator=(const CMvAutoUnLockEntityLayer&) = delete;

private:
  OdDbObjectId layerId_;
  bool wasLocked_ = false;
  bool unlockedHere_ = false;
};
