// Functions on drawings that commands and the library use.
#pragma once

#include "DbObjectId.h"
#include "OdString.h"
#include "morvane/documents.h"
#include "morvane/export.h"

namespace LayerTools {

// Layer of an entity; null for anything else.
MORVANE_API OdDbObjectId getEntityLayerId(const OdDbObjectId& entityId) noexcept;
// Whether a layer is locked, and locking or unlocking it; false for anything that is not a layer and does not open.
MORVANE_API bool isLayerLocked(const OdDbObjectId& layerId) noexcept;
MORVANE_API bool lockOrUnlockLayer(const OdDbObjectId& layerId, bool lock) noexcept;

} // namespace LayerTools

namespace qzutads {

// Whether the object is on a locked layer. Without `byLayer` always false.
MORVANE_API bool isObjLocked(const OdDbObjectId& id, bool byLayer);
// Sorts ids into draw order: those of one block together, blocks in the order of their first id; objects that are not
// in a block last, in their order.
MORVANE_API void sortAarryByDrawOrder(OdDbObjectIdArray& ids);
// Current space of the working drawing: the block in its block editor, else model space or the active layout. Null
// without a drawing.
MORVANE_API OdDbObjectId currentSpaceId();
// The open document of that file, by any path that leads to it, case does not matter; null if it is not open.
MORVANE_API mvsi::MvsiApDocument* findDwgDoc(const OdString& path);

} // namespace qzutads

namespace mvsi {

// The association of a dimension with what it measures. 0 and the id, or RTERROR and null if it has none.
MORVANE_API int mvdbGetDimAssocId(const OdDbObjectId& dimensionId, OdDbObjectId& associationId);

} // namespace mvsi
