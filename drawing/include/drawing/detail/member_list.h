// The member list of a container (records of a table, entities of a block): grows at its end only.
//
// Containers hold it as NotCopied: undo records its length instead of copying it, so adding to a block of a million
// entities costs only what is added. Erased members stay in the list and are skipped.
#pragma once

#include "DbObjectId.h"
#include "drawing/detail/not_copied.h"

#include <algorithm>
#include <vector>

namespace drawing {

// The list.
class IdList {
public:
  // Access and growth; indices are not checked.
  std::size_t size() const { return ids_.size(); }
  OdDbObjectId operator[](std::size_t i) const { return ids_[i]; }
  const std::vector<OdDbObjectId>& ids() const { return ids_; }
  void push(OdDbObjectId id) { ids_.push_back(id); }
  void reserve(std::size_t count) { ids_.reserve(count); }
  // Puts `fresh` in the position of `old`.
  void replace(OdDbObjectId old, OdDbObjectId fresh) { std::replace(ids_.begin(), ids_.end(), old, fresh); }
  // Shortens the list to that length, which must not exceed its own, and returns the ids that were after it.
  std::vector<OdDbObjectId> cut(std::size_t length) {
    const auto from = ids_.begin() + static_cast<std::ptrdiff_t>(length);
    std::vector<OdDbObjectId> tail(from, ids_.end());
    ids_.erase(from, ids_.end());
    return tail;
  }

  std::uint32_t undoMark = 0; // the undo group that already has the length of the list

private:
  std::vector<OdDbObjectId> ids_;
};

// Iterates a container in order of addition. Members added meanwhile are visited as well; a member that is erased while
// it is the current one remains so.
class MVDRAWING_API ObjectIterator {
public:
  // Position: start goes to the first member. done is true at the end, for a container that does not exist and for an
  // object that is not a container.
  ObjectIterator(OdDbObjectId container, bool skipErased);
  bool done() const;
  void start();
  void step();

  // The current member; null at the end. The pointer is null as well if it does not open.
  OdDbObjectId objectId() const;
  OdDbObjectPtr object(OdDb::OpenMode mode = OdDb::kForRead, bool openErased = false) const;

private:
  void skipErasedMembers();
  const IdList* list() const;

  OdDbObjectId container_;
  std::size_t at_ = 0;
  bool skipErased_;
};

} // namespace drawing
