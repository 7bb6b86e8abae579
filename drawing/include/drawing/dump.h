// The canonical dump: a text that is equal for equal drawings.
#pragma once

#include "DbDatabase.h"

#include <string>

namespace drawing {

enum class DumpForm {
  WithHandles,   // objects by handle: for round trips and undo
  WithoutHandles // objects by what they are and where: for drawings that came about in different ways
};

// Every living object with all its groups, references and extended data, and the header. Left out is what says how a
// drawing was stored: version, code page, the next free handle. Reals are the shortest texts that read back equal.
MVDRAWING_API std::string canonicalDump(const OdDbDatabase& database, DumpForm form = DumpForm::WithHandles);

// The names by which the form without handles calls objects: "LAYER/0", "BLOCK_RECORD/door#3", "/ACAD_LAYOUT/Model".
MVDRAWING_API std::string canonicalName(OdDbObjectId id);

} // namespace drawing
