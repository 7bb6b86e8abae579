// The undo log of a drawing.
//
// A group holds, in order, what one step changed: the earlier state of each changed object (once a group), objects
// that came in, and lists that grew. Taking a group back swaps states, so the same entries then lead forward again.
#pragma once

#include "DbObject.h"

#include <memory>
#include <vector>

namespace drawing {

class Undo {
public:
  Undo() = default;

  void startGroup();
  bool canUndo() const { return position_ > 0; }
  bool canRedo() const { return position_ < groups_.size(); }
  bool undo();
  bool redo();
  void rollback();
  void disable(bool disable) { disabled_ = disable; }
  std::uint64_t changes() const { return changes_; }

  // Called before the change.
  void objectChanges(OdDbObject& object);
  void objectAdded(OdDbObject& object);
  void listGrows(OdDbObject& container, std::size_t length);
  // The objects that changed in the current group, with their states at its start.
  std::vector<std::pair<OdDbObjectId, const OdDbObject*>> earlierStates() const;

private:
  struct Entry {
    enum Kind { kState, kAdded, kGrown } kind;
    OdDbObjectId id;
    std::unique_ptr<OdDbObject> state; // kState: the other state
    std::size_t length = 0;            // kGrown: length before
    std::vector<OdDbObjectId> tail;    // kGrown, undone: what came after it
    bool erased = false;               // kAdded, undone: whether the object was erased
  };
  struct Group {
    std::uint32_t mark = 0;
    std::vector<Entry> entries;
  };

  // Whether a change is recorded. A change while steps can be redone begins a separate step: those steps continue from
  // a state that no longer exists.
  bool records();
  Group& current() { return groups_[position_ - 1]; }
  void revert(Entry& entry);
  void reapply(Entry& entry);
  static void swapState(Entry& entry);
  void rebuildCaches(OdDbObjectId id);

  std::vector<Group> groups_;
  std::size_t position_ = 0; // groups before it are done, the others are undone
  std::uint32_t lastMark_ = 0;
  std::uint64_t changes_ = 0;
  bool disabled_ = false;
};

} // namespace drawing
