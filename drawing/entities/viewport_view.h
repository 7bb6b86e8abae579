// What a viewport looks at. Since R13 it is in the viewport's own section, before in its extended data: under the
// application ACAD, as "MVIEW", a list whose order is the meaning, with angles in radians.
#pragma once

#include "DbDatabase.h"
#include "drawing/detail/groups.h"

namespace drawing {

// Appends the list unless there is one, or the section says nothing of a view.
void addViewportView(const GroupList& section, GroupList& xData);
// The section's groups for a list, without its marker; empty when there is none or it is not whole.
GroupList viewportViewOf(const GroupList& xData, const OdDbDatabase& database);

} // namespace drawing
