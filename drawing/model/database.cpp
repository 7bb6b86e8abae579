#include "DbDatabase.h"

#include "DbBlockTable.h"
#include "DbDictionary.h"
#include "drawing/model/object_store.h"
#include "drawing/model/undo_log.h"
#include "drawing/model/xref_table.h"

#include <unordered_map>

using drawing::getIf;

MVDRAWING_DEFINE_ABSTRACT_CLASS(OdDbDatabase, OdRxObject);

OdDbDatabase::OdDbDatabase()
    : store_(std::make_unique<drawing::Store>(this)), undo_(std::make_unique<drawing::Undo>()),
      xrefs_(std::make_unique<drawing::XrefTable>()) {
  header_ = store_->addNameless(new OdDbHeader);
}

OdDbDatabase::~OdDbDatabase() = default;

OdDbDatabasePtr OdDbDatabase::createEmpty() {
  return OdDbDatabasePtr(new OdDbDatabase);
}

OdDbObjectId OdDbDatabase::addObject(OdDbObject* object, OdDbObjectId owner, OdDbHandle handle) {
  if (object->isResident())
    throw OdError(eWrongDatabase);
  object->setOwnerId(owner);
  const OdDbObjectId id = store_->add(object, handle);
  {
    const drawing::WriteScope scope(*object);
    undo_->objectAdded(*object);
  }
  object->writable_ = object->referenceCount() > 0; // its creator continues to fill it
  return id;
}

OdDbObjectId OdDbDatabase::objectIdOf(OdDbHandle handle) const {
  const OdDbObjectId id = store_->find(handle);
  return drawing::lookup(id) == nullptr ? OdDbObjectId() : id;
}

OdDbHandle OdDbDatabase::handseed() const {
  return store_->nextHandle();
}
void OdDbDatabase::setHandseed(OdDbHandle next) {
  if (!next.isNull())
    store_->raiseNextHandle(next - 1);
}

std::size_t OdDbDatabase::objectCount() const {
  return store_->count() - 1;
}

std::vector<OdDbObjectId> OdDbDatabase::allIds() const {
  std::vector<OdDbObjectId> ids;
  ids.reserve(store_->count());
  for (std::uint32_t number = 1; number < store_->count(); ++number)
    ids.emplace_back(store_->serial(), number);
  return ids;
}

OdDbObjectId OdDbDatabase::symbol(OdDb::SymbolTableKind kind, const OdString& name) const {
  const auto* table = getIf<OdDbSymbolTable>(tables_[kind]);
  return table == nullptr ? OdDbObjectId() : table->getAt(name);
}

OdDbObjectId OdDbDatabase::getModelSpaceId() const {
  return symbol(OdDb::kBlockTable, modelSpaceStr);
}
OdDbObjectId OdDbDatabase::getPaperSpaceId() const {
  return symbol(OdDb::kBlockTable, paperSpaceStr);
}
OdDbObjectId OdDbDatabase::getLayerZeroId() const {
  return symbol(OdDb::kLayerTable, L"0");
}

void OdDbDatabase::startUndoRecord() {
  undo_->startGroup();
}
bool OdDbDatabase::hasUndo() const {
  return undo_->canUndo();
}
bool OdDbDatabase::hasRedo() const {
  return undo_->canRedo();
}
OdResult OdDbDatabase::undo() {
  return undo_->undo() ? eOk : eNotApplicable;
}
OdResult OdDbDatabase::redo() {
  return undo_->redo() ? eOk : eNotApplicable;
}
void OdDbDatabase::rollback() {
  undo_->rollback();
}
void OdDbDatabase::disableUndoRecording(bool disable) {
  undo_->disable(disable);
}
std::uint64_t OdDbDatabase::changeCount() const {
  return undo_->changes();
}

void OdDbDatabase::restoreFromUndo(const OdDbObjectIdArray& ids) {
  std::unordered_map<OdDbObjectId, const OdDbObject*> earlier;
  for (const auto& [id, state] : undo_->earlierStates())
    earlier.emplace(id, state);
  for (OdDbObjectId id : ids) {
    const auto found = earlier.find(id);
    if (found == earlier.end())
      continue;
    OdDbObject* object = drawing::lookup(id);
    std::vector<OdDbObjectId> parts;
    object->movedAlong(parts);
    object->assignState(*found->second);
    for (OdDbObjectId part : parts) {
      if (const auto before = earlier.find(part); before != earlier.end())
        drawing::lookup(part)->assignState(*before->second);
    }
  }
}

void OdDbDatabase::startTransaction() {
  ++transactions_;
}
void OdDbDatabase::endTransaction() {
  if (transactions_ == 0)
    throw OdError(eNotApplicable);
  --transactions_;
}
