// Checks that a drawing hangs together.
#pragma once

#include "DbDatabase.h"

namespace drawing {

// Every finding is an issue with a stable code ("audit.owner-does-not-list" ...), the object's handle and kind. With
// `fix` what can be mended is mended (as one undoable change when undo records), and the issue says how; without, the
// drawing is only read. A sound drawing has no issues.
MVDRAWING_API Report auditDrawing(OdDbDatabase& database, bool fix = false);

} // namespace drawing
