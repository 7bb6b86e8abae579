// What R12 holds: the codes of each kind of record, and where records name others.
#pragma once

#include "OdDb.h"

#include <string_view>

namespace drawing::dxf {

// Whether R12 knows records of that name in the TABLES, BLOCKS and ENTITIES sections.
bool isR12Kind(std::string_view kind);
// Whether a record of the kind may hold the code; extended data aside.
bool hasR12Code(std::string_view kind, int code);
// The table whose record name is stored under the code; kNoTable if it is not a name.
OdDb::SymbolTableKind r12NameTable(std::string_view kind, int code);

// What a group means that R12 has no place for; "" when it says nothing that is lost: marks of the form, values that
// follow from elsewhere, and the plain value.
std::string_view r12Loss(std::string_view kind, int code, double value);

} // namespace drawing::dxf
