// Whether two definitions, or two records, say the same.
#pragma once

#include "DbObjectId.h"

namespace drawing {

// Whether both blocks (definitions, or spaces) hold the same objects in the same order, with the same properties, and
// nested definitions that are the same in turn. Compared are names of layers, line types and styles, without regard to
// case; names and handles of the blocks themselves and of what is nested are not, nor who else watches the objects.
// The blocks may belong to different drawings. False when one of the ids is no block's. Each pair of definitions is
// compared once, so no nesting costs more than the drawings are large.
MVDRAWING_API bool sameDefinition(OdDbObjectId one, OdDbObjectId other);

// Whether two records of the same table (layers, line types, styles) have the same properties. False for other objects.
MVDRAWING_API bool sameRecord(OdDbObjectId one, OdDbObjectId other);

} // namespace drawing
