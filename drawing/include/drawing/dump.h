// The canonical dump: a text that is equal for equal drawings.
#pragma once

#include "DbDatabase.h"

#include <string>

namespace drawing {

// How objects are named in a dump.
enum class DumpForm {
  kWithHandles,   // by handle: for round trips and undo
  kWithoutHandles // by kind and position: for drawings that were made in different ways
};

// All objects that are not erased with their groups, references and extended data, and the header, sorted; UTF-8.
// Version, code page and next free handle are omitted. Real numbers are the shortest texts that read back equal.
MVDRAWING_API std::string canonicalDump(const OdDbDatabase& database, DumpForm form = DumpForm::kWithHandles);

// Name of an object in the form without handles: "LAYER/0", "BLOCK_RECORD/door#3", "/ACAD_LAYOUT/Model".
MVDRAWING_API std::string canonicalName(OdDbObjectId id);

} // namespace drawing
