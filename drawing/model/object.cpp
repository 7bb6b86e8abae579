#include "DbObject.h"

#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbSymbolTable.h"
#include "drawing/model/object_store.h"
#include "drawing/model/undo_log.h"
#include "drawing/model/visit_references.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

MVDRAWING_DEFINE_ABSTRACT_CLASS(OdDbObject, OdRxObject);

OdDbObject::OdDbObject() = default;
OdDbObject::~OdDbObject() = default;

OdDbObject::OdDbObject(const OdDbObject& other)
    : OdRxObject(other), owner_(other.owner_),
      extras_(other.extras_ ? std::make_unique<Extras>(*other.extras_) : nullptr), erased_(other.erased_) {}

OdDbObject& OdDbObject::operator=(const OdDbObject& other) {
  if (this != &other) {
    owner_ = other.owner_;
    extras_ = other.extras_ ? std::make_unique<Extras>(*other.extras_) : nullptr;
    erased_ = other.erased_;
  }
  return *this;
}

OdDbObject* OdDbObject::makeCopy() const {
  throw OdError(eNotApplicable);
}
void OdDbObject::assignState(const OdDbObject& other) {
  *this = other;
}

const drawing::Description& OdDbObject::ownDescription() {
  static const drawing::Description none(nullptr, {});
  return none;
}

const drawing::Description& OdDbObject::description() const {
  return ownDescription();
}

std::string OdDbObject::dxfName() const {
  return isA()->dxfName();
}

void OdDbObject::onLastRelease() const {
  if (isResident())
    writable_ = false;
  else
    delete this;
}

OdDbDatabase* OdDbObject::database() const {
  return id_.database();
}

void OdDbObject::assertWriteEnabled() {
  if (!isResident())
    return;
  if (!writable_)
    throw OdError(eNotOpenForWrite);
  database()->undoLog().objectChanges(*this);
}

void OdDbObject::upgradeOpen() {
  if (isResident() && !writable_) {
    if (isOnLockedLayer())
      throw OdError(eOnLockedLayer);
    writable_ = true;
  }
}

void OdDbObject::downgradeOpen() {
  writable_ = false;
}

void OdDbObject::setOwnerId(OdDbObjectId owner) {
  assertWriteEnabled();
  owner_ = owner;
}

OdResult OdDbObject::erase(bool erasing) {
  if (erased_ == erasing)
    return eWasErased;
  if (const OdResult reason = erasing ? eOk : canUnerase(); reason != eOk)
    return reason;
  // What an object owns shares its fate; the list is walked because ownership may nest to any depth.
  std::vector<OdDbObjectId> owned;
  std::unordered_set<OdDbObjectId> seen{id_};
  ownedObjects(owned);
  for (std::size_t i = 0; i < owned.size(); ++i) {
    OdDbObject* object = drawing::lookup(owned[i]);
    if (object == nullptr || object->erased_ == erasing || !seen.insert(owned[i]).second)
      continue;
    object->ownedObjects(owned);
    const drawing::WriteScope scope(*object);
    object->assertWriteEnabled();
    object->erased_ = erasing;
    object->afterErase(erasing);
  }
  assertWriteEnabled();
  erased_ = erasing;
  afterErase(erasing);
  return eOk;
}

void OdDbObject::afterErase(bool) {}

OdDbObject::Extras& OdDbObject::extras() {
  if (!extras_)
    extras_ = std::make_unique<Extras>();
  return *extras_;
}

OdDbObjectId OdDbObject::extensionDictionary() const {
  return extras_ ? extras_->extensionDictionary : OdDbObjectId();
}

OdDbObjectId OdDbObject::createExtensionDictionary() {
  if (OdDbObjectId present = extensionDictionary(); !present.isNull() && !present.isErased())
    return present;
  if (!isResident())
    throw OdError(eNotInDatabase);
  assertWriteEnabled();
  OdDbDictionaryPtr made = OdDbDictionary::createObject();
  made->setTreatElementsAsHard(true);
  extras().extensionDictionary = database()->addObject(made.get(), id_);
  return extras_->extensionDictionary;
}

OdDbObjectIdArray OdDbObject::getPersistentReactors() const {
  OdDbObjectIdArray ids;
  if (extras_) {
    for (OdDbObjectId id : extras_->reactors)
      ids.append(id);
  }
  return ids;
}

bool OdDbObject::hasPersistentReactor(OdDbObjectId id) const {
  return extras_ && std::find(extras_->reactors.begin(), extras_->reactors.end(), id) != extras_->reactors.end();
}

void OdDbObject::addPersistentReactor(OdDbObjectId id) {
  assertWriteEnabled();
  if (!hasPersistentReactor(id))
    extras().reactors.push_back(id);
}

void OdDbObject::removePersistentReactor(OdDbObjectId id) {
  assertWriteEnabled();
  if (extras_) {
    auto& all = extras_->reactors;
    all.erase(std::remove(all.begin(), all.end(), id), all.end());
  }
}

