#include "blockcommon/block_lookup.h"

#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "morvane/documents.h"

namespace blockUtils {

bool getBlockIDByName(OdString name, OdDbObjectId& id, OdDbDatabase* pDb) {
  id.setNull();
  if (name.isEmpty())
    return false;
  OdDbDatabase* database = pDb != nullptr ? pDb : mvsi::mvsidbWorkingDatabase();
  if (database == nullptr)
    return false;
  const OdDbBlockTablePtr table = database->getBlockTableId().safeOpenObject();
  if (table.isNull())
    return false;
  constexpr bool kWithErased = false;
  id = table->getAt(name, kWithErased);
  return id.isValid();
}

} // namespace blockUtils
