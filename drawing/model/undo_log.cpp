#include "drawing/model/undo_log.h"

#include "DbDatabase.h"
#include "drawing/detail/member_list.h"
#include "drawing/model/object_store.h"

#include <algorithm>

namespace drawing {

void Undo::startGroup() {
  if (disabled_)
    return;
  groups_.resize(position_); // a new step ends the way forward
  if (position_ > 0 && current().entries.empty()) {
    current().mark = ++lastMark_;
    return;
  }
  Group group;
  group.mark = ++lastMark_;
  groups_.push_back(std::move(group));
  ++position_;
}

bool Undo::records() {
  if (disabled_)
    return false;
  if (canRedo())
    startGroup();
  return position_ > 0;
}

void Undo::objectChanges(OdDbObject& object) {
  ++changes_;
  if (!records() || object.undoMark_ == current().mark)
    return;
  object.undoMark_ = current().mark;
  Entry entry{Entry::kState, object.objectId(), nullptr, 0, {}, false};
  entry.state.reset(object.makeCopy());
  current().entries.push_back(std::move(entry));
}

void Undo::objectAdded(OdDbObject& object) {
  ++changes_;
  if (!records())
    return;
  object.undoMark_ = current().mark;
  current().entries.push_back({Entry::kAdded, object.objectId(), nullptr, 0, {}, false});
}

void Undo::listGrows(OdDbObject& container, std::size_t length) {
  ++changes_;
  if (!records())
    return;
  IdList& list = *container.memberList();
  if (std::exchange(list.undoMark, current().mark) != current().mark)
    current().entries.push_back({Entry::kGrown, container.objectId(), nullptr, length, {}, false});
}

std::vector<std::pair<OdDbObjectId, const OdDbObject*>> Undo::earlierStates() const {
  std::vector<std::pair<OdDbObjectId, const OdDbObject*>> states;
  if (position_ == 0)
    return states;
  for (const Entry& entry : groups_[position_ - 1].entries) {
    if (entry.kind == Entry::kState)
      states.emplace_back(entry.id, entry.state.get());
  }
  return states;
}

void Undo::swapState(Entry& entry) {
  OdDbObject* object = lookup(entry.id);
  std::unique_ptr<OdDbObject> now(object->makeCopy());
  if (object->isA() == entry.state->isA())
    object->assignState(*entry.state);
  else // the step made another kind of object of it
    Store::of(entry.id)->supersede(entry.id, entry.state.release());
  entry.state = std::move(now);
}

// Containers rebuild what they derive from their members.
void Undo::rebuildCaches(OdDbObjectId id) {
  OdDbObject* object = lookup(id);
  object->membersChanged();
  if (OdDbObject* owner = lookup(object->ownerId()))
    owner->membersChanged();
}

void Undo::revert(Entry& entry) {
  OdDbObject* object = lookup(entry.id);
  if (entry.kind == Entry::kState) {
    swapState(entry);
  } else if (entry.kind == Entry::kAdded) {
    entry.erased = object->erased_;
    object->erased_ = true;
  } else {
    entry.tail = object->memberList()->cut(entry.length);
  }
  rebuildCaches(entry.id);
}

void Undo::reapply(Entry& entry) {
  OdDbObject* object = lookup(entry.id);
  if (entry.kind == Entry::kState) {
    swapState(entry);
  } else if (entry.kind == Entry::kAdded) {
    object->erased_ = entry.erased;
  } else {
    for (OdDbObjectId id : entry.tail)
      object->memberList()->push(id);
    entry.tail.clear();
  }
  rebuildCaches(entry.id);
}

bool Undo::undo() {
  while (canUndo() && current().entries.empty()) { // a step without changes is discarded
    --position_;
    groups_.resize(position_);
  }
  if (!canUndo())
    return false;
  auto& entries = current().entries;
  std::for_each(entries.rbegin(), entries.rend(), [this](Entry& entry) { revert(entry); });
  --position_;
  ++changes_;
  return true;
}

bool Undo::redo() {
  if (!canRedo())
    return false;
  ++position_;
  for (Entry& entry : current().entries)
    reapply(entry);
  ++changes_;
  return true;
}

void Undo::rollback() {
  if (!canUndo())
    return;
  auto& entries = current().entries;
  std::for_each(entries.rbegin(), entries.rend(), [this](Entry& entry) { revert(entry); });
  groups_.resize(--position_);
}

} // namespace drawing
