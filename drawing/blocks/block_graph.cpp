#include "drawing/blocks/block_graph.h"

#include "DbBlockReference.h"
#include "DbDatabase.h"
#include "drawing/model/object_store.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace drawing {

namespace {

const OdDbBlockReference* aliveReference(OdDbObjectId id) {
  const auto* reference = getIf<OdDbBlockReference>(id);
  return reference == nullptr || reference->isErased() ? nullptr : reference;
}

} // namespace

bool reaches(OdDbObjectId from, OdDbObjectId target) {
  return reaches(std::vector{from}, target);
}

bool reaches(std::vector<OdDbObjectId> open, OdDbObjectId target) {
  std::unordered_set<OdDbObjectId> seen(open.begin(), open.end());
  while (!open.empty()) {
    const OdDbObjectId at = open.back();
    open.pop_back();
    if (at == target)
      return true;
    const auto* block = getIf<OdDbBlockTableRecord>(at);
    if (block == nullptr)
      continue;
    for (OdDbObjectId id : block->members().ids()) {
      const auto* reference = aliveReference(id);
      if (reference != nullptr && seen.insert(reference->blockTableRecord()).second)
        open.push_back(reference->blockTableRecord());
    }
  }
  return false;
}

namespace {

// Adds the references to one block, and to `open` the blocks that they stand in.
void addReferencesTo(const OdDbBlockTableRecord& block, std::vector<OdDbObjectId>& found,
                     std::vector<OdDbObjectId>& open) {
  for (OdDbObjectId id : block.referenceHistory()) {
    const auto* reference = aliveReference(id);
    if (reference == nullptr || reference->blockTableRecord() != block.objectId())
      continue;
    const auto* owner = getIf<OdDbBlockTableRecord>(reference->ownerId());
    if (!isAlive(owner))
      continue;
    found.push_back(id);
    open.push_back(owner->objectId());
  }
}

} // namespace

OdDbObjectIdArray referencesTo(const OdDbBlockTableRecord& block, bool directOnly) {
  std::vector<OdDbObjectId> found, open;
  addReferencesTo(block, found, open);
  std::unordered_set<OdDbObjectId> seen{block.objectId()};
  while (!directOnly && !open.empty()) {
    const OdDbObjectId at = open.back();
    open.pop_back();
    if (seen.insert(at).second)
      addReferencesTo(*getIf<OdDbBlockTableRecord>(at), found, open);
  }
  std::sort(found.begin(), found.end()); // ids compare by the order of coming
  OdDbObjectIdArray ids;
  for (auto at = found.begin(), end = std::unique(found.begin(), found.end()); at != end; ++at)
    ids.append(*at);
  return ids;
}

namespace {

// Depth-first over definitions with an explicit stack; each definition is left once all that it contains was left.
class BottomUp {
public:
  explicit BottomUp(std::vector<OdDbObjectId>& cut) : cut_(cut) {}

  void start(OdDbObjectId block) {
    if (enter(block))
      run();
  }
  std::vector<OdDbObjectId> order;

private:
  enum State : char { kOpen = 1, kDone = 2 };
  struct Frame {
    OdDbObjectId block;
    std::size_t next;
  };

  bool enter(OdDbObjectId block) {
    if (getIf<OdDbBlockTableRecord>(block) == nullptr || !states_.emplace(block, kOpen).second)
      return false;
    stack_.push_back({block, 0});
    return true;
  }

  void run() {
    while (!stack_.empty()) {
      Frame& frame = stack_.back();
      const auto& members = getIf<OdDbBlockTableRecord>(frame.block)->members().ids();
      if (frame.next == members.size()) {
        states_[frame.block] = kDone;
        order.push_back(frame.block);
        stack_.pop_back();
        continue;
      }
      follow(members[frame.next++]);
    }
  }

  void follow(OdDbObjectId member) {
    const auto* reference = aliveReference(member);
    if (reference == nullptr)
      return;
    auto known = states_.find(reference->blockTableRecord());
    if (known == states_.end())
      enter(reference->blockTableRecord());
    else if (known->second == kOpen)
      cut_.push_back(member);
  }

  std::vector<OdDbObjectId>& cut_;
  std::unordered_map<OdDbObjectId, State> states_;
  std::vector<Frame> stack_;
};

} // namespace

std::vector<OdDbObjectId> bottomUp(OdDbDatabase& database, std::vector<OdDbObjectId>& cut) {
  BottomUp sorting(cut);
  if (const auto* table = getIf<OdDbBlockTable>(database.getBlockTableId())) {
    for (OdDbObjectId id : table->members().ids()) {
      if (!id.isErased())
        sorting.start(id);
    }
  }
  return std::move(sorting.order);
}

namespace {

void addEntity(const OdDbEntity& entity, const std::unordered_map<OdDbObjectId, OdGeExtents3d>& known,
               OdGeExtents3d& extents) {
  OdGeExtents3d own;
  const auto* reference = dynamic_cast<const OdDbBlockReference*>(&entity);
  if (reference != nullptr) {
    auto inner = known.find(reference->blockTableRecord());
    if (inner != known.end() && inner->second.isValidExtents())
      own = reference->extentsOfContents(inner->second);
  } else if (entity.getGeomExtents(own) != eOk) {
    return;
  }
  if (own.isValidExtents())
    extents.addExt(own);
}

OdGeExtents3d extentsOfMembers(const OdDbBlockTableRecord& block,
                               const std::unordered_map<OdDbObjectId, OdGeExtents3d>& known) {
  OdGeExtents3d extents;
  for (OdDbObjectId id : block.members().ids()) {
    const auto* entity = getIf<OdDbEntity>(id);
    if (entity != nullptr && !entity->isErased())
      addEntity(*entity, known, extents);
  }
  return extents;
}

// The definitions below a block, inner ones first.
std::vector<OdDbObjectId> definitionsBelow(OdDbObjectId block) {
  std::vector<OdDbObjectId> cut;
  BottomUp sorting(cut);
  sorting.start(block);
  return std::move(sorting.order);
}

} // namespace

OdResult extentsOf(const OdDbBlockTableRecord& block, OdGeExtents3d& extents) {
  std::unordered_map<OdDbObjectId, OdGeExtents3d> known;
  for (OdDbObjectId id : definitionsBelow(block.objectId()))
    known[id] = extentsOfMembers(*getIf<OdDbBlockTableRecord>(id), known);
  extents = known[block.objectId()];
  return extents.isValidExtents() ? eOk : eDegenerateGeometry;
}

std::uint32_t nestingDepth(OdDbDatabase& database) {
  std::vector<OdDbObjectId> cut;
  std::unordered_map<OdDbObjectId, std::uint32_t> depths;
  std::uint32_t deepest = 0;
  for (OdDbObjectId id : bottomUp(database, cut)) {
    const auto& block = *getIf<OdDbBlockTableRecord>(id);
    std::uint32_t below = 0;
    for (OdDbObjectId member : block.members().ids()) {
      const auto* reference = aliveReference(member);
      const auto inner = reference == nullptr ? depths.end() : depths.find(reference->blockTableRecord());
      below = inner == depths.end() ? below : std::max(below, inner->second);
    }
    depths[id] = block.isLayout() ? below : below + 1;
    deepest = std::max(deepest, depths[id]);
  }
  return deepest;
}

} // namespace drawing
