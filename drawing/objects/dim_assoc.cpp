#include "DbDimAssoc.h"

#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbEntity.h"
#include "drawing/model/load_context.h"
#include "drawing/model/object_store.h"
#include "drawing/model/visit_references.h"

#include <algorithm>
#include <vector>

using drawing::getIf;
using drawing::WriteScope;

MVDRAWING_DEFINE_OBJECT(OdDbDimAssoc, OdDbObject, "DIMASSOC");

namespace {

const OdString kEntry = L"ACAD_DIMASSOC";
constexpr int kPointStart = 1; // the class name of a point
constexpr int kMaxPoints = 4;

bool isGeometry(const drawing::Group& group) {
  return (group.code == 331 || group.code == 332) && group.kind == drawing::GroupKind::kReference;
}

} // namespace

const drawing::Description& OdDbDimAssoc::ownDescription() {
  using drawing::field;
  static const drawing::Description description(
      &OdDbObject::ownDescription(),
      {{"AcDbDimAssoc",
        {field<&OdDbDimAssoc::dimension_>(330).ref(OdDb::kSoftPointerRef), field<&OdDbDimAssoc::points_>(90),
         field<&OdDbDimAssoc::transSpace_>(70), field<&OdDbDimAssoc::rotatedType_>(71)},
        &readGroup,
        &writeGroups}});
  return description;
}

bool OdDbDimAssoc::readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context) {
  context.append(static_cast<OdDbDimAssoc&>(object).pointGroups_, group);
  return true;
}

void OdDbDimAssoc::writeGroups(const OdDbObject& object, drawing::GroupSink& sink) {
  static_cast<const OdDbDimAssoc&>(object).pointGroups_.writeTo(sink);
}

MVDRAWING_VISIT_REFERENCES(OdDbDimAssoc, OdDbObject, drawing::visitGroups(pointGroups_, visitor);)

void OdDbDimAssoc::setDimObjId(OdDbObjectId dimension) {
  assertWriteEnabled();
  dimension_ = dimension;
}

void OdDbDimAssoc::setAssociatedPoints(std::int32_t bits) {
  assertWriteEnabled();
  points_ = bits;
}

OdDbObjectIdArray OdDbDimAssoc::getDimAssocGeomIds() const {
  OdDbObjectIdArray ids;
  for (std::size_t i = 0; i < pointGroups_.size(); ++i) {
    const drawing::Group& group = pointGroups_[i];
    if (!isGeometry(group))
      continue;
    const OdDbObjectId id = pointGroups_.idOf(group);
    if (!id.isNull() && std::find(ids.begin(), ids.end(), id) == ids.end())
      ids.append(id);
  }
  return ids;
}

OdResult OdDbDimAssoc::getDimAssocGeomIds(OdDbObjectIdArray& ids) const {
  ids = getDimAssocGeomIds();
  return eOk;
}

OdResult OdDbDimAssoc::addPoint(std::int16_t snapType, OdDbObjectId geometry, const OdGePoint3d& point) {
  assertWriteEnabled();
  int present = 0;
  for (std::size_t i = pointGroups_.find(kPointStart); i < pointGroups_.size();
       i = pointGroups_.find(kPointStart, i + 1))
    ++present;
  if (present == kMaxPoints)
    return eOutOfRange;
  pointGroups_.utf8(kPointStart, "AcDbOsnapPointRef");
  pointGroups_.integer(72, snapType);
  pointGroups_.reference(331, geometry);
  pointGroups_.integer(73, 2); // an edge
  pointGroups_.integer(91, 0);
  pointGroups_.real(40, 0);
  pointGroups_.point(10, point);
  pointGroups_.integer(75, 0);
  return eOk;
}

