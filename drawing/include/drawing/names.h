// Names of records in symbol tables: validity, spaces, renaming.
#pragma once

#include "DbDatabase.h"

namespace drawing {

// Reason why a name is not valid.
enum class NameFault : std::uint8_t {
  kNone,
  kEmpty,
  kTooLong,         // 255 characters; 31 before 2000
  kCharacter,       // one of <>/\":;?*|,=` or a control character; before 2000 anything but letters, digits and $-_
  kSurroundingSpace // a space at the beginning or end
};

// Whether a record may have this name in drawings of that version. `at`, if not null, receives the position of a
// character that is not allowed.
MVDRAWING_API NameFault nameFault(const OdString& name, OdDb::DwgVersion version, int* at = nullptr);

// Whether it is the name of a space: *Model_Space, *Paper_Space, *Paper_Space0 ...
MVDRAWING_API bool isSpaceName(const OdString& name);

// Result of renaming.
enum class RenameResult : std::uint8_t {
  kDone,
  kUnknown, // no record has the old name
  kTaken,   // another record has the new name
  kFixed,   // the name is mandatory: layer 0, the standard styles ...
  kSpace,   // model space or a layout
  kAnonymous,
  kExternal, // an external reference or dependent on one
  kIllegal   // see nameFault for the version of the drawing
};

// Renames a record and updates everything that stores its name as text: header variables, layers in extended data,
// arrowheads of old dimension styles, the true name of a dynamic block. Other data that equals the name is not changed.
// Changing only the case is allowed. The record need not be open; the change is recorded for undo. Nothing is changed
// unless the result is Done.
MVDRAWING_API RenameResult renameRecord(OdDbDatabase& database, OdDb::SymbolTableKind kind, const OdString& from,
                                        const OdString& to);

} // namespace drawing
