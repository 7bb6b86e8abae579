// Taking a block reference apart: what it shows takes its place, one level deep.
#pragma once

#include "DbObjectId.h"

#include <cstdint>
#include <string>
#include <vector>

namespace drawing {

enum class ExplodeRefusal {
  None,
  NotAReference, // or nothing is behind the id
  OnLockedLayer,
  External,   // the contents belong to another drawing
  NotAllowed, // the definition says that it cannot be exploded
  NoDefinition,
  CannotPlace, // some of the contents cannot stand as the reference shows them, see Exploded::unplaceable
  TooMuch      // rows and columns of it would be more objects than the limit
};

struct ExplodeOptions {
  // Values of attributes become texts, and constant definitions, too; else the definitions stand there and the values
  // are gone. Invisible ones become nothing.
  bool attributesAsText = false;
  std::uint64_t objects = 10'000'000; // the most that may be made
};

struct Exploded {
  struct Unplaceable {
    std::string kind; // as files name it
    OdDbObjectId object;
  };
  ExplodeRefusal refusal = ExplodeRefusal::None;
  OdDbObjectIdArray made;               // in drawing order; rows and columns one after the other
  std::vector<Unplaceable> unplaceable; // objects of the definition
  std::size_t valuesLost = 0;           // attributes that did not become texts
  bool clipLost = false;                // all of the definition is there, not only what a clip boundary let through
};

// Puts copies of what the definition holds where the reference shows them, in all rows and columns, and erases the
// reference. Nothing changes its look by it: what is by block takes the properties of the reference, what is on layer 0
// its layer; objects that cannot be by layer any more get the layer's colour, line type and weight as their own. When
// anything cannot stand so (a text under a shear, a nested reference turned under unequal scales) nothing is done, and
// it is told what. Layers of the contents may be locked; that of the reference may not.
MVDRAWING_API Exploded explodeReference(OdDbObjectId reference, const ExplodeOptions& options = {});

} // namespace drawing
