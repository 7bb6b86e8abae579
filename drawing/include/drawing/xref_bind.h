// Binding and detaching external references.
#pragma once

#include "DbDatabase.h"
#include "drawing/xref.h"

namespace drawing {

// Result of binding.
struct BoundXref {
  bool isDone = false;
  OdString obstacle;                          // refused: name of the reference, or of a nested one, that is not loaded
  XrefStatus status = XrefStatus::kNotAnXref; // and its status
  std::vector<OdString> omittedOverlays;      // nested overlays, which are not bound
};

// Makes an external reference an ordinary block with the contents of its drawing; nested references are bound as well.
// Cloned records are named after the reference: WALLS of SITE becomes SITE$0$WALLS, or $1$ if that name is in use;
// mandatory records such as layer 0 are those of `database`. Dependent records ("SITE|WALLS") get these names and keep
// their properties. References to the block are not changed. If the reference or a nested one is not loaded, nothing is
// changed.
MVDRAWING_API BoundXref bindXref(OdDbDatabase& database, OdDbObjectId block);

// Result of detaching.
struct DetachedXref {
  OdResult result =
      eOk; // reason why nothing was changed: eInvalidInput if it is not an external reference, eOnLockedLayer
  std::size_t references = 0; // block references that were erased
};

// Erases an external reference and all block references to it, those in definitions included. Dependent records
// ("SITE|WALLS") that are not used are erased; the others become ordinary records (SITE$0$WALLS).
MVDRAWING_API DetachedXref detachXref(OdDbDatabase& database, OdDbObjectId block);

} // namespace drawing
