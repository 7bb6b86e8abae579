// Where drawings before 2007 hold the units of a block: among its record's extended data, under the application ACAD,
// as "DesignCenter Data" { 1, units }.
#pragma once

#include "drawing/detail/groups.h"

namespace drawing {

// Takes the units out of the extended data; false, and nothing is changed, when they are not there in that shape.
bool takeUnits(GroupList& xData, std::int16_t& units);
void putUnits(GroupList& xData, std::int16_t units);

} // namespace drawing
