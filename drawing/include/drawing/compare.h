// Comparison of definitions and records.
#pragma once

#include "DbObjectId.h"

namespace drawing {

// Whether both blocks (definitions, or spaces) contain equal objects in the same order and with equal properties,
// nested definitions included. Names of layers, linetypes and styles are compared, without regard to case; names and
// handles of the blocks and of nested definitions, and persistent reactors, are not. The blocks may belong to different
// drawings. False if one of the ids is not a block. Each pair of definitions is compared once, so the time is linear in
// the size of the drawings.
MVDRAWING_API bool sameDefinition(OdDbObjectId one, OdDbObjectId other);

// Whether two records of the same table (layers, linetypes, styles) have equal properties. False for other objects.
MVDRAWING_API bool sameRecord(OdDbObjectId one, OdDbObjectId other);

} // namespace drawing
