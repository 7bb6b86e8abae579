// Position and scale of a reference.
#pragma once

#include "console/session/session.h"

#include "DbBlockReference.h"

namespace console {

struct Placement {
  OdGePoint3d at;             // in the current UCS
  OdGeScale3d scale{1, 1, 1}; // besides the factor of units
  double rotation = 0;        // radians, about the z axis of the UCS
  std::int16_t rows = 1, columns = 1;
  double rowSpacing = 0, columnSpacing = 0; // in units of the drawing, along the axes of the reference
};

// Units of the drawing for one unit of the block; 1 when one of the two has none.
double unitsFactor(const OdDbDatabase& database, OdDb::UnitsValue ofBlock);
double unitsFactor(OdDbObjectId block);

// Puts a reference into the current space, on the current layer; it has no attributes yet. Throws for a scale of 0, for
// unequal scales of a block that is scaled uniformly, for an external drawing, and where the block would contain
// itself.
OdDbBlockReferencePtr placeReference(Session& session, OdDbObjectId block, const Placement& placement);

} // namespace console
