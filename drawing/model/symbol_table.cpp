#include "DbSymbolTable.h"

#include "DbDatabase.h"
#include "drawing/model/object_store.h"
#include "drawing/model/record.h"
#include "drawing/model/symbol_name.h"
#include "drawing/model/symbol_table_kinds.h"
#include "drawing/model/undo_log.h"

MVDRAWING_DEFINE_OBJECT(OdDbSymbolTable, OdDbObject, "TABLE");
MVDRAWING_DEFINE_OBJECT(OdDbSymbolTableRecord, OdDbObject, "");
MVDRAWING_DEFINE_CLASS(OdDbSymbolTableIterator, OdRxObject, "");

namespace {

// The number of records follows from the records.
bool takesCount(OdDbObject&, const drawing::RawGroup& group, drawing::LoadContext&) {
  return group.code == 70;
}

} // namespace

const drawing::Description& OdDbSymbolTable::ownDescription() {
  static const drawing::Description description(&OdDbObject::ownDescription(), {{"AcDbSymbolTable", {}, &takesCount}});
  return description;
}

const drawing::Description& OdDbSymbolTableRecord::ownDescription() {
  static const drawing::Description description(&OdDbObject::ownDescription(), {{"AcDbSymbolTableRecord", {}}});
  return description;
}

OdDbSymbolTableRecordPtr OdDbSymbolTableIterator::getRecord(OdDb::OpenMode mode) const {
  return iterator_.object(mode);
}

std::size_t OdDbSymbolTable::FoldHash::operator()(const OdString& text) const {
  return foldHash(text);
}
bool OdDbSymbolTable::FoldEqual::operator()(const OdString& a, const OdString& b) const {
  return a.iCompare(b) == 0;
}

std::string OdDbSymbolTable::dxfName() const {
  return drawing::tableDxfName(kind());
}

void OdDbSymbolTable::ensureIndex() const {
  if (indexed_)
    return;
  index_.byName.clear();
  index_.nextFree.clear();
  for (OdDbObjectId id : members_.ids()) {
    const auto* record = drawing::getIf<OdDbSymbolTableRecord>(id);
    if (record != nullptr && !record->isErased())
      index_.byName.emplace(record->getName(), id);
  }
  indexed_ = true;
}

OdDbObjectId OdDbSymbolTable::getAt(const OdString& name, bool openErased) const {
  ensureIndex();
  if (auto found = index_.byName.find(name); found != index_.byName.end())
    return found->second;
  if (!openErased)
    return {};
  for (OdDbObjectId id : members_.ids()) {
    const auto* record = drawing::getIf<OdDbSymbolTableRecord>(id);
    if (record != nullptr && record->getName().iCompare(name) == 0)
      return id;
  }
  return {};
}

OdDbObjectId OdDbSymbolTable::add(OdDbSymbolTableRecord* record) {
  const OdDbObjectId id = addClone(record);
  if (!id.isNull()) {
    const drawing::WriteScope scope(*record);
    record->joinedTable();
  }
  return id;
}

OdDbObjectId OdDbSymbolTable::addClone(OdDbSymbolTableRecord* record) {
  assertWriteEnabled();
  if (kind() == OdDb::kBlockTable)
    record->setName(completeAnonymous(record->getName()));
  const bool mayRepeat = kind() == OdDb::kTextStyleTable && record->getName().isEmpty();
  if (!mayRepeat && has(record->getName()))
    return {};
  if (!record->isResident())
    database()->addObject(record, objectId());
  return registerRecord(record) ? record->objectId() : OdDbObjectId();
}

bool OdDbSymbolTable::registerRecord(OdDbSymbolTableRecord* record) {
  ensureIndex();
  // The tiles of a viewport configuration share its name, and shape files have none.
  const bool mayRepeat = kind() == OdDb::kViewportTable || record->getName().isEmpty();
  if (!index_.byName.emplace(record->getName(), record->objectId()).second && !mayRepeat)
    return false;
  if (isResident())
    database()->undoLog().listGrows(*this, members_.size());
  members_.push(record->objectId());
  return true;
}

void OdDbSymbolTable::replaceMember(OdDbObjectId old, const OdDbSymbolTableRecord& fresh) {
  members_.replace(old, fresh.objectId());
  const auto found = index_.byName.find(fresh.getName());
  if (indexed_ && found != index_.byName.end() && found->second == old)
    found->second = fresh.objectId();
  else
    indexed_ = false;
}

OdString OdDbSymbolTable::completeAnonymous(const OdString& name) const {
  if (name.getLength() != 2 || name.getAt(0) != L'*')
    return name;
  unsigned& last = index_.lastAnonymous[name];
  OdString complete;
  do {
    complete.format(L"%s%u", name.c_str(), ++last);
  } while (has(complete));
  return complete;
}

OdString OdDbSymbolTable::freeName(const OdString& wanted) const {
  OdString name = wanted;
  if (!has(name))
    return name;
  unsigned& next = index_.nextFree.try_emplace(wanted, 2).first->second;
  do {
    name.format(L"%s-%u", wanted.c_str(), next);
  } while (has(name) && ++next != 0);
  return name;
}

OdDbSymbolTableIteratorPtr OdDbSymbolTable::newIterator(bool, bool skipDeleted) const {
  return OdDbSymbolTableIteratorPtr(new OdDbSymbolTableIterator(objectId(), skipDeleted));
}

