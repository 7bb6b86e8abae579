// Sheets and the blocks that hold their contents name each other; this finds and mends where they do not.
#pragma once

#include "DbDatabase.h"

#include <functional>

namespace drawing {

struct LayoutFault {
  enum Kind {
    kLayoutWithoutBlock, // the layout names no block, or one that another layout has
    kSpaceWithoutLayout, // model space or a sheet that no layout names
    kBlockOfNoLayout     // an ordinary block that names a layout which names another block, or nothing
  } kind;
  OdDbObject& object;
  const char* done;    // what mending does, or did
  bool isMade = false; // that is to make a layout
};
using LayoutFaultHandler = std::function<void(const LayoutFault&)>;

// Calls `tell` for each fault in the order of ids; mends it before when that is asked for.
void checkLayouts(OdDbDatabase& database, bool repair, const LayoutFaultHandler& onFault);

// Makes a layout for the block under the next free name like `name`.
void makeLayoutFor(OdDbDatabase& database, OdDbObjectId block, const OdString& name, int order);

} // namespace drawing
