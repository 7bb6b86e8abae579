// The name under which files hold a reference to a symbol table record.
#pragma once

#include "DbObjectId.h"
#include "OdString.h"

namespace drawing {

// "" for a null id and for objects that are not records.
OdString symbolName(OdDbObjectId id);

} // namespace drawing
