// The member list of a container (a table's records, a block's entities): grows at its end only.
//
// The list is part of the container's identity, not of its state: undo keeps its length instead of copying it, so
// adding to a block of a million entities costs what it adds. Erased members stay in the list and are passed over.
#pragma once

#include "DbObjectId.h"

#include <algorithm>
#include <vector>

namespace drawing {

class IdList {
public:
  IdList() = default;
  IdList(const IdList&) {}
  IdList& operator=(const IdList&) { return *this; }

  std::size_t size() const { return ids_.size(); }
  OdDbObjectId operator[](std::size_t i) const { return ids_[i]; }
  const std::vector<OdDbObjectId>& ids() const { return ids_; }
  void push(OdDbObjectId id) { ids_.push_back(id); }
  void reserve(std::size_t count) { ids_.reserve(count); }
  // `fresh` takes the place of `old`.
  void replace(OdDbObjectId old, OdDbObjectId fresh) { std::replace(ids_.begin(), ids_.end(), old, fresh); }
  // Cuts the list and answers what stood behind.
  std::vector<OdDbObjectId> cut(std::size_t length) {
    const auto from = ids_.begin() + static_cast<std::ptrdiff_t>(length);
    std::vector<OdDbObjectId> tail(from, ids_.end());
    ids_.erase(from, ids_.end());
    return tail;
  }

  std::uint32_t undoMark = 0; // the undo group that already knows the list's length

private:
  std::vector<OdDbObjectId> ids_;
};

// Walks a container in order of addition. Members added during the walk are met too.
class MVDRAWING_API ObjectIterator {
public:
  ObjectIterator(OdDbObjectId container, bool skipErased);
  bool done() const;
  void start();
  void step();
  OdDbObjectId objectId() const; // null when done
  OdDbObjectPtr object(OdDb::OpenMode mode = OdDb::kForRead, bool openErased = false) const;

private:
  void settle();
  const IdList* list() const;

  OdDbObjectId container_;
  std::size_t at_ = 0;
  bool skipErased_;
};

} // namespace drawing
