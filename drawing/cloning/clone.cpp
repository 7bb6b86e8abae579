#include "drawing/cloning/clone.h"

#include "DbBlockReference.h"
#include "DbDatabase.h"
#include "drawing/blocks/block_properties.h"
#include "drawing/cloning/path_rebasing.h"
#include "drawing/model/object_store.h"
#include "drawing/model/registered_app.h"
#include "drawing/model/reserved_names.h"
#include "drawing/model/undo_log.h"

#include <algorithm>

namespace drawing {

void Cloner::make(const Item& item) {
  const OdDbObject& source = *lookup(item.source);
  std::unique_ptr<OdDbObject> copy(source.makeCopy());
  const OdDbObjectId owner = item.primary                ? owner_
                             : !item.container.isNull()  ? item.container
                             : source.ownerId().isNull() ? mapping_.valueOf(item.neededBy)
                                                         : mapping_.valueOf(source.ownerId());
  if (auto* record = dynamic_cast<OdDbSymbolTableRecord*>(copy.get()); record != nullptr && !item.container.isNull())
    record->setName(item.name);
  if (auto* block = dynamic_cast<OdDbBlockTableRecord*>(copy.get()))
    block->clearCopiedLinks();
  OdDbObject& made = *copy.release();
  const OdDbObjectId id = target_.addObject(&made, owner);
  mapping_.assign(OdDbIdPair(item.source, id, true, item.primary));
  join(item, made);
}

// Where the copy is listed: in the block, table or dictionary that holds it.
void Cloner::join(const Item& item, OdDbObject& copy) {
  OdDbObject* container = lookup(copy.ownerId());
  if (container == nullptr)
    return;
  const WriteScope scope(*container);
  if (auto* table = dynamic_cast<OdDbSymbolTable*>(container)) {
    const WriteScope copyScope(copy);
    table->addClone(static_cast<OdDbSymbolTableRecord*>(&copy));
    return;
  }
  if (auto* dictionary = dynamic_cast<OdDbDictionary*>(container)) {
    OdString name = item.name;
    if (item.primary) {
      const auto* from = getIf<OdDbDictionary>(lookup(item.source)->ownerId());
      name = from == nullptr ? OdString(L"*A") : from->nameAt(item.source);
    }
    if (!name.isEmpty() && (item.primary || !item.container.isNull()))
      dictionary->setAt(name, copy.objectId());
    return;
  }
  auto* block = dynamic_cast<OdDbBlockTableRecord*>(container);
  if (block == nullptr || !copy.isKindOf(OdDbEntity::desc()))
    return;
  if (copy.isKindOf(OdDbBlockBegin::desc()))
    return block->setEnds(copy.objectId(), {});
  if (copy.isKindOf(OdDbBlockEnd::desc()))
    return block->setEnds({}, copy.objectId());
  target_.undoLog().listGrows(*block, block->members().size());
  block->attachEntity(copy.objectId());
}

// The target's object keeps its id and its place; what it held makes room for what the source holds.
void Cloner::replace(const Item& item) {
  OdDbObject& present = *lookup(item.target);
  const OdDbObject& source = *lookup(item.source);
  const WriteScope scope(present);
  std::vector<OdDbObjectId> owned;
  present.ownedObjects(owned);
  for (OdDbObjectId id : owned) {
    OdDbObject* part = lookup(id);
    if (part == nullptr || part->isErased())
      continue;
    const WriteScope partScope(*part);
    part->erase();
  }
  present.assertWriteEnabled();
  const OdDbObjectId owner = present.ownerId();
  OdDbObjectId layout;
  auto* block = dynamic_cast<OdDbBlockTableRecord*>(&present);
  if (block != nullptr)
    layout = block->getLayoutId();
  present.assignState(source);
  present.setOwnerId(owner);
  if (block != nullptr) {
    block->clearCopiedLinks();
    block->setLayoutId(layout);
  }
  mapping_.assign(OdDbIdPair(item.source, item.target, false, false));
}

namespace {

class Translate final : public ReferenceVisitor {
public:
  // `contentsOf`: the block whose contents the owner has now; null when there is none.
  Translate(const OdDbIdMapping& mapping, const OdDbDatabase& target, OdDbObjectId contentsOf, OdDbObjectId owner)
      : mapping_(mapping), target_(target), contentsOf_(contentsOf), owner_(owner) {}
  void visit(OdDbObjectId& id, OdDb::ReferenceType) override {
    if (id.isNull())
      return;
    OdDbIdPair pair(id, {}, false, false);
    if (mapping_.compute(pair))
      id = pair.value();
    else if (id == contentsOf_)
      id = owner_;
    else if (id.database() != &target_)
      id.setNull(); // nothing of another drawing may be named
  }

private:
  const OdDbIdMapping& mapping_;
  const OdDbDatabase& target_;
  OdDbObjectId contentsOf_, owner_;
};

} // namespace

void Cloner::translate() {
  Translate visitor(mapping_, target_, contentsOf_, owner_);
  Translate visitorOfReferences(mapping_, target_, {}, {}); // none may show the owner in itself
  for (const Item& item : items_) {
    if (item.action == Action::kUse)
      continue;
    OdDbObject& copy = *lookup(mapping_.valueOf(item.source));
    const WriteScope scope(copy);
    copy.visitReferences(copy.isKindOf(OdDbBlockReference::desc()) ? visitorOfReferences : visitor);
    copy.dropLostReactors();
    if (crosses())
      ensureApplications(copy);
  }
  for (const Item& item : items_) {
    if (item.action == Action::kUse)
      continue;
    OdDbObject& copy = *lookup(mapping_.valueOf(item.source));
    const WriteScope scope(copy);
    copy.afterClone(*lookup(item.source), mapping_);
    if (auto* block = dynamic_cast<OdDbBlockTableRecord*>(&copy))
      block->ensureEnds();
  }
}

// Extended data names its applications; the target must know them.
void Cloner::ensureApplications(const OdDbObject& object) {
  const GroupList* groups = object.xDataGroups();
  if (groups == nullptr)
    return;
  for (std::size_t i = groups->find(1001); i < groups->size(); i = groups->find(1001, i + 1))
    registerApplication(target_, groups->stringOf((*groups)[i]));
}

void Cloner::reportRenamed(const OdString& from, const OdString& to) {
  if (report_ == nullptr)
    return;
  report_->add(
      {.code = "clone.renamed",
       .severity = Severity::kNote,
       .kind = "BLOCK",
       .found = "a nested definition has the name \"" + from.toUtf8() + "\" of a block that it must not replace",
       .done = "it is renamed to \"" + to.toUtf8() + "\""});
}

} // namespace drawing

