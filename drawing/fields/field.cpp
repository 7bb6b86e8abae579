#include "DbField.h"

#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbIdMapping.h"
#include "drawing/model/load_context.h"
#include "drawing/model/object_store.h"
#include "drawing/model/visit_references.h"

#include <algorithm>

using drawing::getIf;
using drawing::WriteScope;

MVDRAWING_DEFINE_OBJECT(OdDbField, OdDbObject, "FIELD");
MVDRAWING_DEFINE_OBJECT(OdDbFieldList, OdDbObject, "FIELDLIST");

namespace {

const OdString kFields = L"ACAD_FIELD";
const OdString kFieldList = L"ACAD_FIELDLIST";
constexpr int kPieceLength = 250; // characters of the code in one group

void dropNulls(std::vector<OdDbObjectId>& ids) {
  ids.erase(std::remove_if(ids.begin(), ids.end(), [](OdDbObjectId id) { return id.isNull(); }), ids.end());
}

bool isErasedObject(OdDbObjectId id) {
  const OdDbObject* object = drawing::lookup(id);
  return object != nullptr && object->isErased();
}

// The drawing's list of fields is what it is searched for fields by.
void registerField(OdDbDatabase& database, OdDbObjectId field) {
  auto* list = getIf<OdDbFieldList>(OdDbFieldList::listOf(database));
  if (list == nullptr) {
    auto* root = getIf<OdDbDictionary>(database.getNamedObjectsDictionaryId());
    if (root == nullptr)
      return;
    list = new OdDbFieldList;
    const WriteScope scope(*root);
    root->setAt(kFieldList, list);
  }
  const WriteScope scope(*list);
  list->add(field);
}

} // namespace

const drawing::Description& OdDbField::ownDescription() {
  static const drawing::Description description(&OdDbObject::ownDescription(),
                                                {{"AcDbField", {}, &readGroup, &writeGroups}});
  return description;
}

// The head of a field: evaluator, code, children, objects. The codes mean other things behind it.
bool OdDbField::readCodePiece(const drawing::RawGroup& group, drawing::LoadContext& context) {
  switch (group.code) {
  case 1:
    if (!code_.empty())
      return false;
    evaluator_ = context.text(group);
    return true;
  case 2:
  case 3:
    code_.push_back(context.text(group));
    return true;
  case 90: // the counts follow from the lists
  case 97:
    return true;
  case 360:
    children_.push_back(context.reference(group));
    return true;
  case 331:
    objects_.push_back(context.reference(group));
    return true;
  default:
    return false;
  }
}

bool OdDbField::readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context) {
  auto& field = static_cast<OdDbField&>(object);
  if (!field.rest_.empty() || !field.readCodePiece(group, context))
    context.append(field.rest_, group);
  return true;
}

void OdDbField::writeGroups(const OdDbObject& object, drawing::GroupSink& sink) {
  const auto& field = static_cast<const OdDbField&>(object);
  sink.text(1, field.evaluator_);
  for (std::size_t i = 0; i + 1 < field.code_.size(); ++i)
    sink.text(3, field.code_[i]);
  sink.text(2, field.code_.empty() ? OdString() : field.code_.back());
  const auto isAlive = [](OdDbObjectId id) { return !isErasedObject(id); };
  sink.integer(90, std::count_if(field.children_.begin(), field.children_.end(), isAlive));
  for (OdDbObjectId id : field.children_) {
    if (isAlive(id))
      sink.reference(360, id);
  }
  sink.integer(97, static_cast<std::int64_t>(field.objects_.size()));
  for (OdDbObjectId id : field.objects_)
    sink.reference(331, id);
  field.rest_.writeTo(sink);
}

void OdDbField::setEvaluatorId(const OdString& id) {
  assertWriteEnabled();
  evaluator_ = id;
}

OdString OdDbField::getFieldCode() const {
  OdString all;
  for (const OdString& piece : code_)
    all += piece;
  return all;
}

void OdDbField::setFieldCode(const OdString& code) {
  assertWriteEnabled();
  code_.clear();
  for (int at = 0; at < code.getLength(); at += kPieceLength)
    code_.push_back(code.mid(at, kPieceLength));
}

OdDbObjectId OdDbField::appendChild(OdDbField* child) {
  assertWriteEnabled();
  if (!isResident())
    throw OdError(eNotInDatabase);
  const OdDbObjectId id = child->isResident() ? child->objectId() : database()->addObject(child, objectId());
  children_.push_back(id);
  registerField(*database(), id);
  return id;
}

void OdDbField::addObjectId(OdDbObjectId id) {
  assertWriteEnabled();
  if (std::find(objects_.begin(), objects_.end(), id) == objects_.end())
    objects_.push_back(id);
}

namespace {

const OdDbDictionary* fieldsOf(const OdDbObject& object) {
  const auto* extension = getIf<OdDbDictionary>(object.extensionDictionary());
  return extension == nullptr ? nullptr : getIf<OdDbDictionary>(extension->getAt(kFields));
}

} // namespace

