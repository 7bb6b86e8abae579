// Computes the set of objects to clone.
#include "drawing/cloning/clone.h"

#include "DbBlockReference.h"
#include "DbDatabase.h"
#include "DbDimension.h"
#include "DbDynBlockReference.h"
#include "DbLayout.h"
#include "DbShape.h"
#include "DbSymbolRecords.h"
#include "DbTable.h"
#include "drawing/blocks/block_graph.h"
#include "drawing/blocks/block_properties.h"
#include "drawing/model/object_store.h"
#include "drawing/model/reserved_names.h"

#include <unordered_set>

namespace drawing {

Cloner::Cloner(OdDbDatabase& source, OdDbDatabase& target, OdDbObjectId owner, OdDbIdMapping& mapping,
               OdDb::DuplicateRecordCloning duplicates)
    : source_(source), target_(target), owner_(owner), mapping_(mapping), duplicates_(duplicates) {}

// A clone that refers to the block it is put into, directly or through others, would close a cycle.
bool Cloner::closesCycle(const std::vector<OdDbObjectId>& primaries) const {
  std::unordered_set<OdDbObjectId> blocks;
  for (OdDbObjectId id : primaries) {
    if (const auto* reference = getIf<OdDbBlockReference>(id))
      blocks.insert(reference->blockTableRecord());
  }
  return reaches({blocks.begin(), blocks.end()}, owner_);
}

void Cloner::plan(Item item) {
  if (!planned_.emplace(item.source, items_.size()).second)
    return;
  item.neededBy = planning_;
  items_.push_back(std::move(item));
}

namespace {

class CollectReferences final : public ConstReferenceVisitor {
public:
  void visit(OdDbObjectId id, OdDb::ReferenceType type) override {
    if (!id.isNull() && (type == OdDb::kHardPointerRef || type == OdDb::kHardOwnershipRef))
      ids.push_back(id);
  }
  std::vector<OdDbObjectId> ids;
};

// The picture of a dimension or a table belongs to it alone, although it is a block of the drawing.
bool isDimensionBlock(const OdDbObject& object, const OdDbObject& of) {
  const auto* block = dynamic_cast<const OdDbBlockTableRecord*>(&object);
  if (block == nullptr || !block->isAnonymous())
    return false;
  const OdString kind = block->getName().left(2);
  return (of.isKindOf(OdDbDimension::desc()) && kind.iCompare(L"*D") == 0) ||
         (of.isKindOf(OdDbTable::desc()) && kind.iCompare(L"*T") == 0);
}

// The contents of a tab. A space answers to nothing of another drawing, although every drawing has some of these names.
bool isTabContents(const OdDbObject& object) {
  const auto* block = dynamic_cast<const OdDbBlockTableRecord*>(&object);
  return block != nullptr && (block->isLayout() || (block->getName().left(1) == L"*" && !block->isAnonymous()));
}

} // namespace

// What the object owns, and what it cannot do without.
void Cloner::planTree(std::size_t item) {
  if (items_[item].action == Action::kUse)
    return;
  planning_ = items_[item].source;
  const OdDbObject& object = *lookup(items_[item].source);
  std::vector<OdDbObjectId> owned;
  object.ownedObjects(owned);
  for (OdDbObjectId id : owned) {
    const OdDbObject* part = lookup(id);
    if (part != nullptr && !part->isErased())
      plan({id, Action::kMake, {}, {}, {}, false});
  }
  planReferences(object);
}

void Cloner::planReferences(const OdDbObject& object) {
  CollectReferences references;
  object.visitReferences(references);
  for (OdDbObjectId id : references.ids) {
    if (isPlanned(id) || id.database() != &source_)
      continue;
    const OdDbObject* needed = lookup(id);
    if (needed == nullptr || needed->isErased())
      continue;
    if (isTabContents(*needed) && !object.isKindOf(OdDbBlockReference::desc()))
      continue; // only what draws a space needs its contents
    if (crosses() || isDimensionBlock(*needed, object))
      planNeeded(id);
  }
  if (crosses()) {
    planDefinitionOfShape(object);
    planShapeFiles(object);
    planOverrides(object);
  }
}

// A shape of a dynamic block names its definition in its extended data only, and means nothing without it.
void Cloner::planDefinitionOfShape(const OdDbObject& object) {
  if (!object.isKindOf(OdDbBlockTableRecord::desc()))
    return;
  const OdDbObjectId definition = OdDbDynBlockTableRecord(object.objectId()).dynamicBlockTableRecord();
  if (!definition.isNull() && !isPlanned(definition) && definition.database() == &source_)
    planNeeded(definition);
}

// A SHAPE stores the name of its shape and not its file, so it needs all files.
void Cloner::planShapeFiles(const OdDbObject& object) {
  if (!object.isKindOf(OdDbShape::desc()))
    return;
  for (const OdDbObjectId id : getIf<OdDbSymbolTable>(source_.getTextStyleTableId())->members().ids()) {
    const auto* style = getIf<OdDbTextStyleTableRecord>(id);
    if (isAlive(style) && style->isShapeFile() && !isPlanned(id))
      planNeeded(id);
  }
}

// Arrowheads, text styles and linetypes that override a dimension style are in extended data, and so are the linetypes
// of older styles.
void Cloner::planOverrides(const OdDbObject& object) {
  const GroupList* groups = object.xDataGroups();
  bool isOverride = false;
  for (std::size_t i = 0; groups != nullptr && i < groups->size(); ++i) {
    const Group& group = (*groups)[i];
    if (group.code == 1001) {
      const OdString application = groups->stringOf(group);
      isOverride = application.iCompare(L"ACAD") == 0 || application.left(12).iCompare(L"ACAD_DSTYLE_") == 0;
    } else if (isOverride && group.code == 1005) {
      const OdDbObjectId id = groups->idOf(group);
      const auto* record = getIf<OdDbSymbolTableRecord>(id);
      if (isAlive(record) && id.database() == &source_ && !isPlanned(id) && !isTabContents(*record))
        planNeeded(id);
    }
  }
}

void Cloner::planNeeded(OdDbObjectId id) {
  OdDbObject& object = *lookup(id);
  if (auto* record = dynamic_cast<OdDbSymbolTableRecord*>(&object))
    planRecord(*record);
  else if (auto* table = dynamic_cast<OdDbSymbolTable*>(&object))
    plan({id, Action::kUse, target_.getSymbolTableId(table->kind()), {}, {}, false});
  else if (!object.isKindOf(OdDbEntity::desc()) && !object.isKindOf(OdDbLayout::desc()))
    planEntry(object);
}

// A block of the target may stand for one of the source unless it leads back to the block that is being filled. One
// that is replaced contains only what its new contents do.
bool Cloner::canReplace(OdDbObjectId present) const {
  const auto* owner = getIf<OdDbBlockTableRecord>(owner_);
  if (owner == nullptr || !owner->wasReferenced()) // no walk through the drawing for every record
    return true;
  return getIf<OdDbBlockTableRecord>(present) == nullptr || !reaches(present, owner_);
}

bool Cloner::isNameTaken(const OdDbSymbolTable& table, const OdString& name) const {
  if (table.has(name))
    return true;
  for (const Item& item : items_) {
    if (item.container == table.objectId() && item.name.iCompare(name) == 0)
      return true;
  }
  return false;
}

OdString Cloner::freeName(const OdDbSymbolTable& table, const OdDbSymbolTableRecord& record) const {
  OdString name = record.getName();
  // One of the source may be cloned later and must find its name free.
  const auto isSources = [&](const OdString& wanted) { return !source_.symbol(table.kind(), wanted).isNull(); };
  for (unsigned n = 2; isSources(name) || isNameTaken(table, name); ++n)
    name.format(L"%s-%u", record.getName().c_str(), n);
  return name;
}

OdString Cloner::boundName(const OdDbSymbolTable& table, const OdDbSymbolTableRecord& record) const {
  OdString name;
  unsigned n = 0;
  do {
    name = boundSymbolName(boundTo_, record.getName(), n++);
  } while (isNameTaken(table, name));
  return name;
}

namespace {

// The record of the table that matches one of another drawing. Shape files have no names; they are matched by file.
OdDbObjectId recordLike(const OdDbSymbolTable& table, const OdDbSymbolTableRecord& record) {
  const auto* style = dynamic_cast<const OdDbTextStyleTableRecord*>(&record);
  if (style == nullptr || !style->getName().isEmpty())
    return table.getAt(record.getName());
  for (const OdDbObjectId id : table.members().ids()) {
    const auto* other = getIf<OdDbTextStyleTableRecord>(id);
    if (isAlive(other) && other->getName().isEmpty() && other->fileName().iCompare(style->fileName()) == 0)
      return id;
  }
  return {};
}

} // namespace

void Cloner::planRecord(OdDbSymbolTableRecord& record) {
  const OdDbObjectId tableId = target_.getSymbolTableId(record.tableKind());
  const auto* table = getIf<OdDbSymbolTable>(tableId);
  if (table == nullptr)
    return;
  Item item{record.objectId(), Action::kMake, {}, tableId, record.getName(), false};
  if (const auto replacement = replacements_.find(record.objectId()); replacement != replacements_.end()) {
    item.action = Action::kUse;
    item.target = replacement->second;
    return plan(std::move(item));
  }
  const auto* block = dynamic_cast<OdDbBlockTableRecord*>(&record);
  if (isTabContents(record)) {
    item.name = L"*U"; // a reference draws it: a block of its own, and the target's space stays
  } else if (block != nullptr && block->isAnonymous()) {
    item.name = record.getName().left(2); // renumbered when it is added to the table
  } else if (!boundTo_.isEmpty() && isNamedAfterReference(record)) {
    item.name = boundName(*table, record);
  } else if (const OdDbObjectId present = recordLike(*table, record); !present.isNull()) {
    const bool replaces = duplicates_ == OdDb::kDrcReplace;
    if (present == owner_ || (!replaces && !canReplace(present))) {
      item.name = freeName(*table, record);
      reportRenamed(record.getName(), item.name);
    } else {
      item.action = replaces ? Action::kReplace : Action::kUse;
      item.target = present;
    }
  }
  plan(std::move(item));
}

// The dictionary of the target that answers to one of the source: the same names lead to it from the root. Missing
// ones are made. Null for dictionaries that do not hang on the root.
OdDbDictionary* Cloner::counterpart(OdDbObjectId dictionary) {
  std::vector<OdString> path;
  std::unordered_set<OdDbObjectId> seen;
  OdDbObjectId at = dictionary;
  while (at != source_.getNamedObjectsDictionaryId()) {
    const auto* child = getIf<OdDbDictionary>(at);
    const auto* parent = child == nullptr ? nullptr : getIf<OdDbDictionary>(child->ownerId());
    if (parent == nullptr || !seen.insert(at).second)
      return nullptr;
    const OdString name = parent->nameAt(at);
    if (name.isEmpty())
      return nullptr;
    path.push_back(name);
    at = parent->objectId();
  }
  auto* found = getIf<OdDbDictionary>(target_.getNamedObjectsDictionaryId());
  for (auto name = path.rbegin(); name != path.rend() && found != nullptr; ++name) {
    if (!found->has(*name)) {
      const WriteScope scope(*found);
      madeDictionaries_.push_back(found->setAt(*name, new OdDbDictionary));
    }
    found = getIf<OdDbDictionary>(found->getAt(*name));
  }
  return found;
}

void Cloner::removeMadeDictionaries() {
  for (auto id = madeDictionaries_.rbegin(); id != madeDictionaries_.rend(); ++id) {
    OdDbObject& made = *lookup(*id);
    auto& parent = *getIf<OdDbDictionary>(made.ownerId());
    const WriteScope scope(made), parentScope(parent);
    parent.remove(parent.nameAt(*id));
    made.erase();
  }
}

void Cloner::planEntry(OdDbObject& object) {
  if (object.isKindOf(OdDbDictionary::desc())) {
    if (OdDbDictionary* there = counterpart(object.objectId()))
      plan({object.objectId(), Action::kUse, there->objectId(), {}, {}, false});
    return;
  }
  const auto* container = getIf<OdDbDictionary>(object.ownerId());
  OdDbDictionary* there = container == nullptr ? nullptr : counterpart(container->objectId());
  if (there == nullptr)
    return;
  const OdString name = container->nameAt(object.objectId());
  Item item{object.objectId(), Action::kMake, {}, there->objectId(), name, false};
  const OdDbObjectId present = there->getAt(name);
  if (const OdDbObject* same = lookup(present); same != nullptr) {
    item.target = present;
    const bool replaces = duplicates_ == OdDb::kDrcReplace && same->isA() == object.isA();
    item.action = replaces ? Action::kReplace : Action::kUse;
  }
  plan(std::move(item));
}

// It is attached to the block, not to the contents, and refers to them; so it is cloned with them or not at all.
void Cloner::planDynamicBlockData() {
  const OdDbObjectId dynamicData = dynamicBlockDataOf(contentsOf_);
  if (dynamicData.isNull() || dynamicData.database() != &source_) {
    contentsOf_ = {};
    return;
  }
  planned_.emplace(contentsOf_, 0); // the owner stands for it
  plan({dynamicData, Action::kMake, {}, {}, kDynamicBlockKey, false});
}

OdResult Cloner::run(const std::vector<OdDbObjectId>& primaries) {
  if (lookup(owner_) == nullptr || owner_.database() != &target_)
    return eInvalidOwnerObject;
  for (OdDbObjectId id : primaries) {
    const OdDbObject* object = lookup(id);
    if (object == nullptr || id.database() != &source_)
      return id.isNull() ? eNullObjectId : eWrongDatabase;
    if (object->isErased())
      return eWasErased;
  }
  if (!crosses() && closesCycle(primaries))
    return eSelfReference;
  for (OdDbObjectId id : primaries)
    plan({id, Action::kMake, {}, {}, {}, true});
  planDynamicBlockData();
  for (std::size_t i = 0; i < items_.size(); ++i) {
    if (items_.size() > mapping_.objectLimit()) {
      removeMadeDictionaries();
      return eBudgetExceeded;
    }
    planTree(i);
  }
  if (!contentsOf_.isNull())
    items_[primaries.size()].container = getIf<OdDbBlockTableRecord>(owner_)->createExtensionDictionary();
  for (const Item& item : items_) {
    if (item.action == Action::kMake)
      make(item);
    else if (item.action == Action::kReplace)
      replace(item);
    else
      mapping_.assign(OdDbIdPair(item.source, item.target, false, false));
  }
  translate();
  return eOk;
}

} // namespace drawing
