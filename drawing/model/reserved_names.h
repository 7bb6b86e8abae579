// Records that have their name for good: purging and renaming leave them alone.
#pragma once

#include "DbBlockTable.h"
#include "drawing/names.h"

namespace drawing {

bool isSpace(const OdDbBlockTableRecord& block);
// Every drawing has these, or programs expect them without a reference: spaces, layer 0, the standard styles ...
bool isNeeded(const OdDbSymbolTableRecord& record);
// An external reference, or a record that came with one.
bool isExternal(const OdDbSymbolTableRecord& record);
// A record that gets the name of its drawing in front when that is bound: SITE$0$WALLS.
bool isNamedAfterReference(const OdDbSymbolTableRecord& record);
OdString boundSymbolName(const OdString& reference, const OdString& name, unsigned number);
bool isAnyOf(const OdString& name, std::initializer_list<const wchar_t*> names);

} // namespace drawing
