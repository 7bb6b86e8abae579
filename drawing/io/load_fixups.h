// The last steps of a reading.
#pragma once

#include "drawing/model/load_context.h"

namespace drawing {

struct FixUpContext {
  OdDbDatabase& database;
  LoadContext& context;
  const Budget& budget;
};

// Completes a reading: references to placeholders are resolved to the records read, undefined names are reported,
// blocks get their ends, cycles of definitions are broken, objects without handle get one.
void fixUpAfterLoad(FixUpContext& fixUp);

} // namespace drawing
