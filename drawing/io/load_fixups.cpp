#include "drawing/io/load_fixups.h"

#include "drawing/io/standard_contents.h"

#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbDictionary.h"
#include "DbSymbolRecords.h"
#include "drawing/blocks/block_graph.h"
#include "drawing/detail/sequence_owner.h"
#include "drawing/model/object_store.h"
#include "drawing/model/reserved_names.h"
#include "drawing/model/symbol_name.h"
#include "drawing/model/symbol_table_kinds.h"
#include "drawing/opaque_objects.h"
#include "drawing/records/section.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace drawing {

namespace {

void addIssue(FixUpContext& fixUp, const char* code, Severity severity, const OdDbObject& object, std::string found,
              std::string done) {
  fixUp.context.begin(object.dxfName(), fixUp.context.lineOf(object.objectId()));
  fixUp.context.setHandle(object.getDbHandle());
  fixUp.context.addIssue({.code = code, .severity = severity, .found = std::move(found), .done = std::move(done)});
}

class Redirect final : public ReferenceVisitor {
public:
  explicit Redirect(const std::vector<std::pair<OdDbObjectId, OdDbObjectId>>& pairs)
      : map_(pairs.begin(), pairs.end()) {}
  void visit(OdDbObjectId& id, OdDb::ReferenceType) override {
    if (const auto found = map_.find(id); found != map_.end())
      id = found->second;
  }

private:
  std::unordered_map<OdDbObjectId, OdDbObjectId> map_;
};

void redirect(FixUpContext& fixUp) {
  if (fixUp.context.redirects().empty())
    return;
  Redirect visitor(fixUp.context.redirects());
  for (OdDbObjectId id : fixUp.database.allIds()) {
    if (OdDbObject* object = lookup(id))
      object->visitReferences(visitor);
  }
}

void reportUndefinedNames(FixUpContext& fixUp) {
  std::vector<OdDbObjectId> ids;
  for (const auto& [id, line] : fixUp.context.missing())
    ids.push_back(id);
  std::sort(ids.begin(), ids.end());
  for (OdDbObjectId id : ids) {
    const auto& record = *getIf<OdDbSymbolTableRecord>(id);
    const bool standard = record.getName().iCompare(L"0") == 0 || record.getName().iCompare(L"ByLayer") == 0 ||
                          record.getName().iCompare(L"ByBlock") == 0 || record.getName().iCompare(L"Continuous") == 0 ||
                          record.getName().iCompare(L"Standard") == 0;
    addIssue(fixUp, "dxf.name-undefined", standard ? Severity::kNote : Severity::kRepaired, record,
             "\"" + record.getName().toUtf8Lossless() + "\" is used (line " +
                 std::to_string(fixUp.context.missing()[id]) + ") but not defined",
             "it is defined with default properties");
  }
}

void reportLayoutFault(FixUpContext& fixUp, const LayoutFault& fault) {
  struct IssueText {
    const char* code;
    const char* found;
  };
  // In the order of the kinds.
  constexpr IssueText kIssueTexts[] = {{"dxf.layout-without-block", "the layout has no block"},
                                       {"dxf.space-without-layout", "layout link broken"},
                                       {"dxf.block-of-no-layout", "the block refers to a layout of another block"}};
  const IssueText& text = kIssueTexts[fault.kind];
  addIssue(fixUp, text.code, Severity::kRepaired, fault.object, text.found, fault.done);
}

void ensureEnds(FixUpContext& fixUp) {
  auto* table = getIf<OdDbBlockTable>(fixUp.database.getBlockTableId());
  for (OdDbObjectId id : table->members().ids()) {
    auto* block = getIf<OdDbBlockTableRecord>(id);
    if (!isAlive(block))
      continue;
    const bool wasNamedOnly = fixUp.context.missing().count(id) != 0;
    // Spaces that the file does not have are created without a report; they have no handle yet.
    const bool isMade = isSpaceName(block->getName()) && block->getDbHandle().isNull();
    if (block->blockBeginId().isNull() && !wasNamedOnly && !isMade)
      addIssue(fixUp, "dxf.record-without-block", Severity::kRepaired, *block, "the block record has no block",
               "an empty block is created");
    block->ensureEnds();
  }
}

// A file that was cut, or a careless program: the members are there and their end is not.
void ensureSequenceEnds(FixUpContext& fixUp) {
  for (OdDbObjectId id : fixUp.database.allIds()) {
    auto* entity = getIf<OdDbEntity>(id);
    auto* sequence = dynamic_cast<OdDbSequenceOwner*>(entity);
    if (sequence == nullptr || sequence->subEntities().empty() || lookup(sequence->sequenceEndId()) != nullptr)
      continue;
    addIssue(fixUp, "dxf.sequence-without-end", Severity::kRepaired, *entity, "its sequence has no SEQEND",
             "the end is created");
    const WriteScope scope(*entity);
    sequence->ensureEnd(*entity);
  }
}

// Names that the file uses but does not define. Each is reported once, with its first user.
class BrokenLinks final : public ConstReferenceVisitor {
public:
  explicit BrokenLinks(FixUpContext& fixUp) : fixUp_(fixUp) {}
  void check(const OdDbObject& object) {
    at_ = &object;
    object.visitReferences(*this);
  }
  void visit(OdDbObjectId id, OdDb::ReferenceType) override {
    if (!id.isNull() && lookup(id) == nullptr && reported_.insert(id).second)
      addIssue(fixUp_, "dxf.broken-link", Severity::kNote, *at_,
               "it refers to " + id.getHandle().ascii() + ", which does not exist", "the reference is kept");
  }

private:
  FixUpContext& fixUp_;
  const OdDbObject* at_ = nullptr;
  std::unordered_set<OdDbObjectId> reported_;
};

void reportBrokenLinks(FixUpContext& fixUp) {
  BrokenLinks links(fixUp);
  for (OdDbObjectId id : fixUp.database.allIds()) {
    OdDbObject* object = lookup(id);
    if (isAlive(object) && object != &fixUp.database.header())
      links.check(*object);
  }
}

void ownIfOrphan(OdDbObjectId id, OdDbObjectId owner) {
  OdDbObject* object = lookup(id);
  if (object == nullptr || lookup(object->ownerId()) != nullptr)
    return;
  const WriteScope scope(*object);
  object->setOwnerId(owner);
}

// Some programs write no owners: the container that lists an object owns it. The first one, by id, where several do.
void ownOrphans(OdDbDatabase& database) {
  const OdDbObjectId root = database.getNamedObjectsDictionaryId();
  for (OdDbObjectId id : database.allIds()) {
    const OdDbObject* object = lookup(id);
    if (object == nullptr)
      continue;
    if (const OdDbObjectId extension = object->extensionDictionary(); !extension.isNull())
      ownIfOrphan(extension, id);
    const auto* dictionary = dynamic_cast<const OdDbDictionary*>(object);
    for (std::size_t i = 0; dictionary != nullptr && i < dictionary->numEntries(); ++i) {
      if (dictionary->entries()[i].id != root)
        ownIfOrphan(dictionary->entries()[i].id, id);
    }
  }
}

void ensureLayers(OdDbDatabase& database) {
  for (OdDbObjectId id : database.allIds()) {
    auto* entity = getIf<OdDbEntity>(id);
    if (entity == nullptr || !entity->layerId().isNull())
      continue;
    const auto* opaque = dynamic_cast<const OdDbOpaqueEntity*>(entity);
    if (opaque != nullptr && opaque->isUnparsed())
      continue;
    const WriteScope scope(*entity);
    entity->setLayer(database.getLayerZeroId());
  }
}

// The reference stays in the drawing as raw data, without a target.
void cutReference(FixUpContext& fixUp, OdDbObjectId id) {
  const auto& reference = *getIf<OdDbBlockReference>(id);
  addIssue(fixUp, "dxf.block-cycle", Severity::kRepaired, reference,
           "a block contains itself through this reference to \"" +
               symbolName(reference.blockTableRecord()).toUtf8Lossless() + "\"",
           "the reference is preserved as raw data, not as a reference");
  auto* opaque = new OdDbOpaqueEntity;
  const OdSmartPtr<OdDbObject> keepAlive(opaque);
  opaque->setDxfName(reference.dxfName());
  opaque->setUnparsed(true);
  opaque->setOwnerId(reference.ownerId());
  writeSubclasses(reference, opaque->extrasForLoad().unmodelledGroups);
  fixUp.database.store().replace(id, opaque);
}

void raiseHandseed(OdDbDatabase& database) {
  const GroupList* seed = database.headerVar("HANDSEED");
  if (seed != nullptr && !seed->empty() && (*seed)[0].kind == GroupKind::kHandle)
    database.setHandseed(static_cast<std::uint64_t>((*seed)[0].integer));
}

} // namespace

void fixUpAfterLoad(FixUpContext& fixUp) {
  OdDbDatabase& database = fixUp.database;
  redirect(fixUp);
  const auto reportLayout = [&fixUp](const LayoutFault& fault) { reportLayoutFault(fixUp, fault); };
  for (const std::string& made : ensureBasics(database, reportLayout)) {
    fixUp.context.begin("", 0);
    fixUp.context.setHandle(0);
    fixUp.context.addIssue({.code = "dxf.standard-part-missing",
                            .severity = Severity::kNote,
                            .found = "the drawing has no " + made,
                            .done = "it is created"});
  }
  reportUndefinedNames(fixUp);
  ownOrphans(database);
  ensureLayers(database);
  ensureEnds(fixUp);
  ensureSequenceEnds(fixUp);
  std::vector<OdDbObjectId> cut;
  bottomUp(database, cut);
  for (OdDbObjectId id : cut)
    cutReference(fixUp, id);
  raiseHandseed(database);
  reportBrokenLinks(fixUp);
  database.store().assignDeferredHandles();
  for (OdDbObjectId id : database.allIds()) {
    if (OdDbObject* object = lookup(id))
      object->afterLoad();
  }
}

} // namespace drawing
