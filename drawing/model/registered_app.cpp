#include "drawing/model/registered_app.h"

#include "DbSymbolRecords.h"
#include "drawing/model/object_store.h"
#include "drawing/model/symbol_table_kinds.h"

namespace drawing {

void registerApplication(OdDbDatabase& database, const OdString& name) {
  auto* table = getIf<OdDbSymbolTable>(database.getRegAppTableId());
  if (table == nullptr || name.isEmpty() || table->has(name))
    return;
  const OdSmartPtr<OdDbSymbolTableRecord> record = recordClass(OdDb::kRegAppTable)->create();
  record->setName(name);
  const WriteScope scope(*table);
  table->add(record.get());
}

} // namespace drawing