bool OdDbField::hasFields(const OdDbObject& object) {
  const OdDbDictionary* fields = fieldsOf(object);
  return fields != nullptr && fields->numEntries() > 0;
}

OdDbObjectId OdDbField::getField(const OdDbObject& object, const OdString& property) {
  const OdDbDictionary* fields = fieldsOf(object);
  return fields == nullptr ? OdDbObjectId() : fields->getAt(property);
}

OdDbObjectId OdDbField::setField(OdDbObject& object, OdDbField* field, const OdString& property) {
  object.assertWriteEnabled();
  const OdSmartPtr<OdDbDictionary> extension = object.createExtensionDictionary().safeOpenObject(OdDb::kForWrite);
  auto* fields = getIf<OdDbDictionary>(extension->getAt(kFields));
  if (fields == nullptr) {
    fields = new OdDbDictionary;
    fields->setTreatElementsAsHard(true);
    extension->setAt(kFields, fields);
  }
  const WriteScope scope(*fields);
  const OdDbObjectId id = fields->setAt(property, field);
  registerField(*object.database(), id);
  return id;
}

OdResult OdDbField::removeField(OdDbObject& object, const OdString& property) {
  object.assertWriteEnabled();
  const OdDbObjectId id = getField(object, property);
  if (id.isNull())
    return eKeyNotFound;
  auto& extension = *getIf<OdDbDictionary>(object.extensionDictionary());
  auto& fields = *getIf<OdDbDictionary>(extension.getAt(kFields));
  const WriteScope fieldsScope(fields), extensionScope(extension);
  fields.remove(property);
  const OdDbObjectPtr field = id.safeOpenObject(OdDb::kForWrite);
  field->erase();
  if (fields.numEntries() == 0) {
    extension.remove(kFields);
    fields.erase();
  }
  return eOk;
}

MVDRAWING_VISIT_REFERENCES(OdDbField, OdDbObject, drawing::visitIds(children_, OdDb::kHardOwnershipRef, visitor);
                           drawing::visitIds(objects_, OdDb::kSoftPointerRef, visitor);
                           drawing::visitGroups(rest_, visitor);)

void OdDbField::ownedObjects(std::vector<OdDbObjectId>& ids) const {
  OdDbObject::ownedObjects(ids);
  ids.insert(ids.end(), children_.begin(), children_.end());
}

void OdDbField::afterClone(const OdDbObject&, OdDbIdMapping&) {
  dropNulls(children_);
  if (isResident())
    registerField(*database(), objectId());
}

const drawing::Description& OdDbFieldList::ownDescription() {
  static const drawing::Description description(&OdDbObject::ownDescription(),
                                                {{"AcDbIdSet", {}, &readGroup, &writeGroups}, {"AcDbFieldList", {}}});
  return description;
}

bool OdDbFieldList::readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context) {
  if (group.code == 330)
    static_cast<OdDbFieldList&>(object).ids_.push_back(context.reference(group));
  return group.code == 330 || group.code == 90; // the count follows from the list
}

void OdDbFieldList::writeGroups(const OdDbObject& object, drawing::GroupSink& sink) {
  std::vector<OdDbObjectId> alive;
  for (OdDbObjectId id : static_cast<const OdDbFieldList&>(object).ids_) {
    if (!isErasedObject(id))
      alive.push_back(id);
  }
  sink.integer(90, static_cast<std::int64_t>(alive.size()));
  for (OdDbObjectId id : alive)
    sink.reference(330, id);
}

void OdDbFieldList::add(OdDbObjectId field) {
  assertWriteEnabled();
  if (known_.empty())
    known_.insert(ids_.begin(), ids_.end());
  if (known_.insert(field).second)
    ids_.push_back(field);
}

OdDbObjectId OdDbFieldList::listOf(const OdDbDatabase& database) {
  const auto* root = getIf<OdDbDictionary>(database.getNamedObjectsDictionaryId());
  const OdDbObjectId id = root == nullptr ? OdDbObjectId() : root->getAt(kFieldList);
  return getIf<OdDbFieldList>(id) == nullptr ? OdDbObjectId() : id;
}

void OdDbFieldList::visitReferences(drawing::ReferenceVisitor& visitor) {
  OdDbObject::visitReferences(visitor);
  known_.clear(); // the visitor may change them
  for (OdDbObjectId& id : ids_)
    visitor.visit(id, OdDb::kSoftPointerRef);
}

void OdDbFieldList::visitReferences(drawing::ConstReferenceVisitor& visitor) const {
  OdDbObject::visitReferences(visitor);
  for (const OdDbObjectId id : ids_)
    visitor.visit(id, OdDb::kSoftPointerRef);
}

void OdDbFieldList::afterClone(const OdDbObject&, OdDbIdMapping&) {
  known_.clear();
  dropNulls(ids_);
}
