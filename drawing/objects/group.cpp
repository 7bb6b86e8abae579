#include "DbGroup.h"

#include "DbDictionary.h"
#include "drawing/model/load_context.h"
#include "drawing/model/object_store.h"
#include "drawing/model/setters.h"
#include "drawing/model/visit_references.h"

#include <algorithm>

using drawing::field;
using drawing::getIf;

MVDRAWING_DEFINE_OBJECT(OdDbGroup, OdDbObject, "GROUP");

const drawing::Description& OdDbGroup::ownDescription() {
  using Self = OdDbGroup;
  static const drawing::Description description(
      &OdDbObject::ownDescription(),
      {{"AcDbGroup",
        {field<&Self::description_>(300), field<&Self::unnamed_>(70), field<&Self::selectable_>(71)},
        readGroup,
        writeGroups}});
  return description;
}

bool OdDbGroup::readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context) {
  if (group.code != 340)
    return false;
  static_cast<OdDbGroup&>(object).members_.push_back(context.reference(group));
  return true;
}

void OdDbGroup::writeGroups(const OdDbObject& object, drawing::GroupSink& sink) {
  for (OdDbObjectId id : static_cast<const OdDbGroup&>(object).allEntityIds())
    sink.reference(340, id);
}

MVDRAWING_SETTER(OdDbGroup, setDescription, const OdString&, description_)
MVDRAWING_SETTER(OdDbGroup, setAnonymous, bool, unnamed_)
MVDRAWING_SETTER(OdDbGroup, setSelectable, bool, selectable_)

OdString OdDbGroup::getName() const {
  const auto* dictionary = getIf<OdDbDictionary>(ownerId());
  return dictionary == nullptr ? OdString() : dictionary->nameAt(objectId());
}

std::vector<OdDbObjectId> OdDbGroup::allEntityIds() const {
  std::vector<OdDbObjectId> alive;
  std::copy_if(members_.begin(), members_.end(), std::back_inserter(alive),
               [](OdDbObjectId id) { return drawing::isAlive(id); });
  return alive;
}

bool OdDbGroup::has(OdDbObjectId entity) const {
  return drawing::isAlive(entity) && std::find(members_.begin(), members_.end(), entity) != members_.end();
}

void OdDbGroup::append(OdDbObjectId entity) {
  assertWriteEnabled();
  OdDbObject* object = drawing::lookup(entity);
  if (object == nullptr)
    throw OdError(eNullObjectId);
  if (std::find(members_.begin(), members_.end(), entity) == members_.end())
    members_.push_back(entity);
  object->addPersistentReactor(objectId());
}

void OdDbGroup::remove(OdDbObjectId entity) {
  assertWriteEnabled();
  members_.erase(std::remove(members_.begin(), members_.end(), entity), members_.end());
}

MVDRAWING_VISIT_REFERENCES(OdDbGroup, OdDbObject, drawing::visitIds(members_, OdDb::kHardPointerRef, visitor);)

// Members that were not cloned are not in the copy.
void OdDbGroup::afterClone(const OdDbObject& source, OdDbIdMapping& mapping) {
  OdDbObject::afterClone(source, mapping);
  members_.erase(std::remove(members_.begin(), members_.end(), OdDbObjectId()), members_.end());
}
