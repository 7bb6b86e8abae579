#include "drawing/audit.h"

#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbDictionary.h"
#include "DbDimension.h"
#include "DbSymbolRecords.h"
#include "drawing/blocks/block_graph.h"
#include "drawing/detail/sequence_owner.h"
#include "drawing/model/object_store.h"
#include "drawing/model/reserved_names.h"
#include "drawing/model/undo_log.h"
#include "drawing/names.h"
#include "drawing/objects/layout_links.h"
#include "drawing/opaque_objects.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <unordered_set>

namespace drawing {

namespace {

enum class Broken : std::uint8_t { kNot, kDangling, kOfOtherDrawing };

// Whether a reference is dangling, or out of the drawing.
Broken brokenness(const OdDbDatabase& database, OdDbObjectId id, OdDb::ReferenceType type) {
  if (id.isNull())
    return Broken::kNot;
  if (id.database() != &database)
    return Broken::kOfOtherDrawing;
  // A soft pointer to what was erased is how drawings forget; the others hold what they name.
  return !isAlive(id) && type != OdDb::kSoftPointerRef ? Broken::kDangling : Broken::kNot;
}

class CountBroken final : public ConstReferenceVisitor {
public:
  explicit CountBroken(const OdDbDatabase& database) : database_(database) {}
  void visit(OdDbObjectId id, OdDb::ReferenceType type) override {
    const Broken broken = brokenness(database_, id, type);
    ofOtherDrawing += broken == Broken::kOfOtherDrawing ? 1 : 0;
    dangling += broken == Broken::kDangling ? 1 : 0;
  }
  int dangling = 0, ofOtherDrawing = 0;

private:
  const OdDbDatabase& database_;
};

class CutBroken final : public ReferenceVisitor {
public:
  explicit CutBroken(const OdDbDatabase& database) : database_(database) {}
  void visit(OdDbObjectId& id, OdDb::ReferenceType type) override {
    if (brokenness(database_, id, type) != Broken::kNot)
      id.setNull();
  }

private:
  const OdDbDatabase& database_;
};

bool isFinite(const OdGeExtents3d& extents) {
  const OdGePoint3d low = extents.minPoint(), high = extents.maxPoint();
  return std::isfinite(low.x + low.y + low.z) && std::isfinite(high.x + high.y + high.z);
}

// Ends of blocks and of sequences are named by what they end, and stand in no list.
bool isEnd(const OdDbObject& object) {
  return object.isKindOf(OdDbBlockBegin::desc()) || object.isKindOf(OdDbBlockEnd::desc()) ||
         object.isKindOf(OdDbSequenceEnd::desc());
}

// The name with '_' for every character that none may have.
OdString legalName(const OdString& name, const OdDbSymbolTable& table) {
  OdString legal = name;
  legal.trimLeft().trimRight();
  for (int at = -1; nameFault(legal, OdDb::kRelease2000, &at) == NameFault::kCharacter;)
    legal.setAt(at, L'_');
  return table.freeName(legal.isEmpty() ? OdString(L"unnamed") : legal.left(255));
}

class Audit {
public:
  Audit(OdDbDatabase& database, bool fix) : database_(database), fix_(fix) {}

  Report run() {
    listMembers();
    for (OdDbObjectId id : database_.allIds()) {
      OdDbObject* object = lookup(id);
      if (isAlive(object) && object != &database_.header())
        checkObject(*object);
    }
    for (int kind = 0; kind < OdDb::kSymbolTableCount; ++kind)
      checkTable(static_cast<OdDb::SymbolTableKind>(kind));
    checkLayouts(database_, fix_, [this](const LayoutFault& fault) { reportLayout(fault); });
    checkCycles();
    return std::move(report_);
  }

private:
  void addIssue(const char* code, Severity severity, const OdDbObject& object, std::string found,
                const char* repaired = "") {
    report_.add({.code = code,
                 .severity = fix_ && repaired[0] != 0 ? Severity::kRepaired : severity,
                 .handle = object.getDbHandle(),
                 .kind = object.dxfName(),
                 .found = std::move(found),
                 .done = fix_ ? repaired : ""});
  }

