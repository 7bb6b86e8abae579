// Finding a block definition.
#pragma once

#include "OdString.h"
#include "blockcommon/export.h"

class OdDbDatabase;
class OdDbObjectId;

namespace blockUtils {

// Stores the id of the block definition of that name, erased ones excluded; null when there is none. A null database is
// the host's working database. True when the stored id is valid.
BLOCKCOMMON_API bool getBlockIDByName(OdString name, OdDbObjectId& id, OdDbDatabase* pDb);

} // namespace blockUtils
