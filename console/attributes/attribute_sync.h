// References of a block whose attribute definitions have changed since.
#pragma once

#include "DbObjectId.h"
#include "OdString.h"

#include <vector>

namespace console {

struct SyncedAttributes {
  std::size_t references = 0;
  struct Surplus {
    OdDbObjectId reference;
    OdString tag, value;
  };
  std::vector<Surplus> surplus;     // has no definition any more, and is gone
  std::vector<OdDbObjectId> locked; // references that stay as they were
};

// Gives every reference of the block, and of the shapes that a dynamic one takes, the attributes that its definitions
// ask for: with the definitions' place, look and order. Values are kept, tag by tag in their order; what is new has the
// default. A reference stays as it was when its layer, or that of an attribute, is locked.
SyncedAttributes syncAttributes(OdDbObjectId block);

} // namespace console
