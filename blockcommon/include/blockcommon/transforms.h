// Transformation of objects between world and block coordinates.
//
// The coordinate system of a new block has its origin at the base point and the axes of the current UCS, both in world
// coordinates; the inverse of its matrix transforms world into block coordinates.
#pragma once

#include "DbBlockTable.h"
#include "DbObjectId.h"
#include "Ge/GeMatrix3d.h"
#include "Ge/GePoint3d.h"
#include "blockcommon/export.h"

class OdDbDatabase;

namespace blockUtils {

// Returns the coordinate system with that origin (world coordinates) and the axes of `ucs` with their lengths. The
// origin of `ucs` is ignored.
BLOCKCOMMON_API OdGeMatrix3d createEcsMatrixByMatrix(OdGePoint3d origin, OdGeMatrix3d ucs);

// Transforms the objects into block coordinates, in order. Objects whose kind does not accept the matrix are removed
// from the array and not changed; objects that are not entities remain in the array and are not changed. False at the
// first object that does not open for write or fails otherwise: those before it have been transformed. The database is
// not used.
BLOCKCOMMON_API bool transformEntityByEcs(OdDbDatabase* pDb, OdArray<OdDbObjectId>& ids, OdGeMatrix3d ecs);

// Transforms the objects back into world coordinates. False at the first that does not open for write or cannot be
// transformed; those before it have been transformed, those after it have not. Throws OdError_NotThatKindOfClass for an
// object that is not an entity. The database is not used.
BLOCKCOMMON_API bool recoverCoordinateSystem(OdDbDatabase* pDb, OdArray<OdDbObjectId> ids, OdGeMatrix3d ecs);

// Transforms the entities of a block by the inverse of the matrix. Entities that do not open for write or do not accept
// the matrix are not changed. No effect for a null record.
BLOCKCOMMON_API void transformRec(OdSmartPtr<OdDbBlockTableRecord> pRec, OdGeMatrix3d m);

} // namespace blockUtils