using drawing::Cloner;
using drawing::getIf;

OdResult OdDbDatabase::deepCloneObjects(const OdDbObjectIdArray& ids, OdDbObjectId owner, OdDbIdMapping& mapping,
                                        bool) {
  if (owner.isNull())
    return eNullObjectId;
  mapping.setOrigDb(this);
  mapping.setDestDb(this);
  return Cloner(*this, *this, owner, mapping, OdDb::kDrcNotApplicable).run({ids.begin(), ids.end()});
}

OdResult OdDbDatabase::wblockCloneObjects(const OdDbObjectIdArray& ids, OdDbObjectId owner, OdDbIdMapping& mapping,
                                          OdDb::DuplicateRecordCloning duplicates, bool) {
  OdDbDatabase* target = owner.database();
  if (target == nullptr)
    return owner.isNull() ? eNullObjectId : eDatabaseGone;
  if (target == this)
    return eWrongDatabase;
  mapping.setOrigDb(this);
  mapping.setDestDb(target);
  mapping.setDuplicateRecordCloning(duplicates);
  return Cloner(*this, *target, owner, mapping, duplicates).run({ids.begin(), ids.end()});
}

namespace {

using drawing::WriteScope;

struct RecordToFill {
  OdDbBlockTableRecord* record = nullptr; // null where the name may not be an ordinary block's
  bool isNew = false;
};

RecordToFill recordToFill(OdDbDatabase& target, const OdString& name) {
  auto* table = getIf<OdDbBlockTable>(target.getBlockTableId());
  if (table == nullptr || name.isEmpty() || drawing::isSpaceName(name))
    return {};
  if (auto* record = getIf<OdDbBlockTableRecord>(table->getAt(name)); record != nullptr) {
    const bool isOrdinary = !record->isLayout() && !record->isFromExternalReference() && !record->isDependent();
    return {isOrdinary ? record : nullptr, false};
  }
  auto made = OdDbBlockTableRecord::createObject();
  made->setName(name);
  const WriteScope scope(*table);
  return {getIf<OdDbBlockTableRecord>(table->add(made.get())), true};
}

void eraseIfAlive(OdDbObjectId id) {
  OdDbObject* object = drawing::lookup(id);
  if (!drawing::isAlive(object))
    return;
  const WriteScope scope(*object);
  object->erase();
}

// What is said of contents: their order, how they move.
struct ContentsData {
  OdDbObjectId order, dynamicData;
};

ContentsData contentsDataOf(const OdDbBlockTableRecord& record) {
  return {record.getSortentsTableId(), drawing::dynamicBlockDataOf(record.objectId())};
}

void forget(OdDbBlockTableRecord& record, OdDbObjectId entry) {
  auto* dictionary = getIf<OdDbDictionary>(record.extensionDictionary());
  if (dictionary == nullptr || entry.isNull())
    return;
  if (const OdString name = dictionary->nameAt(entry); !name.isEmpty()) { // else another one has its place
    const WriteScope scope(*dictionary);
    dictionary->remove(name);
  }
  eraseIfAlive(entry);
}

// The contents that this was said of, and that the picture shows, are gone.
void dropContentsData(OdDbBlockTableRecord& record, const ContentsData& data) {
  record.setPreviewIcon({});
  forget(record, data.order);
  forget(record, data.dynamicData);
}

} // namespace

OdDbObjectId OdDbDatabase::insert(const OdString& blockName, OdDbDatabase* source, bool) {
  insertReport_ = {};
  const auto* space = source == nullptr ? nullptr : getIf<OdDbBlockTableRecord>(source->getModelSpaceId());
  if (space == nullptr || source == this)
    return {};
  const auto [record, isNew] = recordToFill(*this, blockName);
  if (record == nullptr)
    return {};
  const WriteScope scope(*record);
  const std::vector<OdDbObjectId> before = record->members().ids();
  const ContentsData data = contentsDataOf(*record);
  record->ensureEnds();
  OdDbIdMapping mapping;
  mapping.setOrigDb(source);
  mapping.setDestDb(this);
  Cloner cloner(*source, *this, record->objectId(), mapping, OdDb::kDrcIgnore);
  cloner.setReport(&insertReport_);
  cloner.includeDynamicBlockData(space->objectId());
  if (cloner.run(space->drawOrder()) != eOk) {
    if (isNew)
      record->erase();
    return {};
  }
  for (OdDbObjectId id : before)
    eraseIfAlive(id);
  if (isNew)
    drawing::copyBlockProperties(*space, *record);
  else
    dropContentsData(*record, data);
  record->setOrigin(source->getINSBASE());
  drawing::rebasePaths(mapping);
  return record->objectId();
}
