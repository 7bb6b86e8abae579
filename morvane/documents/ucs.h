// The UCS that a drawing's header holds.
#pragma once

#include "DbDatabase.h"
#include "Ge/GeMatrix3d.h"

namespace morvane::documents {

// From the UCS to the world; orthonormal. Axes in the header that span nothing are those of the world.
OdGeMatrix3d ucsOf(const OdDbDatabase& database);

} // namespace morvane::documents
