#include "drawing/file/version_copy.h"

#include "DbAttribute.h"
#include "drawing/blocks/attribute_text_form.h"
#include "drawing/model/object_store.h"

namespace drawing::dxf {

namespace {

bool mustChange(const OdDbObject* object, bool isInside) {
  const auto* attribute = OdDbAttributeBase::cast(object).get();
  if (!isAlive(attribute))
    return false;
  return isInside ? attribute->hasTextInRecord() : attribute->textBefore2018().has_value();
}

std::vector<OdDbObjectId> attributesToChange(const OdDbDatabase& database, bool isInside) {
  std::vector<OdDbObjectId> ids;
  for (OdDbObjectId id : database.allIds()) {
    if (mustChange(lookup(id), isInside))
      ids.push_back(id);
  }
  return ids;
}

} // namespace

OdDbDatabasePtr copyForVersion(const OdDbDatabase& database, OdDb::DwgVersion version) {
  const bool isInside = version >= kTextInAttribute;
  const bool isOwn = isInside && database.fileInfo().version >= kTextInAttribute;
  if (isOwn || version < OdDb::kRelease2000)
    return nullptr;
  const std::vector<OdDbObjectId> ids = attributesToChange(database, isInside);
  if (ids.empty())
    return nullptr;
  OdDbDatabasePtr copy = database.clone();
  for (OdDbObjectId id : ids) {
    auto& attribute = *static_cast<OdDbAttributeBase*>(lookup(copy->objectIdOf(id.getHandle())));
    const WriteScope scope(attribute);
    if (isInside)
      attribute.moveTextIntoAttribute();
    else
      attribute.moveTextToRecord();
  }
  return copy;
}

} // namespace drawing::dxf
