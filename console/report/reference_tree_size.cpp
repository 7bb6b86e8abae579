#include "console/report/reference_tree.h"

#include "DbBlockTable.h"
#include "DbDynBlockReference.h"

#include <algorithm>
#include <unordered_map>

namespace console {
namespace {

// A definition on the way down.
struct Opened {
  OdDbObjectId id;
  std::vector<OdDbObjectId> inner; // definitions, once for each reference
  std::size_t next = 0;
  TreeSize size;
};

OdDbObjectId definitionId(const OdDbBlockReference& reference) {
  const OdDbDynBlockReference dynamic(&reference);
  return dynamic.isDynamicBlock() ? dynamic.dynamicBlockTableRecord() : reference.blockTableRecord();
}

Opened opened(OdDbObjectId id) {
  Opened open{id, {}, 0, {}};
  const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(id.safeOpenObject());
  if (block.isNull())
    return open;
  for (const auto iterator = block->newIterator(); !iterator->done(); iterator->step()) {
    const OdDbEntityPtr entity = iterator->entity();
    if (entity.isNull() || entity->isA() != OdDbBlockReference::desc())
      continue;
    const bool isSkipped =
        block->isFromExternalReference() && OdDbDynBlockReference(entity->objectId()).isDynamicBlock();
    if (!isSkipped)
      open.inner.push_back(definitionId(*OdDbBlockReferencePtr(entity)));
  }
  return open;
}

// Every node of the inner tree lies one deeper here.
void add(TreeSize& size, const TreeSize& inner) {
  size.nodes = std::min(size.nodes + inner.nodes, kMaxCounted);
  size.inChains = std::min(size.inChains + inner.inChains + inner.nodes, kMaxCounted);
}

} // namespace

TreeSize sizeOfTree(OdDbObjectId reference) {
  const OdDbBlockReferencePtr picked = reference.safeOpenObject();
  if (picked.isNull())
    return {};
  std::unordered_map<OdDbObjectId, std::optional<TreeSize>> sizes; // none: on the way down
  const OdDbObjectId top = definitionId(*picked);
  std::vector<Opened> stack{opened(top)};
  sizes[top];
  while (!stack.empty()) {
    Opened& at = stack.back();
    if (at.next == at.inner.size()) {
      sizes[at.id] = at.size;
      stack.pop_back();
      continue;
    }
    const OdDbObjectId inner = at.inner[at.next];
    const auto [known, isNew] = sizes.try_emplace(inner);
    if (isNew) {
      stack.push_back(opened(inner));
    } else if (!known->second) {
      return {kMaxCounted, kMaxCounted, true};
    } else {
      add(at.size, *known->second);
      ++at.next;
    }
  }
  return *sizes[top];
}

} // namespace console
