// The named blocks of the working drawing as JSON lists for dialogs.
//
// A list has an object for each ordinary definition, in table order: spaces, layouts, anonymous blocks, external
// references and blocks that depend on them are omitted. Without a working database the list is empty. A record of
// another class throws OdError_NotThatKindOfClass, one that does not open OdError with the reason. No function displays
// a message.
#pragma once

#include "blockcommon/export.h"
#include "morvane/config.h"

namespace blockUtils {

// Appends objects with "name" and "des", the comments, to the list. A null handle is set to a new list.
BLOCKCOMMON_API void getStatisticalCntsOfBT(MvJsonPtr& result);

// Returns a new list of objects with "name", "explodable", "blockId" (the handle as a number), "bUniform", "units" (a
// code), and "insunits": the factor of the unit of the drawing (INSUNITS, in millimetres) as text, decimal, or
// scientific from 1e-06 down. The factor is 1 if block or drawing is unitless and if the host does not know the unit;
// the text is empty for a factor that cannot be formatted.
BLOCKCOMMON_API MvJsonPtr getStatisticalCntsOfBT();

} // namespace blockUtils