  // Who lists whom; a member listed by two containers is reported immediately.
  void listMembers() {
    for (OdDbObjectId id : database_.allIds()) {
      OdDbObject* container = lookup(id);
      if (!isAlive(container))
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
    if (!isAlive(member))
      return;
    if (!lister_.emplace(member, container.objectId()).second)
      addIssue("audit.listed-twice", Severity::kLost, *lookup(member), "the object is listed twice");
  }

  void checkObject(OdDbObject& object) {
    checkOwner(object);
    if (object.isErased())
      return;
    if (auto* dictionary = dynamic_cast<OdDbDictionary*>(&object))
      checkDictionary(*dictionary);
    checkReferences(object);
    if (auto* entity = dynamic_cast<OdDbEntity*>(&object))
      checkEntity(*entity);
    if (auto* sequence = dynamic_cast<OdDbSequenceOwner*>(&object))
      checkSequence(object, *sequence);
    if (auto* block = dynamic_cast<OdDbBlockTableRecord*>(&object))
      checkEnds(*block);
  }

  void checkOwner(OdDbObject& object) {
    const bool needsList =
        !isEnd(object) && (object.isKindOf(OdDbEntity::desc()) || object.isKindOf(OdDbSymbolTableRecord::desc()));
    const auto lister = lister_.find(object.objectId());
    if (needsList && lister == lister_.end()) {
      addIssue("audit.in-no-list", Severity::kLost, object, "no block, table or sequence lists the object",
               fixList(object));
    } else if (lister != lister_.end() && lister->second != object.ownerId()) {
      addIssue("audit.owner-does-not-list", Severity::kLost, object, "its owner is not the object that lists it",
               "its owner is set to the object that lists it");
      if (fix_) {
        const WriteScope scope(object);
        object.setOwnerId(lister->second);
      }
    } else if (!object.ownerId().isNull() && !isAlive(object.ownerId())) {
      addIssue("audit.owner-missing", Severity::kNote, object, "its owner does not exist",
               "its owner is set to the named-objects dictionary");
      if (fix_) {
        const WriteScope scope(object);
        object.setOwnerId(database_.getNamedObjectsDictionaryId());
      }
    }
  }

  // Entities go into the block that they name, or into model space; what cannot stand there is erased.
  const char* fixList(OdDbObject& object) {
    const bool isPart = object.dxfName() == "ATTRIB" || object.dxfName() == "VERTEX";
    const bool isListedInBlock = object.isKindOf(OdDbEntity::desc()) && !isPart;
    if (!fix_)
      return "";
    const WriteScope scope(object);
    if (!isListedInBlock) {
      object.erase();
      return "it is erased";
    }
    auto* block = getIf<OdDbBlockTableRecord>(object.ownerId());
    if (!isAlive(block))
      block = getIf<OdDbBlockTableRecord>(database_.getModelSpaceId());
    database_.undoLog().listGrows(*block, block->members().size());
    object.setOwnerId(block->objectId());
    block->attachEntity(object.objectId());
    return "it is moved to its block, or to model space";
  }

  // An entry of an erased object is how a dictionary forgets; it is not written.
  void checkDictionary(OdDbDictionary& dictionary) {
    std::vector<OdString> dead;
    for (const OdDbDictionary::Entry& entry : dictionary.entries()) {
      if (isAlive(entry.id))
        continue;
      dead.push_back(entry.name);
      if (lookup(entry.id) == nullptr)
        addIssue("audit.entry-to-nothing", Severity::kNote, dictionary,
                 "the entry \"" + entry.name.toUtf8Lossless() + "\" refers to a missing object",
                 "the entry is removed");
    }
    for (std::size_t i = 0; fix_ && i < dead.size(); ++i) {
      const WriteScope scope(dictionary);
      dictionary.remove(dead[i]);
    }
    deadEntries_ = fix_ ? 0 : static_cast<int>(dead.size());
  }

  // A sequence remembers the parts that were erased; they are not written.
  static int erasedParts(const OdDbObject& object) {
    const auto* owner = dynamic_cast<const OdDbSequenceOwner*>(&object);
    if (owner == nullptr)
      return 0;
    const auto isErased = [](OdDbObjectId id) { return lookup(id) != nullptr && lookup(id)->isErased(); };
    return static_cast<int>(std::count_if(owner->subEntities().begin(), owner->subEntities().end(), isErased));
  }

  void checkReferences(OdDbObject& object) {
    CountBroken broken(database_);
    std::as_const(object).visitReferences(broken);
    const int dangling = broken.dangling - std::exchange(deadEntries_, 0) - erasedParts(object);
    if (broken.ofOtherDrawing != 0)
      addIssue("audit.reference-to-other-drawing", Severity::kLost, object, "reference to an object of another drawing",
               "the reference is cleared");
    if (dangling > 0)
      addIssue("audit.reference-to-nothing", Severity::kNote, object,
               "it refers to " + std::to_string(dangling) + " objects that do not exist", "the references are cleared");
    if (!fix_ || dangling + broken.ofOtherDrawing == 0)
      return;
    const WriteScope scope(object);
    object.assertWriteEnabled();
    CutBroken cut(database_);
    object.visitReferences(cut);
    object.dropLostReactors();
  }

  void checkEntity(OdDbEntity& entity) {
    const auto* opaque = dynamic_cast<const OdDbOpaqueEntity*>(&entity);
    if (opaque != nullptr && opaque->isUnparsed())
      return;
    if (!isAlive(entity.layerId())) {
      addIssue("audit.no-layer", Severity::kLost, entity, "the entity has no layer", "it is moved to layer 0");
      if (fix_) {
        const WriteScope scope(entity);
        entity.setLayer(database_.getLayerZeroId());
      }
    }
    const auto* dimension = dynamic_cast<const OdDbDimension*>(&entity);
    if (dimension != nullptr && !dimension->dimBlockId().isNull() && !isAlive(dimension->dimBlockId()))
      addIssue("audit.dimension-without-picture", Severity::kNote, entity, "its dimension block does not exist");
    const auto* reference = dynamic_cast<const OdDbBlockReference*>(&entity);
    if (reference != nullptr)
      checkBlockReference(entity, *reference);
    else if (OdGeExtents3d extents; dimension == nullptr && entity.getGeomExtents(extents) == eOk && !isFinite(extents))
      addIssue("audit.extents-not-finite", Severity::kNote, entity, "its extents are not finite");
  }

  void checkBlockReference(OdDbEntity& entity, const OdDbBlockReference& reference) {
    if (isAlive(reference.blockTableRecord()))
      return;
    addIssue("audit.reference-without-block", Severity::kLost, entity, "the referenced block does not exist",
             "the reference is erased");
    if (fix_) {
      const WriteScope scope(entity);
      entity.erase();
    }
  }

  void checkSequence(OdDbObject& object, OdDbSequenceOwner& sequence) {
    bool hasParts = false;
    for (OdDbObjectId part : sequence.subEntities())
      hasParts = hasParts || isAlive(part);
    if (!hasParts || isAlive(sequence.sequenceEndId()) || object.isErased())
      return;
    addIssue("audit.sequence-without-end", Severity::kLost, object, "its sequence has no SEQEND", "the end is created");
    if (fix_) {
      const WriteScope scope(object);
      sequence.ensureEnd(static_cast<OdDbEntity&>(object));
    }
  }

  void checkEnds(OdDbBlockTableRecord& block) {
    if (isAlive(block.blockBeginId()) && isAlive(block.blockEndId()))
      return;
    addIssue("audit.block-without-ends", Severity::kLost, block, "the block has no BLOCK or ENDBLK",
             "they are created");
    if (fix_) {
      const WriteScope scope(block);
      block.assertWriteEnabled();
      block.ensureEnds();
    }
  }

  void reportLayout(const LayoutFault& fault) {
    struct IssueText {
      const char* code;
      const char* found;
    };
    // In the order of the kinds.
    constexpr IssueText kIssueTexts[] = {{"audit.layout-without-block", "the layout has no block"},
                                         {"audit.space-without-layout", "layout link broken"},
                                         {"audit.block-of-no-layout", "the block refers to a layout of another block"}};
    const IssueText& text = kIssueTexts[fault.kind];
    addIssue(text.code, Severity::kLost, fault.object, text.found, fault.done);
  }

  void checkTable(OdDb::SymbolTableKind kind) {
    const auto* table = getIf<OdDbSymbolTable>(database_.getSymbolTableId(kind));
    if (table == nullptr) {
      report_.add({.code = "audit.table-missing",
                   .severity = Severity::kLost,
                   .kind = "TABLE",
                   .found = "a symbol table does not exist"});
      return;
    }
    for (OdDbObjectId id : table->members().ids()) {
      auto* record = getIf<OdDbSymbolTableRecord>(id);
      // The tiles of a viewport configuration share their name, and shape files have none.
      const bool mayRepeat = kind == OdDb::kViewportTable || (record != nullptr && record->getName().isEmpty());
      if (isAlive(record) && !mayRepeat)
        checkName(*table, *record);
    }
  }

  void checkName(const OdDbSymbolTable& table, OdDbSymbolTableRecord& record) {
    if (table.getAt(record.getName()) != record.objectId()) {
      addIssue("audit.name-twice", Severity::kLost, record, "its name is used twice in the table", "it is renamed");
      if (fix_)
        rename(record, table.freeName(record.getName()));
      return;
    }
    const auto* block = dynamic_cast<const OdDbBlockTableRecord*>(&record);
    // Programs give names with an asterisk to what they made themselves.
    const bool isOwn = record.getName().getLength() > 1 && record.getName().getAt(0) == L'*';
    const bool hasOwnRules = isOwn || isExternal(record) || (block != nullptr && isSpace(*block));
    if (hasOwnRules || nameFault(record.getName(), OdDb::kRelease2000) == NameFault::kNone)
      return;
    addIssue("audit.name-illegal", Severity::kNote, record,
             "\"" + record.getName().toUtf8Lossless() + "\" is not a valid name",
             "it is renamed, with _ for characters that are not allowed");
    if (fix_)
      rename(record, legalName(record.getName(), table));
  }

  void rename(OdDbSymbolTableRecord& record, const OdString& name) {
    if (renameRecord(database_, record.tableKind(), record.getName(), name) == RenameResult::kDone &&
        record.getName() == name)
      return;
    const WriteScope scope(record); // one that is not found under its name
    record.setName(name);
  }

  void checkCycles() {
    std::vector<OdDbObjectId> cut;
    bottomUp(database_, cut);
    for (OdDbObjectId id : database_.allIds()) {
      if (const auto* opaque = getIf<OdDbOpaqueEntity>(id); isAlive(opaque) && closesCycle(*opaque))
        cut.push_back(id);
    }
    for (OdDbObjectId id : cut) {
      OdDbObject& reference = *lookup(id);
      addIssue("audit.block-cycle", Severity::kLost, reference, "a block contains itself through this reference",
               "the reference is erased");
      const WriteScope scope(reference);
      if (fix_)
        reference.erase();
    }
  }

  // Reading keeps such references as data; in a file they would be references again.
  bool closesCycle(const OdDbOpaqueEntity& opaque) const {
    if (!opaque.isUnparsed() || opaque.dxfName() != "INSERT" || opaque.unmodelledGroupsOrNull() == nullptr)
      return false;
    const GroupList& groups = *opaque.unmodelledGroupsOrNull();
    const std::size_t name = groups.find(2);
    const OdDbObjectId block =
        name < groups.size() ? database_.symbol(OdDb::kBlockTable, groups.stringOf(groups[name])) : OdDbObjectId();
    const auto* definition = getIf<OdDbBlockTableRecord>(block);
    return definition != nullptr && definition->reaches(opaque.ownerId());
  }

  OdDbDatabase& database_;
  bool fix_;
  Report report_;
  std::unordered_map<OdDbObjectId, OdDbObjectId> lister_;
  int deadEntries_ = 0; // of the current dictionary, already reported
};

} // namespace

Report auditDrawing(OdDbDatabase& database, bool fix) {
  return Audit(database, fix).run();
}

} // namespace drawing
