#include "drawing/xref_bind.h"

#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "drawing/blocks/block_graph.h"
#include "drawing/cloning/clone.h"
#include "drawing/model/object_store.h"
#include "drawing/model/reserved_names.h"
#include "drawing/xref/xref_blocks.h"

#include <unordered_set>

namespace drawing {
namespace {

// Whether all that the reference shows is there; loading has cut the circles.
bool mayBind(const OdDbBlockTableRecord& reference, BoundXref& result) {
  std::vector<const OdDbBlockTableRecord*> open{&reference};
  std::unordered_set<const OdDbDatabase*> seen;
  while (!open.empty()) {
    const OdDbBlockTableRecord& at = *open.back();
    open.pop_back();
    const OdDbDatabase* external = at.xrefDatabase();
    if (at.xrefStatus() == XrefStatus::kNotFollowed && &at != &reference)
      continue;
    if (external == nullptr) {
      result.obstacle = at.getName();
      result.status = at.xrefStatus();
      return false;
    }
    if (!seen.insert(external).second)
      continue;
    for (const OdDbBlockTableRecord* nested : xrefsIn(*external)) {
      if (reaches(external->getModelSpaceId(), nested->objectId()))
        open.push_back(nested);
    }
  }
  return true;
}

void erase(OdDbObject& object) {
  const WriteScope scope(object);
  object.erase();
}

// Records that the drawing holds of the reference: SITE|WALLS.
std::vector<OdDbSymbolTableRecord*> dependentRecords(const OdDbDatabase& database, const OdString& reference,
                                                     OdDb::SymbolTableKind kind) {
  const OdString start = reference + L'|';
  auto dependents = recordsOf<OdDbSymbolTableRecord>(database, kind);
  std::erase_if(dependents, [&start](const OdDbSymbolTableRecord* record) {
    return record->getName().left(start.getLength()).iCompare(start) != 0;
  });
  return dependents;
}

OdString ownName(const OdString& reference, const OdDbSymbolTableRecord& record) {
  return record.getName().mid(reference.getLength() + 1);
}

// An ordinary record from now on: SITE$0$WALLS.
void bindRecord(OdDbSymbolTableRecord& record, const OdString& reference) {
  const OdString own = ownName(reference, record);
  OdString name;
  unsigned n = 0;
  do {
    name = boundSymbolName(reference, own, n++);
  } while (!record.database()->symbol(record.tableKind(), name).isNull());
  const WriteScope scope(record);
  record.setName(name);
  record.setFlag(OdDbSymbolTableRecord::kDependent | OdDbSymbolTableRecord::kResolved, false);
}

class Binding {
public:
  Binding(OdDbDatabase& database, BoundXref& result) : database_(database), result_(result) {}

  OdResult run(OdDbBlockTableRecord& reference) {
    open_.push_back({&reference, reference.xrefDatabase()});
    while (!open_.empty()) {
      const Frame frame = open_.back();
      open_.pop_back();
      if (const OdResult result = bind(*frame.block, *frame.external); result != eOk)
        return result;
    }
    return eOk;
  }

private:
  struct Frame {
    OdDbBlockTableRecord* block; // of the drawing
    OdDbDatabase* external;
  };

  OdResult bind(OdDbBlockTableRecord& block, OdDbDatabase& external) {
    const std::vector<OdDbObjectId> before = block.members().ids();
    const auto& space = *getIf<OdDbBlockTableRecord>(external.getModelSpaceId());
    OdDbIdMapping mapping;
    mapping.setOrigDb(&external);
    mapping.setDestDb(&database_);
    Cloner cloner(external, database_, block.objectId(), mapping, OdDb::kDrcIgnore);
    cloner.bindTo(block.getName(), takeOverRecords(block.getName(), external));
    if (const OdResult result = cloner.run(space.drawOrder()); result != eOk)
      return result;
    for (const OdDbObjectId& id : before) {
      if (isAlive(id))
        erase(*lookup(id));
    }
    replaceDefinitions(block.getName(), external, mapping);
    makeOrdinary(block, external);
    for (const OdDbBlockTableRecord* nested : xrefsIn(external))
      follow(*nested, mapping.valueOf(nested->objectId()));
    return eOk;
  }

