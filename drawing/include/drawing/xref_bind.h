// External references that become ordinary blocks, or go.
#pragma once

#include "DbDatabase.h"
#include "drawing/xref.h"

namespace drawing {

struct BoundXref {
  bool isDone = false;
  OdString obstacle;                         // refused: the reference, or the one in it, that is not loaded
  XrefStatus status = XrefStatus::NotAnXref; // and what came of loading it
  std::vector<OdString> leftOut;             // overlays inside, which nobody sees
};

// Makes an external reference an ordinary block with the contents of its drawing, and the same of those that are nested
// in it. What comes along is named after the reference: WALLS of SITE is SITE$0$WALLS, or $1$ where that is taken;
// layer 0 and the like are those of `database`. What it held of the reference ("SITE|WALLS") gets these names and keeps
// its state. References to the block stay as they are. One that is not loaded, and one with a nested reference that is
// not, is refused: nothing has changed then.
MVDRAWING_API BoundXref bindXref(OdDbDatabase& database, OdDbObjectId block);

struct DetachedXref {
  OdResult result = eOk; // why nothing was done: eInvalidInput for what is no external reference, eOnLockedLayer ...
  std::size_t references = 0; // that were erased
};

// Erases an external reference with everything that shows it, in definitions as well. Of what the drawing held of it
// ("SITE|WALLS") goes what nothing uses; the rest is its own from now on, as SITE$0$WALLS.
MVDRAWING_API DetachedXref detachXref(OdDbDatabase& database, OdDbObjectId block);

} // namespace drawing
