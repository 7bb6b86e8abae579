// The named blocks of the working drawing as JSON lists for dialogs.
//
// A list has an object for each ordinary definition, in table order: spaces, layouts, anonymous blocks, external
// references and what depends on them are left out. Without a working database the list is empty. A record of another
// class throws OdError_NotThatKindOfClass, one that does not open OdError with the reason. No message is shown.
#pragma once

#include "blockcommon/export.h"
#include "morvane/config.h"

namespace blockUtils {

// Appends objects with "name" and "des", the comments, to the list. A null handle gets a new list.
BLOCKCOMMON_API void getStatisticalCntsOfBT(MvJsonPtr& result);

// A new list of objects with "name", "explodable", "blockId" (the handle as a number), "bUniform", "units" (a code),
// and "insunits": the factor of the drawing's unit as text, in decimals, or in scientific form from 1e-06 down. The
// factor is 1 when block or drawing has no unit and when the host knows none; a factor without a text is empty.
BLOCKCOMMON_API MvJsonPtr getStatisticalCntsOfBT();

} // namespace blockUtils
