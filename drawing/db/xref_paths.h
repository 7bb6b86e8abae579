// Paths of external references that move to another drawing.
#pragma once

#include "DbBlockTable.h"
#include "DbIdMapping.h"

namespace drawing::db {

// A path that starts at the folder of the source is spelled from that of the target, or in full when the target has no
// file. Paths of files that are not there stay as they are, and so does what is no external reference.
void rebaseXrefPath(OdDbBlockTableRecord& xref, const OdDbDatabase& source, const OdDbDatabase& target);
void rebaseXrefPaths(const OdDbIdMapping& mapping); // of the clones

} // namespace drawing::db
