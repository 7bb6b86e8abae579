#include "DbDynBlockReference.h"

#include "DbDatabase.h"
#include "DbDictionary.h"
#include "drawing/blocks/block_properties.h"
#include "drawing/model/object_store.h"

using drawing::getIf;
using drawing::isAlive;
using drawing::lookup;

namespace {

const OdString kRepresents = L"AcDbBlockRepBTag";            // extended data of a shape: the definition
const OdString kTrueName = L"AcDbDynamicBlockTrueName";      // extended data of a definition
const OdString kRepresentation = L"AcDbBlockRepresentation"; // extension dictionary of a reference
const OdString kRepresentationData = L"AcDbRepData";
constexpr int kText = 1000;
constexpr int kHandle = 1005;
constexpr int kDefinition = 340;

// Position of a value of the application in the object's extended data; the end when there is none.
std::size_t findData(const drawing::GroupList& groups, const OdString& application, int code) {
  constexpr int kApplication = 1001;
  for (std::size_t i = groups.find(kApplication); i < groups.size(); i = groups.find(kApplication, i + 1)) {
    if (groups.stringOf(groups[i]).iCompare(application) != 0)
      continue;
    const std::size_t found = groups.find(code, i + 1);
    if (found < groups.find(kApplication, i + 1))
      return found;
  }
  return groups.size();
}

bool isAliveBlock(OdDbObjectId id) {
  return isAlive(getIf<OdDbBlockTableRecord>(id));
}

OdDbObjectId definitionRepresented(const OdDbBlockTableRecord& block) {
  const drawing::GroupList* groups = block.xDataGroups();
  if (groups == nullptr)
    return {};
  const std::size_t at = findData(*groups, kRepresents, kHandle);
  if (at == groups->size() || (*groups)[at].kind != drawing::GroupKind::kReference)
    return {};
  const OdDbObjectId definition = groups->idOf((*groups)[at]);
  return isAliveBlock(definition) && definition != block.objectId() ? definition : OdDbObjectId();
}

OdString storedTrueName(const OdDbBlockTableRecord& block) {
  const drawing::GroupList* groups = block.xDataGroups();
  if (groups == nullptr)
    return {};
  const std::size_t at = findData(*groups, kTrueName, kText);
  return at == groups->size() ? OdString() : groups->stringOf((*groups)[at]);
}

OdDbObjectId entryOf(OdDbObjectId dictionary, const OdString& name) {
  const auto* entries = getIf<OdDbDictionary>(dictionary);
  return isAlive(entries) ? entries->getAt(name) : OdDbObjectId();
}

bool hasDynamicBlockData(const OdDbBlockTableRecord& block) {
  return !drawing::dynamicBlockDataOf(block.objectId()).isNull() || !storedTrueName(block).isEmpty();
}

// What the reference itself says it represents.
OdDbObjectId representedBy(const OdDbBlockReference& reference) {
  const OdDbObjectId representation = entryOf(reference.extensionDictionary(), kRepresentation);
  const OdDbObject* data = lookup(entryOf(representation, kRepresentationData));
  const drawing::GroupList* groups = data == nullptr ? nullptr : data->unmodelledGroupsOrNull();
  const std::size_t at = groups == nullptr ? 0 : groups->find(kDefinition);
  if (groups == nullptr || at == groups->size() || (*groups)[at].kind != drawing::GroupKind::kReference)
    return {};
  const OdDbObjectId definition = groups->idOf((*groups)[at]);
  return isAliveBlock(definition) ? definition : OdDbObjectId();
}

} // namespace

OdDbDynBlockReference::OdDbDynBlockReference(OdDbObjectId reference) : reference_(reference) {
  if (const auto* found = getIf<OdDbBlockReference>(reference); isAlive(found))
    resolve(*found);
}

OdDbDynBlockReference::OdDbDynBlockReference(const OdDbBlockReference* reference) {
  if (reference == nullptr)
    return;
  reference_ = reference->objectId();
  resolve(*reference);
}

void OdDbDynBlockReference::resolve(const OdDbBlockReference& reference) {
  const OdDbObjectId referenced = reference.blockTableRecord();
  const auto* block = getIf<OdDbBlockTableRecord>(referenced);
  definition_ = OdDbDynBlockTableRecord(referenced).dynamicBlockTableRecord();
  // Programs that renumber blocks lose the mark of the block before that of the reference.
  if (definition_.isNull() && isAlive(block) && block->isAnonymous())
    definition_ = representedBy(reference);
  if (!definition_.isNull() && definition_ != referenced)
    representation_ = referenced;
}

OdDbDynBlockTableRecord::OdDbDynBlockTableRecord(OdDbObjectId block) : block_(block) {
  const auto* record = getIf<OdDbBlockTableRecord>(block);
  if (!isAlive(record))
    return;
  definition_ = definitionRepresented(*record);
  isDynamic_ = definition_.isNull() && hasDynamicBlockData(*record);
  if (isDynamic_)
    definition_ = block;
}

OdString OdDbDynBlockTableRecord::trueName() const {
  const auto* definition = getIf<OdDbBlockTableRecord>(definition_);
  if (definition == nullptr)
    return {};
  // Versions before dynamic blocks know the definition itself under an anonymous name.
  const OdString stored = storedTrueName(*definition);
  return definition->isAnonymous() && !stored.isEmpty() ? stored : definition->getName();
}

OdDbObjectIdArray OdDbDynBlockTableRecord::getAnonymousBlockIds() const {
  OdDbObjectIdArray shapes;
  const OdDbDatabase* database = isDynamic_ ? block_.database() : nullptr;
  const auto* table = database == nullptr ? nullptr : getIf<OdDbBlockTable>(database->getBlockTableId());
  if (table == nullptr)
    return shapes;
  for (OdDbObjectId id : table->members().ids()) {
    const auto* record = getIf<OdDbBlockTableRecord>(id);
    if (isAlive(record) && definitionRepresented(*record) == block_)
      shapes.append(id);
  }
  return shapes;
}