namespace {

// What posting changes, opened for write as a whole or not at all.
struct Opened {
  OdDbObjectPtr dimension;
  std::vector<OdDbObjectPtr> geometry;
};

OdResult openInDrawing(OdDbObjectId id, const OdDbDatabase* database, OdDbObjectPtr& object) {
  if (!id.isNull() && database != nullptr && id.database() != database)
    return eWrongDatabase;
  return id.openObject(object, OdDb::kForWrite);
}

OdResult openAll(OdDbObjectId dimension, const OdDbObjectIdArray& geometry, Opened& opened) {
  if (const OdResult result = dimension.openObject(opened.dimension, OdDb::kForWrite); result != eOk)
    return result;
  for (OdDbObjectId id : geometry) {
    OdDbObjectPtr object;
    if (const OdResult result = openInDrawing(id, dimension.database(), object); result != eOk)
      return result;
    opened.geometry.push_back(object);
  }
  return eOk;
}

void attach(OdDbObject& object, OdDbObjectId association) {
  if (object.isKindOf(OdDbEntity::desc()))
    static_cast<OdDbEntity&>(object).attachAssociation(association);
  else
    object.addPersistentReactor(association);
}

// Nothing may keep pointing at an association that gives way; a locked layer does not keep it alive.
void detachOld(OdDbObjectId old) {
  const auto* association = getIf<OdDbDimAssoc>(old);
  if (association == nullptr)
    return;
  OdDbObjectIdArray ids = association->getDimAssocGeomIds();
  ids.append(association->dimObjId());
  for (OdDbObjectId id : ids) {
    OdDbObject* object = drawing::lookup(id);
    if (object == nullptr || !object->hasPersistentReactor(old))
      continue;
    const WriteScope scope(*object);
    object->removePersistentReactor(old);
  }
}

} // namespace

void OdDbDimAssoc::afterClone(const OdDbObject& source, OdDbIdMapping& mapping) {
  OdDbObject::afterClone(source, mapping);
  const auto tiesOf = [](const drawing::GroupList& groups) {
    std::size_t tied = 0;
    for (std::size_t i = 0; i < groups.size(); ++i)
      tied += isGeometry(groups[i]) && !groups.idOf(groups[i]).isNull() ? 1 : 0;
    return tied;
  };
  if (tiesOf(pointGroups_) == tiesOf(static_cast<const OdDbDimAssoc&>(source).pointGroups_))
    return;
  detachOld(objectId());
  if (auto* dictionary = getIf<OdDbDictionary>(ownerId())) {
    const WriteScope scope(*dictionary);
    dictionary->remove(kEntry);
  }
  erase();
}

OdDbObjectId OdDbDimAssoc::associationOf(OdDbObjectId dimension) {
  const OdDbObject* object = drawing::lookup(dimension);
  if (object == nullptr || object->isErased())
    return {};
  const auto* dictionary = getIf<OdDbDictionary>(object->extensionDictionary());
  const OdDbObjectId id = dictionary == nullptr ? OdDbObjectId() : dictionary->getAt(kEntry);
  return getIf<OdDbDimAssoc>(id) == nullptr ? OdDbObjectId() : id;
}

int OdDbDimAssoc::post(OdDbObjectId dimension, OdDbObjectId& newAssociation, bool isActive) {
  Opened opened;
  if (const OdResult result = openAll(dimension, getDimAssocGeomIds(), opened); result != eOk)
    return result;
  const OdDbObjectId present = associationOf(dimension);
  OdDbDimAssocPtr posted(this);
  if (isResident() && present != objectId())
    posted = OdDbDimAssocPtr(static_cast<OdDbDimAssoc*>(makeCopy()));
  if (posted->isResident()) {
    newAssociation = present;
  } else {
    detachOld(present);
    const OdSmartPtr<OdDbDictionary> dictionary =
        opened.dimension->createExtensionDictionary().safeOpenObject(OdDb::kForWrite);
    posted->dimension_ = dimension;
    newAssociation = dictionary->setAt(kEntry, posted.get());
    const WriteScope scope(*posted);
    for (OdDbObjectId reactor : posted->getPersistentReactors()) // those of the association it is a copy of
      posted->removePersistentReactor(reactor);
    posted->addPersistentReactor(dictionary->objectId());
  }
  if (!isActive)
    return eOk;
  attach(*opened.dimension, newAssociation);
  for (const OdDbObjectPtr& object : opened.geometry)
    attach(*object, newAssociation);
  return eOk;
}
