// Moving objects between the world and the coordinate system of a block.
//
// A block's coordinate system has its origin at the base point and the axes of the current UCS; a point of the world
// comes into block coordinates by the inverse of its matrix.
#pragma once

#include "DbBlockTable.h"
#include "DbObjectId.h"
#include "Ge/GeMatrix3d.h"
#include "Ge/GePoint3d.h"
#include "blockcommon/export.h"

class OdDbDatabase;

namespace blockUtils {

// The coordinate system with that origin (world coordinates) and the axes of `ucs`, as long as they are there. The
// origin of `ucs` does not count.
BLOCKCOMMON_API OdGeMatrix3d createEcsMatrixByMatrix(OdGePoint3d origin, OdGeMatrix3d ucs);

// Moves the objects into block coordinates, in order. Objects whose kind cannot take the matrix leave the array and
// stay where they are; objects that are no entities stay in the array and are not moved. False at the first object that
// does not open for write or fails otherwise: those before it have been moved. The database is not used.
BLOCKCOMMON_API bool transformEntityByEcs(OdDbDatabase* pDb, OdArray<OdDbObjectId>& ids, OdGeMatrix3d ecs);

// Moves the objects back. False at the first that does not open for write or cannot be moved; those before it are back,
// those behind it are not. Throws OdError_NotThatKindOfClass for an object that is no entity. The database is not used.
BLOCKCOMMON_API bool recoverCoordinateSystem(OdDbDatabase* pDb, OdArray<OdDbObjectId> ids, OdGeMatrix3d ecs);

// Moves the contents of a block by the inverse of the matrix. Entities that do not open for write or do not take the
// matrix stay where they are. Nothing happens for a null record.
BLOCKCOMMON_API void transformRec(OdSmartPtr<OdDbBlockTableRecord> pRec, OdGeMatrix3d m);

} // namespace blockUtils
