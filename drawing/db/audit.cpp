#include "DbAudit.h"

#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbCarried.h"
#include "DbDictionary.h"
#include "DbLayout.h"
#include "DbSequence.h"
#include "DbSymbolRecords.h"
#include "db/block_graph.h"
#include "db/load_context.h"
#include "db/store.h"

#include <unordered_map>
#include <unordered_set>

namespace drawing {

using db::lives;
using db::peek;
using db::peekAs;

namespace {

// References that lead nowhere, or out of the drawing.
class BrokenReferences final : public ReferenceVisitor {
public:
  explicit BrokenReferences(const OdDbDatabase& database) : database_(database) {}
  void visit(OdDbObjectId& id, OdDb::ReferenceType type) override {
    if (id.isNull())
      return;
    if (id.database() != &database_)
      ++foreign;
    // A soft pointer to what was erased is how drawings forget; the others hold what they name.
    else if (!lives(id) && type != OdDb::kSoftPointerRef)
      ++dangling;
  }
  int dangling = 0, foreign = 0;

private:
  const OdDbDatabase& database_;
};

class Audit {
public:
  Audit(OdDbDatabase& database, bool fix) : database_(database), fix_(fix) {}

  Report run() {
    listMembers();
    for (OdDbObjectId id : database_.allIds()) {
      OdDbObject* object = peek(id);
      if (object == nullptr || object->isErased() || object == &database_.header())
        continue;
      checkOwner(*object);
      checkReferences(*object);
      if (auto* entity = dynamic_cast<OdDbEntity*>(object))
        checkEntity(*entity);
      if (auto* block = dynamic_cast<OdDbBlockTableRecord*>(object))
        checkBlock(*block);
    }
    for (int kind = 0; kind < OdDb::kSymbolTableCount; ++kind)
      checkTable(static_cast<OdDb::SymbolTableKind>(kind));
    checkCycles();
    return std::move(report_);
  }

private:
  void tell(const char* code, Severity severity, const OdDbObject& object, std::string found, const char* mended = "") {
    report_.add({code, fix_ && mended[0] != 0 ? Severity::Repaired : severity, 0, -1, object.getDbHandle(), "",
                 object.dxfName(), std::move(found), fix_ ? mended : ""});
  }

  // Who lists whom; a member that two containers list is told at once.
  void listMembers() {
    for (OdDbObjectId id : database_.allIds()) {
      OdDbObject* container = peek(id);
      if (container == nullptr || container->isErased())
        continue;
      if (const IdList* list = container->memberList()) {
        for (OdDbObjectId member : list->ids())
          listed(member, *container);
      }
      if (const auto* owner = dynamic_cast<const OdDbSequenceOwner*>(container)) {
        for (OdDbObjectId member : owner->subEntities())
          listed(member, *container);
      }
    }
  }

  void listed(OdDbObjectId member, const OdDbObject& container) {
    if (!lives(member))
      return;
    if (!lister_.emplace(member, container.objectId()).second)
      tell("audit.listed-twice", Severity::Lost, *peek(member), "the object stands in two lists or twice in one");
  }

  void checkOwner(OdDbObject& object) {
    const bool ends = object.isKindOf(OdDbBlockBegin::desc()) || object.isKindOf(OdDbBlockEnd::desc()) ||
                      object.isKindOf(OdDbSequenceEnd::desc());
    const bool needsList =
        !ends && (object.isKindOf(OdDbEntity::desc()) || object.isKindOf(OdDbSymbolTableRecord::desc()));
    const auto lister = lister_.find(object.objectId());
    if (needsList && lister == lister_.end()) {
      tell("audit.in-no-list", Severity::Lost, object, "no block, table or sequence lists the object");
    } else if (lister != lister_.end() && lister->second != object.ownerId()) {
      tell("audit.owner-does-not-list", Severity::Lost, object, "its owner is not the one that lists it",
           "its owner is set to the one that lists it");
      if (fix_) {
        const db::WriteScope scope(object);
        object.setOwnerId(lister->second);
      }
    } else if (!object.ownerId().isNull() && !lives(object.ownerId())) {
      tell("audit.owner-missing", Severity::Note, object, "its owner does not exist");
    }
  }

  void checkReferences(OdDbObject& object) {
    BrokenReferences broken(database_);
    object.visitReferences(broken); // only reads: visit changes nothing
    if (broken.foreign != 0)
      tell("audit.reference-to-other-drawing", Severity::Lost, object, "it refers to an object of another drawing");
    if (broken.dangling != 0)
      tell("audit.reference-to-nothing", Severity::Note, object,
           "it refers to " + std::to_string(broken.dangling) + " objects that do not exist");
  }

  void checkEntity(OdDbEntity& entity) {
    const auto* carried = dynamic_cast<const OdDbCarriedEntity*>(&entity);
    if (carried != nullptr && carried->isUnread())
      return;
    if (!lives(entity.layerId())) {
      tell("audit.no-layer", Severity::Lost, entity, "the entity has no layer", "it is put on layer 0");
      if (fix_) {
        const db::WriteScope scope(entity);
        entity.setLayer(database_.getLayerZeroId());
      }
    }
    const auto* reference = dynamic_cast<const OdDbBlockReference*>(&entity);
    if (reference != nullptr && !lives(reference->blockTableRecord()))
      tell("audit.reference-without-block", Severity::Lost, entity, "the block that it shows does not exist");
  }

  void checkBlock(OdDbBlockTableRecord& block) {
    if (!lives(block.blockBeginId()) || !lives(block.blockEndId())) {
      tell("audit.block-without-ends", Severity::Lost, block, "the block has no begin or no end", "they are made");
      if (fix_) {
        const db::WriteScope scope(block);
        block.ensureEnds();
      }
    }
    const auto* layout = peekAs<OdDbLayout>(block.getLayoutId());
    if (!block.getLayoutId().isNull() && (layout == nullptr || layout->isErased()))
      tell("audit.block-without-layout", Severity::Note, block, "the layout that the block names does not exist");
    else if (layout != nullptr && layout->getBlockTableRecordId() != block.objectId())
      tell("audit.layout-of-another-block", Severity::Note, block,
           "the layout that the block names names another block");
  }

  void checkTable(OdDb::SymbolTableKind kind) {
    const auto* table = peekAs<OdDbSymbolTable>(database_.getSymbolTableId(kind));
    if (table == nullptr)
      return;
    for (OdDbObjectId id : table->members().ids()) {
      const auto* record = peekAs<OdDbSymbolTableRecord>(id);
      if (record == nullptr || record->isErased() || kind == OdDb::kViewportTable || record->getName().isEmpty())
        continue;
      if (table->getAt(record->getName()) != id)
        tell("audit.name-twice", Severity::Lost, *record, "another record of the table has its name");
    }
  }

  void checkCycles() {
    std::vector<OdDbObjectId> cut;
    db::bottomUp(database_, cut);
    for (OdDbObjectId id : cut)
      tell("audit.block-cycle", Severity::Lost, *peek(id), "through this reference a block contains itself");
  }

  OdDbDatabase& database_;
  bool fix_;
  Report report_;
  std::unordered_map<OdDbObjectId, OdDbObjectId> lister_;
};

} // namespace

Report auditDrawing(OdDbDatabase& database, bool fix) {
  return Audit(database, fix).run();
}

} // namespace drawing
