// What may go into a block: filters over a selection, and the test whether a block would contain itself.
//
// Nothing here shows a message. An array keeps its order. The time is linear in the ids, and a definition is looked
// through once, however often it is shown.
#pragma once

#include "DbObjectId.h"
#include "OdString.h"
#include "blockcommon/export.h"

class OdDbBlockReference;

namespace blockUtils {

// Takes cameras out of the array, and nothing else: ids that do not open stay, and so do kinds derived from cameras.
BLOCKCOMMON_API void kickOutSomeKindOfObjs(OdArray<OdDbObjectId>& ids);

// Moves attribute definitions behind what `attdefIds`, another array, holds already. Kinds derived from them and ids
// that do not open stay. An array that finds no memory throws, and both are as before.
BLOCKCOMMON_API void kickOutAttrdefID(OdArray<OdDbObjectId>& ids, OdArray<OdDbObjectId>& attdefIds);

// Whether the reference shows the block `btrId`, itself or through any number of definitions. Only the definition that
// a reference shows is followed, so the anonymous shape of a dynamic block does not lead to its definition. False for
// a null reference and for ids that are not valid; definitions that do not open lead nowhere. Throws
// OdError_NotThatKindOfClass where something else than a definition is shown.
BLOCKCOMMON_API bool isBTRefAreBtrItSelf(const OdDbBlockReference* pRef, OdDbObjectId btrId);

// The same for any of the objects, and the block of that name in the working database; what is no reference leads
// nowhere. False without a working database or such a block.
BLOCKCOMMON_API bool isObjsAreBtrItSelf(OdString blockName, const OdArray<OdDbObjectId>& ids);

// Whether the host holds the object for locked by its layer; false for an id that is not valid.
BLOCKCOMMON_API bool isObjOnLockedLayer(OdDbObjectId id);

} // namespace blockUtils