drawing::GroupList& OdDbObject::unmodelledGroups() {
  assertWriteEnabled();
  return extras().unmodelledGroups;
}

const drawing::GroupList* OdDbObject::unmodelledGroupsOrNull() const {
  return extras_ ? &extras_->unmodelledGroups : nullptr;
}
const drawing::GroupList* OdDbObject::xDataGroups() const {
  return extras_ ? &extras_->xData : nullptr;
}

drawing::GroupList& OdDbObject::xDataGroupsForWrite() {
  assertWriteEnabled();
  return extras().xData;
}

namespace {

bool isReference(const drawing::Field& field) {
  return field.kind == drawing::FieldKind::kReference && !field.readOnly;
}

template <class Extras, class Visitor>
void visitExtras(Extras& extras, Visitor& visitor) {
  visitor.visit(extras.extensionDictionary, OdDb::kHardOwnershipRef);
  drawing::visitIds(extras.reactors, OdDb::kSoftPointerRef, visitor);
  drawing::visitGroups(extras.unmodelledGroups, visitor);
  drawing::visitGroups(extras.applicationGroups, visitor);
  drawing::visitGroups(extras.xData, visitor);
}

} // namespace

void OdDbObject::visitReferences(drawing::ReferenceVisitor& visitor) {
  for (const drawing::SubclassLayout* subclass : description().subclasses()) {
    for (const drawing::Field& field : subclass->fields) {
      if (isReference(field))
        visitor.visit(*static_cast<OdDbObjectId*>(field.at(*this)), field.referenceType);
    }
  }
  if (extras_)
    visitExtras(*extras_, visitor);
}

void OdDbObject::visitReferences(drawing::ConstReferenceVisitor& visitor) const {
  for (const drawing::SubclassLayout* subclass : description().subclasses()) {
    for (const drawing::Field& field : subclass->fields) {
      if (isReference(field))
        visitor.visit(*static_cast<const OdDbObjectId*>(field.constAt(*this)), field.referenceType);
    }
  }
  if (extras_)
    visitExtras(std::as_const(*extras_), visitor);
}

void OdDbObject::ownedObjects(std::vector<OdDbObjectId>& ids) const {
  if (!extras_)
    return;
  if (!extras_->extensionDictionary.isNull())
    ids.push_back(extras_->extensionDictionary);
  // A helper that only this object names, such as the reactor of an image.
  drawing::listOwned(extras_->unmodelledGroups, id_, ids);
}

void OdDbObject::dropLostReactors() {
  if (extras_) {
    auto& all = extras_->reactors;
    all.erase(std::remove(all.begin(), all.end(), OdDbObjectId()), all.end());
  }
}

void OdDbObject::afterClone(const OdDbObject&, OdDbIdMapping&) {}
void OdDbObject::afterLoad() {}

void drawing::listOwned(const GroupList& groups, OdDbObjectId listOwner, std::vector<OdDbObjectId>& ids) {
  for (std::size_t i = 0; i < groups.size(); ++i) {
    if (groups[i].kind != GroupKind::kReference)
      continue;
    const OdDb::ReferenceType type = referenceTypeOf(groups[i].code);
    const OdDbObject* object = lookup(groups.idOf(groups[i]));
    if (object == nullptr || (type != OdDb::kHardOwnershipRef && type != OdDb::kSoftOwnershipRef))
      continue;
    // Some programs leave helpers without an owner; tables and dictionaries may stand at the top.
    const bool ownerless = object->ownerId().isNull() && type == OdDb::kHardOwnershipRef &&
                           !object->isKindOf(OdDbDictionary::desc()) && !object->isKindOf(OdDbSymbolTable::desc());
    if (object->ownerId() == listOwner || ownerless)
      ids.push_back(object->objectId());
  }
}

void drawing::visitGroups(drawing::GroupList& groups, drawing::ReferenceVisitor& visitor) {
  for (std::size_t i = 0; i < groups.size(); ++i) {
    if (groups[i].kind != drawing::GroupKind::kReference)
      continue;
    OdDbObjectId id = groups.idOf(groups[i]);
    const OdDbObjectId before = id;
    visitor.visit(id, drawing::referenceTypeOf(groups[i].code));
    if (id != before)
      groups.setId(i, id);
  }
}

void drawing::visitGroups(const drawing::GroupList& groups, drawing::ConstReferenceVisitor& visitor) {
  for (std::size_t i = 0; i < groups.size(); ++i) {
    if (groups[i].kind == drawing::GroupKind::kReference)
      visitor.visit(groups.idOf(groups[i]), drawing::referenceTypeOf(groups[i].code));
  }
}

namespace drawing {

ReferenceVisitor::~ReferenceVisitor() = default;
ConstReferenceVisitor::~ConstReferenceVisitor() = default;

Description::Description(const Description* base, std::initializer_list<SubclassLayout> own) : own_(own) {
  if (base != nullptr)
    subclasses_ = base->subclasses_;
  for (const SubclassLayout& subclass : own_)
    subclasses_.push_back(&subclass);
}

} // namespace drawing
