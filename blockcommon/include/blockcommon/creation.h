// Creation of a block definition from objects of one or more drawings.
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

// Creates the block `blockName` of `pDb` from clones of the objects, or with `bRedefine` empties and refills it.
// `basePoint`, in the current UCS, becomes the origin of the block, the axes of the UCS its axes. Objects whose kind
// cannot be transformed into block coordinates are removed from `ids` and are not part of the block. The objects
// remain. Returns the id of the block, or null for an empty name, a null database, no working database, a name that
// exists without `bRedefine`, and objects that do not open for write. `bCreated` is true only if every step succeeded;
// it is false with the id of a block that could not be emptied or is filled in part. A failure after the objects were
// transformed into block coordinates leaves them there: callers run this in an undo step. Spaces and external
// references are not refused here. Throws OdError(eDegenerateGeometry) if the host has no coordinate system.
BLOCKCOMMON_API OdDbObjectId create(OdDbDatabase* pDb, OdString blockName, OdArray<OdDbObjectId>& ids, bool bRedefine,
                                    bool& bCreated, OdGePoint3d basePoint, OdString description);

// Erases the entities of the block of that name; the record and its properties are kept. False if the block does not
// exist. Throws OdError with the reason for an entity that does not open for write.
BLOCKCOMMON_API bool emptyRec(OdDbDatabase* pDb, OdString name);

// Adds a new definition, with the comments unless they are empty, and sets `blockId` to it. If `blockId` is valid
// already, returns true and changes nothing. False for a null database and if the block table does not accept the name.
BLOCKCOMMON_API bool addBlockInfo(OdDbDatabase* pDb, OdDbObjectId& blockId, OdString& name, OdString description);

// Groups the ids by their drawings, keeping their order. The arrays are allocated with new and owned by the caller. Ids
// without a drawing are under null. Always true; `pDb` is not used.
BLOCKCOMMON_API bool groupForEntity(OdDbDatabase* pDb, OdArray<OdDbObjectId> ids,
                                    std::map<OdDbDatabase*, OdArray<OdDbObjectId>*>& groups);

// Clones each group into the block: by deep cloning for `pDb` itself, from other drawings with the records that they
// depend on, replacing records of the same name. The horizontal rotation of cloned dimensions changes by the angle of
// `xform`, and their associations are cloned. False for a null database and if a clone operation reports an error.
// `flag` is not used.
BLOCKCOMMON_API bool copyDataToNewBlock(OdDbDatabase* pDb, std::map<OdDbDatabase*, OdArray<OdDbObjectId>*> groups,
                                        OdDbObjectId& blockId, OdGeMatrix3d xform, bool& flag);

// Posts an association that is open for write for a dimension and activates it (OdDbDimAssoc::post). Locked layers of
// the dimension and of the geometry are unlocked meanwhile and locked again in any case. Returns 5100, or -5001 for a
// null association and one that cannot be posted.
BLOCKCOMMON_API int postDimAssoc(OdSmartPtr<OdDbDimAssoc>& pAssoc, OdDbObjectId dimId, OdDbObjectId& newAssocId);

} // namespace blockUtils
