#include "drawing/blocks/block_properties.h"

#include "DbDatabase.h"
#include "DbDictionary.h"
#include "drawing/model/object_store.h"
#include "drawing/model/registered_app.h"

namespace drawing {

const OdString kDynamicBlockKey = L"ACAD_ENHANCEDBLOCK";

OdDbObjectId dynamicBlockDataOf(OdDbObjectId block) {
  const auto* record = getIf<OdDbBlockTableRecord>(block);
  const auto* entries = record == nullptr ? nullptr : getIf<OdDbDictionary>(record->extensionDictionary());
  const OdDbObjectId entry = isAlive(entries) ? entries->getAt(kDynamicBlockKey) : OdDbObjectId();
  return isAlive(entry) ? entry : OdDbObjectId();
}

void copyBlockProperties(const OdDbBlockTableRecord& from, OdDbBlockTableRecord& to) {
  to.setBlockScaling(from.blockScaling());
  to.setComments(from.comments());
  for (const wchar_t* application : {L"AcadAnnotative", L"AcadAnnoPO", L"AcDbDynamicBlockGUID"}) {
    const OdResBufPtr data = from.xData(application);
    if (data.isNull())
      continue;
    registerApplication(*to.database(), application);
    to.setXData(data.get());
  }
}

} // namespace drawing