void OdDbSymbolTable::nameChanges(const OdDbSymbolTableRecord& record, const OdString& from, const OdString& to) {
  if (!indexed_)
    return;
  const auto found = index_.byName.find(from);
  if (found == index_.byName.end() || found->second != record.objectId())
    return; // not a member yet
  index_.byName.erase(found);
  index_.nextFree.clear();
  index_.byName.emplace(to, record.objectId());
}

void OdDbSymbolTable::memberErased(const OdDbSymbolTableRecord& record, bool erased) {
  if (!indexed_)
    return;
  index_.nextFree.clear();
  auto found = index_.byName.find(record.getName());
  if (erased && found != index_.byName.end() && found->second == record.objectId())
    index_.byName.erase(found);
  else if (!erased)
    index_.byName.emplace(record.getName(), record.objectId());
}

void OdDbSymbolTableRecord::setName(const OdString& name) {
  assertWriteEnabled();
  auto* table = drawing::getIf<OdDbSymbolTable>(ownerId());
  if (table == nullptr || !isResident()) {
    name_ = name;
    return;
  }
  const OdDbObjectId existing = table->getAt(name);
  if (!existing.isNull() && existing != objectId())
    throw OdError(eDuplicateRecordName);
  table->nameChanges(*this, name_, name);
  name_ = name;
}

bool OdDbSymbolTableRecord::isDependent() const {
  const int bar = name_.find(L'|');
  return (flags_ & kDependent) != 0 || (bar > 0 && bar + 1 < name_.getLength());
}

void OdDbSymbolTableRecord::setFlag(std::int16_t bit, bool on) {
  assertWriteEnabled();
  flags_ = static_cast<std::int16_t>(on ? flags_ | bit : flags_ & ~bit);
}

OdResult OdDbSymbolTableRecord::canUnerase() const {
  const auto* table = drawing::getIf<OdDbSymbolTable>(ownerId());
  const bool mayRepeat = name_.isEmpty() || tableKind() == OdDb::kViewportTable;
  return table != nullptr && !mayRepeat && table->has(name_) ? eDuplicateRecordName : eOk;
}

namespace {

// The table of dimension styles repeats its records in its head, with their number under 71.
void dropFromTablePreamble(OdDbSymbolTable& table, OdDbObjectId record) {
  const drawing::GroupList* preamble = table.unmodelledGroupsOrNull();
  const auto isRecord = [&](std::size_t at) {
    return (*preamble)[at].kind == drawing::GroupKind::kReference && preamble->idOf((*preamble)[at]) == record;
  };
  std::size_t at = 0;
  while (preamble != nullptr && at < preamble->size() && !isRecord(at))
    ++at;
  if (preamble == nullptr || at == preamble->size())
    return;
  const drawing::WriteScope scope(table);
  drawing::GroupList& groups = table.unmodelledGroups();
  groups.erase(at, 1);
  const std::size_t count = groups.find(71);
  if (count < groups.size() && groups[count].integer > 0)
    groups.setInteger(count, groups[count].integer - 1);
}

} // namespace

void OdDbSymbolTableRecord::afterErase(bool erasing) {
  auto* table = drawing::getIf<OdDbSymbolTable>(ownerId());
  if (table == nullptr)
    return;
  table->memberErased(*this, erasing);
  if (erasing)
    dropFromTablePreamble(*table, objectId());
}

OdDb::SymbolTableKind OdDbSymbolTableRecord::tableKind() const {
  return drawing::tableKindOf(isA());
}

std::string OdDbSymbolTableRecord::dxfName() const {
  const OdDb::SymbolTableKind kind = tableKind();
  return kind == OdDb::kNoTable ? OdDbObject::dxfName() : drawing::tableDxfName(kind);
}

namespace drawing {

ObjectIterator::ObjectIterator(OdDbObjectId container, bool skipErased)
    : container_(container), skipErased_(skipErased) {
  skipErasedMembers();
}

const IdList* ObjectIterator::list() const {
  OdDbObject* container = lookup(container_);
  return container == nullptr ? nullptr : container->memberList();
}

void ObjectIterator::skipErasedMembers() {
  const IdList* members = list();
  while (members != nullptr && at_ < members->size() && skipErased_ && (*members)[at_].isErased())
    ++at_;
}

bool ObjectIterator::done() const {
  const IdList* members = list();
  return members == nullptr || at_ >= members->size();
}

void ObjectIterator::start() {
  at_ = 0;
  skipErasedMembers();
}

void ObjectIterator::step() {
  ++at_;
  skipErasedMembers();
}

OdDbObjectId ObjectIterator::objectId() const {
  // A member may have been erased since the walk came to it; the walk still names it.
  return done() ? OdDbObjectId() : (*list())[at_];
}

OdDbObjectPtr ObjectIterator::object(OdDb::OpenMode mode, bool openErased) const {
  return objectId().safeOpenObject(mode, openErased);
}

} // namespace drawing

namespace drawing {

OdString symbolName(OdDbObjectId id) {
  const auto* record = getIf<OdDbSymbolTableRecord>(id);
  return record == nullptr ? OdString() : record->getName();
}

} // namespace drawing
