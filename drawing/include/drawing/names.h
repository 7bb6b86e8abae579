// Names of records in symbol tables: which texts may be one, and changing them.
#pragma once

#include "DbDatabase.h"

namespace drawing {

enum class NameFault : std::uint8_t {
  None,
  Empty,
  TooLong,   // 255 characters; 31 before 2000
  Character, // one of <>/\":;?*|,=` or a control character; before 2000 anything but letters, digits and $-_
  Blank      // in front or at the end
};

// Whether drawings of that version can hold a record of the name. `at` receives the offending character's position.
MVDRAWING_API NameFault nameFault(const OdString& name, OdDb::DwgVersion version, int* at = nullptr);

enum class RenameResult : std::uint8_t {
  Done,
  Unknown, // no record of the old name
  Taken,   // another record has the new one
  Fixed,   // every drawing has it under this name: layer 0, the standard styles ...
  Space,   // model space or a sheet
  Anonymous,
  External, // an external reference or a part of one
  Illegal   // see nameFault for the drawing's version
};

// Gives a record another name, and says it to everyone who holds the name as text: variables of the header, layers in
// extended data, arrows of old dimension styles, the true name of a dynamic block. Data that only happens to read like
// the name stays. Changing the case alone is allowed. Undo takes it back.
MVDRAWING_API RenameResult renameRecord(OdDbDatabase& database, OdDb::SymbolTableKind kind, const OdString& from,
                                        const OdString& to);

} // namespace drawing
