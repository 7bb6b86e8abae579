// Small helpers over drawings that commands and the library share.
#pragma once

#include "DbObjectId.h"
#include "OdString.h"
#include "morvane/documents.h"
#include "morvane/export.h"

namespace LayerTools {

// The entity's layer; null for anything that is no entity.
MORVANE_API OdDbObjectId getEntityLayerId(const OdDbObjectId& entityId) noexcept;
MORVANE_API bool isLayerLocked(const OdDbObjectId& layerId) noexcept; // false for anything that is no layer
MORVANE_API bool lockOrUnlockLayer(const OdDbObjectId& layerId, bool lock) noexcept; // false when it could not be done

} // namespace LayerTools

namespace qzutads {

// Whether the object lies on a locked layer. Without `byLayer` there is nothing that locks an object.
MORVANE_API bool isObjLocked(const OdDbObjectId& id, bool byLayer);
// Brings the ids into drawing order, those of one block together, blocks in the order of their first id. What is drawn
// in no block comes last in the order it had.
MORVANE_API void sortAarryByDrawOrder(OdDbObjectIdArray& ids);
// The block that the working drawing shows and commands draw in: the one in its block editor, else the space of its
// tab. Null without a drawing.
MORVANE_API OdDbObjectId currentSpaceId();
// The open document of that file, by whatever path it is named, without regard to case; null when it is not open.
MORVANE_API mvsi::MvsiApDocument* findDwgDoc(const OdString& path);

} // namespace qzutads

namespace mvsi {

// The association of a dimension with what it measures. 0 and the id, or RTERROR and null when it has none.
MORVANE_API int mvdbGetDimAssocId(const OdDbObjectId& dimensionId, OdDbObjectId& associationId);

} // namespace mvsi
