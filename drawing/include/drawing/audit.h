// Consistency check of a drawing.
#pragma once

#include "DbDatabase.h"

namespace drawing {

// Checks a drawing. Each finding is an issue with a stable code ("audit.owner-does-not-list" ...) and the handle and
// kind of the object; a consistent drawing has none. With `fix`, findings are repaired where possible, as part of the
// current undo step, and the issue states how; without it the drawing is not changed.
MVDRAWING_API Report auditDrawing(OdDbDatabase& database, bool fix = false);

} // namespace drawing