  // Records other than definitions that the drawing held of the reference stay, under their new names.
  std::unordered_map<OdDbObjectId, OdDbObjectId> takeOverRecords(const OdString& name, const OdDbDatabase& external) {
    std::unordered_map<OdDbObjectId, OdDbObjectId> replacements;
    for (int kind = 0; kind < OdDb::kBlockTable; ++kind) {
      const auto tableKind = static_cast<OdDb::SymbolTableKind>(kind);
      for (OdDbSymbolTableRecord* record : dependentRecords(database_, name, tableKind)) {
        const OdDbObjectId externalId = external.symbol(tableKind, ownName(name, *record));
        bindRecord(*record, name);
        if (!externalId.isNull())
          replacements.emplace(externalId, record->objectId());
      }
    }
    return replacements;
  }

  // Definitions that the drawing held of the reference were names without contents.
  void replaceDefinitions(const OdString& name, const OdDbDatabase& external, const OdDbIdMapping& mapping) {
    for (OdDbSymbolTableRecord* record : dependentRecords(database_, name, OdDb::kBlockTable)) {
      auto& dependent = static_cast<OdDbBlockTableRecord&>(*record);
      const OdDbObjectId externalId = external.symbol(OdDb::kBlockTable, ownName(name, dependent));
      const OdDbObjectId bound = mapping.valueOf(externalId);
      const OdDbObjectIdArray references = dependent.getBlockReferenceIds();
      if (bound.isNull() && !references.isEmpty()) {
        bindRecord(dependent, name);
        continue;
      }
      for (const OdDbObjectId& id : references) {
        auto& reference = *getIf<OdDbBlockReference>(id);
        const WriteScope scope(reference);
        reference.setBlockTableRecord(bound);
      }
      erase(dependent);
    }
  }

  static void makeOrdinary(OdDbBlockTableRecord& block, const OdDbDatabase& external) {
    const WriteScope scope(block);
    block.setXref({});
    block.setIsUnloaded(false);
    block.setFlag(OdDbSymbolTableRecord::kDependent | OdDbSymbolTableRecord::kResolved, false);
    block.setOrigin(external.getINSBASE());
    block.setBlockInsertUnits(external.getINSUNITS());
    block.ensureEnds();
  }

  // A reference inside the one that was bound; `here` is its copy in the drawing.
  void follow(const OdDbBlockTableRecord& nested, OdDbObjectId here) {
    auto* block = getIf<OdDbBlockTableRecord>(here);
    if (!isAlive(block))
      return;
    if (OdDbDatabase* external = nested.xrefDatabase()) {
      open_.push_back({block, external});
      return;
    }
    result_.omittedOverlays.push_back(nested.getName());
    for (const OdDbObjectId& id : block->getBlockReferenceIds())
      erase(*lookup(id));
    erase(*block);
  }

  OdDbDatabase& database_;
  BoundXref& result_;
  std::vector<Frame> open_;
};

} // namespace

BoundXref bindXref(OdDbDatabase& database, OdDbObjectId id) {
  BoundXref result;
  auto* block = getIf<OdDbBlockTableRecord>(id);
  if (!isAlive(block) || id.database() != &database || !block->isFromExternalReference())
    return result;
  if (mayBind(*block, result))
    result.isDone = Binding(database, result).run(*block) == eOk;
  return result;
}

DetachedXref detachXref(OdDbDatabase& database, OdDbObjectId id) {
  DetachedXref result;
  auto* block = getIf<OdDbBlockTableRecord>(id);
  if (!isAlive(block) || id.database() != &database || !block->isFromExternalReference()) {
    result.result = eInvalidInput;
    return result;
  }
  const OdDbObjectIdArray references = block->getBlockReferenceIds();
  for (const OdDbObjectId& reference : references) {
    OdDbObjectPtr opened;
    result.result = reference.openObject(opened, OdDb::kForWrite);
    if (result.result != eOk)
      return result;
  }
  for (const OdDbObjectId& reference : references)
    erase(*lookup(reference));
  result.references = references.size();
  OdDbObjectIdArray dependents;
  for (int kind = 0; kind < OdDb::kSymbolTableCount; ++kind) {
    for (OdDbSymbolTableRecord* record :
         dependentRecords(database, block->getName(), static_cast<OdDb::SymbolTableKind>(kind))) {
      bindRecord(*record, block->getName());
      dependents.append(record->objectId());
    }
  }
  erase(*block);
  database.purge(dependents);
  for (const OdDbObjectId& unused : dependents)
    erase(*lookup(unused));
  return result;
}

} // namespace drawing
