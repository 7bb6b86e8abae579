// Which of the selected objects go into a block.
#pragma once

#include "console/session/session.h"

#include "DbObjectId.h"

#include <map>
#include <string>

namespace console {

struct BlockObjects {
  OdDbObjectIdArray ids;   // attribute definitions last, in the order of picking
  std::size_t locked = 0;  // skipped
  std::size_t cameras = 0; // skipped
};

// Skips objects on locked layers and cameras, and reports their number. Throws if none is left, and for objects that
// contain the block of this name: then the chain is reported.
BlockObjects objectsForBlock(Session& session, const OdString& name, const OdDbObjectIdArray& picked);

// One way, of the shortest, from the definition through the objects back to it: "door" contains "leaf" (reference 2F)
// contains "door" (reference 1A). Empty when they do not lead there. Each definition is looked through once.
OdString chainBackTo(OdDbObjectId block, const OdDbObjectIdArray& ids);

// How many of each type are not among those that were taken.
std::map<std::string, std::size_t> missingByType(const OdDbObjectIdArray& all, const OdDbObjectIdArray& taken);

} // namespace console
