// Names and classes of the nine symbol tables.
#pragma once

#include "DbObject.h"

class OdDbSymbolTable;

namespace drawing {

OdRxClass* recordClass(OdDb::SymbolTableKind kind);
const char* tableDxfName(OdDb::SymbolTableKind kind);        // VPORT, LTYPE ...; also the name of the table's records
OdDb::SymbolTableKind tableKindOf(std::string_view dxfName); // kNoTable for no table's name
OdDb::SymbolTableKind tableKindOf(const OdRxClass* recordClass);

OdDbSymbolTable* newTable(OdDb::SymbolTableKind kind); // empty and free

} // namespace drawing
