// What is loaded for the external references of one drawing. Belongs to the drawing in memory, not to its state.
#pragma once

#include "DbDatabase.h"
#include "drawing/xref.h"

#include <unordered_map>

namespace drawing {

struct XrefEntry {
  XrefStatus status = XrefStatus::kNotLoaded;
  OdDbDatabasePtr database; // kLoaded. Drawings hold each other in one direction only: a cycle is cut.
  OdDbObjectId back;        // kCycle: a record of the drawing it leads back to, which may be gone by now
};

class XrefTable {
public:
  const XrefEntry* find(OdDbObjectId block) const {
    const auto found = entries_.find(block);
    return found == entries_.end() ? nullptr : &found->second;
  }
  void set(OdDbObjectId block, XrefEntry entry) { entries_[block] = std::move(entry); }
  void clear() { entries_.clear(); }

private:
  std::unordered_map<OdDbObjectId, XrefEntry> entries_;
};

} // namespace drawing
