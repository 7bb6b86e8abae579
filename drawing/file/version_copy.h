// Drawings whose objects have to be others in the version that is written.
#pragma once

#include "DbDatabase.h"

namespace drawing::dxf {

// A copy with the texts of its attributes where the version has them; null when they stand there already. A drawing in
// its own version stays as it came.
OdDbDatabasePtr copyForVersion(const OdDbDatabase& database, OdDb::DwgVersion version);

} // namespace drawing::dxf
