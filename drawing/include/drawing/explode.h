// Exploding a block reference: its contents replace it, one level deep.
#pragma once

#include "DbObjectId.h"

#include <cstdint>
#include <string>
#include <vector>

namespace drawing {

// Reason why a reference was not exploded.
enum class ExplodeRefusal {
  kNone,
  kNotAReference, // or the id does not open
  kOnLockedLayer,
  kExternal,   // the contents belong to another drawing
  kNotAllowed, // the definition does not permit it
  kNoDefinition,
  kCannotPlace, // some entities do not accept the matrix of the reference, see Exploded::unplaceable
  kTooMuch      // rows and columns would give more objects than the limit
};

// Options of exploding.
struct ExplodeOptions {
  // Values of attributes, and constant definitions, become texts; otherwise the definitions are copied and the values
  // are lost. Invisible ones are dropped.
  bool attributesAsText = false;
  std::uint64_t objects = 10'000'000; // limit of new objects
};

// Result of exploding.
struct Exploded {
  // An entity of the definition that cannot be transformed.
  struct Unplaceable {
    std::string kind; // as in files
    OdDbObjectId object;
  };
  ExplodeRefusal refusal = ExplodeRefusal::kNone;
  OdDbObjectIdArray made;               // new entities in draw order, rows and columns one after the other
  std::vector<Unplaceable> unplaceable; // entities of the definition
  std::size_t valuesLost = 0;           // attributes that did not become texts
  bool clipLost = false;                // the reference was clipped; the new entities are not
};

// Appends copies of the entities of the definition, transformed as the reference displays them in all rows and columns,
// to the block of the reference, and erases the reference. The appearance is kept: properties by block become those of
// the reference, entities on layer 0 get its layer, and entities that cannot be by layer any more get colour, linetype
// and lineweight of the layer. If an entity does not accept the matrix (a text that would be sheared, a nested
// reference that is rotated under unequal scales) nothing is changed. Layers of the contents may be locked; that of the
// reference must not be.
MVDRAWING_API Exploded explodeReference(OdDbObjectId reference, const ExplodeOptions& options = {});

} // namespace drawing
