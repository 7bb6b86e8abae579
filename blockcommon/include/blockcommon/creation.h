// Making a block definition from objects of one or more drawings.
#pragma once

#include "DbDimAssoc.h"
#include "DbObjectId.h"
#include "Ge/GeMatrix3d.h"
#include "Ge/GePoint3d.h"
#include "OdString.h"
#include "blockcommon/export.h"

#include <map>

class OdDbDatabase;

namespace blockUtils {

// Makes the block `blockName` of `pDb` from clones of the objects, or empties and refills it with `bRedefine`.
// `basePoint`, in the current UCS, becomes the block's origin, the axes of the UCS its axes. Objects whose kind cannot
// be moved into block coordinates leave `ids` and are not part of the block. The objects themselves stay.
// Answers the block's id, or null: an empty name, no database, no working database, a name that exists without
// `bRedefine`, objects that do not open for write. `bCreated` is true only when every step succeeded; the id of a block
// that could not be emptied, or is only half filled, comes with false. A failure behind the moving into block
// coordinates leaves the objects there: callers run this inside an undo step. Spaces and external references are not
// refused here. Throws OdError(eDegenerateGeometry) when the host gives no coordinate system.
BLOCKCOMMON_API OdDbObjectId create(OdDbDatabase* pDb, OdString blockName, OdArray<OdDbObjectId>& ids, bool bRedefine,
                                    bool& bCreated, OdGePoint3d basePoint, OdString description);

// Erases the contents of the block of that name; the record and its properties stay. False when there is no such block.
// Throws OdError with the reason for an entity that does not open for write.
BLOCKCOMMON_API bool emptyRec(OdDbDatabase* pDb, OdString name);

// Adds a new definition, with the comments unless they are empty, and stores its id. A valid `blockId` is left alone
// and answers true. False when there is no database or the block table takes no such name.
BLOCKCOMMON_API bool addBlockInfo(OdDbDatabase* pDb, OdDbObjectId& blockId, OdString& name, OdString description);

// Sorts the ids by their drawings, their order kept. The arrays are made with new and belong to the caller. An id
// without a drawing stands under null. Always true; `pDb` is not used.
BLOCKCOMMON_API bool groupForEntity(OdDbDatabase* pDb, OdArray<OdDbObjectId> ids,
                                    std::map<OdDbDatabase*, OdArray<OdDbObjectId>*>& groups);

// Clones each group into the block: by deep cloning for `pDb` itself, from other drawings with what they need, records
// of the same name replaced. Cloned dimensions turn by the angle of `xform` and take their associations along. False
// without a database or when a clone operation reports an error. `flag` is not used.
BLOCKCOMMON_API bool copyDataToNewBlock(OdDbDatabase* pDb, std::map<OdDbDatabase*, OdArray<OdDbObjectId>*> groups,
                                        OdDbObjectId& blockId, OdGeMatrix3d xform, bool& flag);

// Posts the association, open for write, for that dimension and attaches it. Locked layers of the dimension and of the
// geometry are unlocked meanwhile and locked again in any case. 5100, or -5001 for a null association or one that
// cannot be posted.
BLOCKCOMMON_API int postDimAssoc(OdSmartPtr<OdDbDimAssoc>& pAssoc, OdDbObjectId dimId, OdDbObjectId& newAssocId);

} // namespace blockUtils
