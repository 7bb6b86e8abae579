// What every drawing must have.
#pragma once

#include "drawing/objects/layout_links.h"

#include <string>
#include <vector>

namespace drawing {

// Makes whatever every drawing holds and this one lacks: tables and their standard records, the spaces with their
// layouts, the named-objects dictionary. Answers what it made, for people; links between sheets and blocks that it had
// to mend go to `tell`.
std::vector<std::string> ensureBasics(OdDbDatabase& database, const LayoutFaultHandler& onFault = {});

} // namespace drawing
