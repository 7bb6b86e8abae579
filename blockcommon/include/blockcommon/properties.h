// Properties of block definitions: scaling, exploding, units, annotation; and draw order.
#pragma once

#include "DbBlockTable.h"
#include "DbObjectId.h"
#include "OdDb.h"
#include "blockcommon/export.h"

namespace blockUtils {

// Set a property of a block definition: uniform scaling of references, permission to explode them, insertion units.
// False, and nothing changed, for an id that is not valid or does not open for write as a block definition.
BLOCKCOMMON_API bool setUniformlyScaled(OdDbObjectId btrId, bool bUniform);
BLOCKCOMMON_API bool setExplodable(OdDbObjectId btrId, bool bExplodable);
BLOCKCOMMON_API bool setBtrInsertUnit(OdDbObjectId btrId, OdDb::UnitsValue units);

// The same for annotation, by setAnnotationAndMatch. Also false if the host has no document manager.
BLOCKCOMMON_API bool SetAnnotative(OdDbObjectId btrId, bool bAnnotative, bool bMatchOrientation);

// Sets whether a definition that is open for write is annotative, and whether its references match the orientation of
// the layout. If it becomes annotative, its entities lose their own annotative property, except annotative references,
// and all entities are scaled about the origin by the current annotation scale of the drawing (paper units divided by
// drawing units; not if there is none or it is not positive). Entities that do not open for write are skipped. False
// for a null record.
BLOCKCOMMON_API bool setAnnotationAndMatch(OdSmartPtr<OdDbBlockTableRecord> pRec, bool bAnnotative,
                                           bool bMatchOrientation);

// Sorts ids by the draw order table of their owner, bottom first; ids without an entry by order of addition.
BLOCKCOMMON_API void sortAarryByDrawOrder(OdDbObjectIdArray& ids);

} // namespace blockUtils
