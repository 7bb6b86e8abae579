// Layouts and their blocks refer to each other; this finds and repairs broken links.
#pragma once

#include "DbDatabase.h"

#include <functional>

namespace drawing {

struct LayoutFault {
  enum Kind {
    kLayoutWithoutBlock, // the layout names no block, or one that another layout has
    kSpaceWithoutLayout, // model space or a paper space block that no layout refers to
    kBlockOfNoLayout     // an ordinary block that names a layout which names another block, or nothing
  } kind;
  OdDbObject& object;
  const char* done;    // what mending does, or did
  bool isMade = false; // that is to make a layout
};
using LayoutFaultHandler = std::function<void(const LayoutFault&)>;

// Calls `tell` for each fault in the order of ids; repairs it before if requested.
void checkLayouts(OdDbDatabase& database, bool repair, const LayoutFaultHandler& onFault);

// Makes a layout for the block under the next free name like `name`.
void makeLayoutFor(OdDbDatabase& database, OdDbObjectId block, const OdString& name, int order);

} // namespace drawing
