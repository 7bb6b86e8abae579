// How a block definition behaves: scaling, exploding, units, annotation, and the order in which things are drawn.
#pragma once

#include "DbBlockTable.h"
#include "DbObjectId.h"
#include "OdDb.h"
#include "blockcommon/export.h"

namespace blockUtils {

// Each sets one property of the block definition behind the id. False, and nothing changed, for an id that is not valid
// or does not open for write as a block definition.
BLOCKCOMMON_API bool setUniformlyScaled(OdDbObjectId btrId, bool bUniform); // false: any scales
BLOCKCOMMON_API bool setExplodable(OdDbObjectId btrId, bool bExplodable);
BLOCKCOMMON_API bool setBtrInsertUnit(OdDbObjectId btrId, OdDb::UnitsValue units);

// The same for annotation, through setAnnotationAndMatch. Also false when the host has no document manager.
BLOCKCOMMON_API bool SetAnnotative(OdDbObjectId btrId, bool bAnnotative, bool bMatchOrientation);

// Makes the definition, open for write, annotative or not, and lets its references follow the orientation of the layout
// or not. On making it annotative its contents lose their own annotative flag, annotative references excepted, and all
// contents are scaled about the world origin by the current annotation scale of their drawing (paper units divided by
// drawing units; not when there is none or it is not above 0). Contents that do not open for write are passed over.
// False for a null record.
BLOCKCOMMON_API bool setAnnotationAndMatch(OdSmartPtr<OdDbBlockTableRecord> pRec, bool bAnnotative,
                                           bool bMatchOrientation);

// Bottom first, by the draw order table of the owner; ids that no table names by order of addition.
BLOCKCOMMON_API void sortAarryByDrawOrder(OdDbObjectIdArray& ids);

} // namespace blockUtils
