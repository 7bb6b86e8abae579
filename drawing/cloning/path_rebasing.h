// Paths of files that an object shows, when the object moves to another drawing.
#pragma once

#include "DbBlockTable.h"
#include "DbIdMapping.h"

namespace drawing {

// External references, pictures and underlays. A path that starts at the folder of the source is spelled from that of
// the target, or in full when the target has no file. Paths of files that are not there stay as they are, and so does
// any other object.
void rebasePath(OdDbObject& object, const OdDbDatabase& source, const OdDbDatabase& target);
void rebasePaths(const OdDbIdMapping& mapping); // of the clones

} // namespace drawing
