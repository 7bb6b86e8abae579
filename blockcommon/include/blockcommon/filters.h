// Filters for the objects of a new block, and the test whether a block would contain itself.
//
// No function displays a message. Arrays keep their order. The time is linear in the number of ids, and each definition
// is examined once.
#pragma once

#include "DbObjectId.h"
#include "OdString.h"
#include "blockcommon/export.h"

class OdDbBlockReference;

namespace blockUtils {

// Removes cameras from the array; ids that do not open and classes derived from cameras are kept.
BLOCKCOMMON_API void kickOutSomeKindOfObjs(OdArray<OdDbObjectId>& ids);

// Moves attribute definitions to the end of `attdefIds`, which is another array. Classes derived from them and ids that
// do not open are kept. Throws OdError(eOutOfMemory) without memory; both arrays are unchanged then.
BLOCKCOMMON_API void kickOutAttrdefID(OdArray<OdDbObjectId>& ids, OdArray<OdDbObjectId>& attdefIds);

// Whether the reference refers to the block `btrId`, directly or through definitions at any depth. Only the definition
// that a reference refers to is followed, so the anonymous block of a dynamic reference does not count as its
// definition. False for a null reference and for ids that are not valid; definitions that do not open are skipped.
// Throws OdError_NotThatKindOfClass for a reference to something that is not a definition.
BLOCKCOMMON_API bool isBTRefAreBtrItSelf(const OdDbBlockReference* pRef, OdDbObjectId btrId);

// The same for any of the objects and the block of that name in the working database; objects that are not references
// are skipped. False without a working database or such a block.
BLOCKCOMMON_API bool isObjsAreBtrItSelf(OdString blockName, const OdArray<OdDbObjectId>& ids);

// Whether the object is locked by its layer according to the host; false for an id that is not valid.
BLOCKCOMMON_API bool isObjOnLockedLayer(OdDbObjectId id);

} // namespace blockUtils
