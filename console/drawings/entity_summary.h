// Drawing objects as the commands draw and describe them.
#pragma once

#include "console/session/session.h"

#include "DbEntity.h"

namespace console {

// Puts an entity that was made in coordinates of the UCS into the current space, on the current layer and so on.
OdDbObjectId addToDrawing(CommandContext& context, OdDbEntity& entity);

// "LINE", and its geometry: "from 0,0,0 to 1,0,0", in the current UCS. Empty for kinds without a place.
OdString typeText(const OdDbEntity& entity);
OdString geometryText(const OdDbEntity& entity);

} // namespace console
