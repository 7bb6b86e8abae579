// Applications that own extended data.
#pragma once

#include "DbDatabase.h"

namespace drawing {

// Extended data is read by other programs only under the name of a registered application.
void registerApplication(OdDbDatabase& database, const OdString& name);

} // namespace drawing
