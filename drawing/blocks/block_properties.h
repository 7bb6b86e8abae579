// What a block is beyond its contents and its name.
#pragma once

#include "DbBlockTable.h"

namespace drawing {

// Name of the dynamic block graph in the extension dictionary of a dynamic block.
extern const OdString kDynamicBlockKey;
OdDbObjectId dynamicBlockDataOf(OdDbObjectId block); // that entry; null when there is none

// Scaling, description, annotative properties and the identity of a dynamic block. The true name of a dynamic block
// stays behind: the copy has a name of its own.
void copyBlockProperties(const OdDbBlockTableRecord& from, OdDbBlockTableRecord& to);

} // namespace drawing
