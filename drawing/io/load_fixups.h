// The last steps of a reading.
#pragma once

#include "drawing/model/load_context.h"

namespace drawing {

struct FixUpContext {
  OdDbDatabase& database;
  LoadContext& context;
  const Budget& budget;
};

// Ends a reading: references to stand-ins go to the records that came, what was named and never came is told, blocks
// get their ends, cycles of definitions are cut, objects without handle get one.
void fixUpAfterLoad(FixUpContext& fixUp);

} // namespace drawing
