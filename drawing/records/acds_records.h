// Data of objects that is in a section of the drawing instead of the object: the bodies of solids since 2013.
#pragma once

#include "DbDatabase.h"

namespace drawing {

// Gives the copy a record of its own when the source has one. The target's section is made when it has none. Records
// of objects that are gone are not taken out of the section: undo brings objects back.
void copyBodyRecords(const OdDbObject& source, const OdDbObject& copy);

// What a section holds for files and dumps: all but the records of erased objects; nothing at all of a section that was
// made for records which are all gone.
GroupList aliveGroups(const OdDbDatabase& database, const OpaqueSection& subclass);

} // namespace drawing
