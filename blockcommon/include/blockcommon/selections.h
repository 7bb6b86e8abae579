// Selections of the host and object ids: selection sets and entity names, the selection before a command, highlighting,
// erasing, and locked layers.
//
// Selection sets and entities have names of two values; {0, 0} is the empty name. A set belongs to the host until it is
// freed. Arrays keep their order and are appended to unless stated otherwise. Objects without a name or id are skipped
// without a message. Without a selection service sets cannot be read: they count as having no members. The time is
// linear in the ids and members.
#pragma once

#include "DbObjectId.h"
#include "OdString.h"
#include "blockcommon/export.h"

namespace commonFun {

// -- Selection sets. --

// Frees the set and sets the empty name. Always 1.
BLOCKCOMMON_API int clearSSName(long (&name)[2]);
// Whether the set can be read and has no members; false for a name that is not that of a set.
BLOCKCOMMON_API bool isSSsetEmpty(const long (&name)[2]);
// Whether the entity is a member; the search ends at a member that cannot be read.
BLOCKCOMMON_API bool isEntityInSSset(const OdDbObjectId& id, const long (&name)[2]);
// Adds the ids to the set; for the empty name a new set is created with the first of them.
BLOCKCOMMON_API void objectArr2AdsName(const OdDbObjectIdArray& ids, long (&name)[2]);
// Appends the set's members.
BLOCKCOMMON_API void adsName2ObjectArr(const long (&name)[2], OdDbObjectIdArray& ids);
// Clears the array, then does the same. True if the set has members, even if none of them can be read. The name (two
// values) may be null, which counts as the empty name.
BLOCKCOMMON_API bool getSelectedEntitiesIDs(OdDbObjectIdArray& ids, long* name);

// -- Selection before the command. --

// Appends the pick-first selection and removes all objects on locked layers from the array (objsOnLockedLayerPro). If
// any remain, the highlight is removed and the pick-first selection cleared. Always 1; the array has the result.
BLOCKCOMMON_API int curSelectEntity(OdDbObjectIdArray& ids);

// Switches the highlight of the members of a set or, if the host has no set of that name, of an entity. Returns the
// last result of the host: 5100, 5000 for null and the empty name, -5001 for a name whose object does not open. Throws
// OdError_NotThatKindOfClass for the name of an object that is not an entity.
BLOCKCOMMON_API int mvedHighlightEnt(long* name, bool highlight);

// -- Erasing. --

// Erase the objects and return their number. Throw OdError with the reason at the first id that does not open for
// write; those before it remain erased. eraseEntitys throws OdError_NotThatKindOfClass for an object that is not an
// entity.
BLOCKCOMMON_API int eraseEntitys(OdDbObjectIdArray& ids);
BLOCKCOMMON_API int deleteObjs(OdDbObjectIdArray ids);

// -- Contents of blocks. --

// Appends the entities of the block definition without erased ones. No effect for the null id. Throws OdError with the
// reason for an id that does not open, OdError_NotThatKindOfClass for an object that is not a definition.
BLOCKCOMMON_API void getEntityWithObjectId(const OdDbObjectId& blockId, OdDbObjectIdArray& ids);
// The same for the block of that name in the working database; no effect for an unknown name.
BLOCKCOMMON_API void getEntityWithObjectName(const OdString& blockName, OdDbObjectIdArray& ids);

// -- Locked layers. --

// Removes the objects on locked layers from the array and reports their number to the user. Ids that are not valid are
// kept. Returns the number of remaining ids.
BLOCKCOMMON_API int objsOnLockedLayerPro(OdDbObjectIdArray& ids);

// Does nothing.
BLOCKCOMMON_API void postRegen(double, const OdDbObjectIdArray&, int, bool);

} // namespace commonFun

// Unlocks the layer of an entity while it exists. A layer that was not locked is not changed, so objects for the same
// layer may be nested. Ids without a layer are not an error. Never throws.
class BLOCKCOMMON_API CMvAutoUnLockEntityLayer {
public:
  // Unlocks the layer; the destructor locks it again.
  explicit CMvAutoUnLockEntityLayer(const OdDbObjectId& entityId);
  ~CMvAutoUnLockEntityLayer();
  CMvAutoUnLockEntityLayer(const CMvAutoUnLockEntityLayer&) = delete;
  CMvAutoUnLockEntityLayer& operator=(const CMvAutoUnLockEntityLayer&) = delete;

private:
  OdDbObjectId layerId_;
  bool wasLocked_ = false;
  bool unlockedHere_ = false;
};
