#include "DbSortentsTable.h"

#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "DbIdMapping.h"
#include "drawing/model/load_context.h"
#include "drawing/model/object_store.h"

#include "drawing/model/setters.h"
#include <algorithm>
#include <unordered_map>
#include <unordered_set>

MVDRAWING_DEFINE_OBJECT(OdDbSortentsTable, OdDbObject, "SORTENTSTABLE");

const drawing::Description& OdDbSortentsTable::ownDescription() {
  static const drawing::Description description(&OdDbObject::ownDescription(),
                                                {{"AcDbSortentsTable", {}, &readGroup, &writeGroups}});
  return description;
}

bool OdDbSortentsTable::readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context) {
  auto& table = static_cast<OdDbSortentsTable&>(object);
  std::uint64_t handle = 0;
  if (group.code == 330) {
    table.block_ = context.reference(group);
  } else if (group.code == 331) {
    table.entries_.push_back({context.reference(group), 0});
    table.positions_.drop();
  } else if (group.code == 5 && !table.entries_.empty()) {
    if (context.handle(group, handle))
      table.entries_.back().sortHandle = handle;
  } else {
    return false;
  }
  return true;
}

void OdDbSortentsTable::writeGroups(const OdDbObject& object, drawing::GroupSink& sink) {
  const auto& table = static_cast<const OdDbSortentsTable&>(object);
  sink.reference(330, table.block_);
  for (const Entry& entry : table.entries_) {
    sink.reference(331, entry.entity);
    sink.handle(5, entry.sortHandle);
  }
}

MVDRAWING_SETTER(OdDbSortentsTable, setBlockId, OdDbObjectId, block_)

const OdDbSortentsTable::Positions& OdDbSortentsTable::positions() const {
  if (positions_.get() == nullptr) {
    Positions& made = positions_.make();
    for (std::size_t i = 0; i < entries_.size(); ++i)
      made.emplace(entries_[i].entity, i);
  }
  return *positions_.get();
}

OdDbHandle OdDbSortentsTable::sortHandle(OdDbObjectId entity) const {
  const auto found = positions().find(entity);
  return found == positions().end() ? entity.getHandle() : entries_[found->second].sortHandle;
}

void OdDbSortentsTable::setSortHandle(OdDbObjectId entity, OdDbHandle handle) {
  assertWriteEnabled();
  const auto found = positions().find(entity);
  if (found != positions().end()) {
    entries_[found->second].sortHandle = handle;
    return;
  }
  positions_.get()->emplace(entity, entries_.size());
  entries_.push_back({entity, handle});
}

void OdDbSortentsTable::sort(std::vector<OdDbObjectId>& ids) const {
  std::vector<std::pair<std::uint64_t, OdDbObjectId>> keyed;
  keyed.reserve(ids.size());
  for (OdDbObjectId id : ids)
    keyed.emplace_back(sortHandle(id), id);
  std::stable_sort(keyed.begin(), keyed.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  std::transform(keyed.begin(), keyed.end(), ids.begin(), [](const auto& pair) { return pair.second; });
}

// The same set of sort handles, reassigned in the given order.
void OdDbSortentsTable::setOrder(const std::vector<OdDbObjectId>& ids) {
  assertWriteEnabled();
  std::vector<std::uint64_t> handles;
  for (OdDbObjectId id : ids)
    handles.push_back(id.getHandle());
  std::sort(handles.begin(), handles.end());
  entries_.clear();
  positions_.drop();
  for (std::size_t i = 0; i < ids.size(); ++i)
    entries_.push_back({ids[i], handles[i]});
}

namespace {

std::vector<OdDbObjectId> reordered(OdDbObjectId block, const OdDbObjectIdArray& moved, bool toTop) {
  const auto* record = drawing::getIf<OdDbBlockTableRecord>(block);
  if (record == nullptr)
    return {};
  const std::unordered_set<OdDbObjectId> chosen(moved.begin(), moved.end());
  std::vector<OdDbObjectId> all = record->drawOrder();
  std::stable_partition(all.begin(), all.end(), [&](OdDbObjectId id) { return (chosen.count(id) != 0) != toTop; });
  return all;
}

} // namespace

void OdDbSortentsTable::moveToBottom(const OdDbObjectIdArray& ids) {
  setOrder(reordered(block_, ids, false));
}
void OdDbSortentsTable::moveToTop(const OdDbObjectIdArray& ids) {
  setOrder(reordered(block_, ids, true));
}

void OdDbSortentsTable::visitReferences(drawing::ReferenceVisitor& visitor) {
  OdDbObject::visitReferences(visitor);
  visitor.visit(block_, OdDb::kSoftPointerRef);
  for (Entry& entry : entries_)
    visitor.visit(entry.entity, OdDb::kSoftPointerRef);
  positions_.drop();
}

void OdDbSortentsTable::visitReferences(drawing::ConstReferenceVisitor& visitor) const {
  OdDbObject::visitReferences(visitor);
  visitor.visit(block_, OdDb::kSoftPointerRef);
  for (const Entry& entry : entries_)
    visitor.visit(entry.entity, OdDb::kSoftPointerRef);
}

// The copy orders the clones as the originals were ordered, by the clones' own handles.
void OdDbSortentsTable::afterClone(const OdDbObject& source, OdDbIdMapping& mapping) {
  const auto& original = static_cast<const OdDbSortentsTable&>(source);
  std::vector<OdDbObjectId> ids;
  if (const auto* block = drawing::getIf<OdDbBlockTableRecord>(original.block_)) {
    for (OdDbObjectId id : block->drawOrder()) {
      if (const OdDbObjectId clone = mapping.valueOf(id); !clone.isNull())
        ids.push_back(clone);
    }
  }
  setOrder(ids);
}
