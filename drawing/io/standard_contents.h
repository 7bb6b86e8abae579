// What every drawing must have.
#pragma once

#include "drawing/objects/layout_links.h"

#include <string>
#include <vector>

namespace drawing {

// Creates the missing mandatory contents of a drawing: tables and their standard records, the spaces with their
// layouts, the named-objects dictionary. Returns a description of what was created; repaired links between layouts and
// blocks are passed to `tell`.
std::vector<std::string> ensureBasics(OdDbDatabase& database, const LayoutFaultHandler& onFault = {});

} // namespace drawing
