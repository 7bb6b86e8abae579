// Renaming as the command and the sub-verb do it.
#pragma once

#include "console/session/session.h"

namespace console {

// "block", "layer", "line type", "text style", "dimension style"
const char* renameKindName(OdDb::SymbolTableKind kind);
// Throws and changes nothing when the record cannot have the name.
void renameSymbolRecord(Session& session, OdDb::SymbolTableKind kind, const OdString& from, const OdString& to);

} // namespace console
