// The records of a symbol table as a range.
#pragma once

#include "DbDatabase.h"
#include "DbSymbolTable.h"
#include "drawing/model/object_store.h"

#include <vector>

namespace drawing {

// The records of that class that a table of the drawing lists and that are not erased, in the order of the table.
template <class Record>
std::vector<Record*> recordsOf(const OdDbDatabase& database, OdDb::SymbolTableKind kind) {
  std::vector<Record*> records;
  if (const auto* table = getIf<OdDbSymbolTable>(database.getSymbolTableId(kind))) {
    for (const OdDbObjectId id : table->members().ids()) {
      if (auto* record = getIf<Record>(id); isAlive(record))
        records.push_back(record);
    }
  }
  return records;
}

} // namespace drawing
