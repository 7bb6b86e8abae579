// Look-up of block definitions.
#pragma once

#include "OdString.h"
#include "blockcommon/export.h"

class OdDbDatabase;
class OdDbObjectId;

namespace blockUtils {

// Sets `id` to the block definition of that name, erased ones excluded; null if there is none. A null database means
// the working database of the host. Returns whether the id is valid.
BLOCKCOMMON_API bool getBlockIDByName(OdString name, OdDbObjectId& id, OdDbDatabase* pDb);

} // namespace blockUtils
