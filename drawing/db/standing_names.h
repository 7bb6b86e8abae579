// Records that have their name for good: purging and renaming leave them alone.
#pragma once

#include "DbBlockTable.h"

namespace drawing::db {

bool isSpaceName(const OdString& name); // *Model_Space, *Paper_Space, *Paper_Space0 ...
bool isSpace(const OdDbBlockTableRecord& block);
// Every drawing has these, or programs expect them without a reference: spaces, layer 0, the standard styles ...
bool isNeeded(const OdDbSymbolTableRecord& record);
// An external reference, or a record that came with one.
bool isExternal(const OdDbSymbolTableRecord& record);
bool isAnyOf(const OdString& name, std::initializer_list<const wchar_t*> names);

} // namespace drawing::db
