#include "DbProxyEntity.h"

#include "drawing/model/object_store.h"
#include "drawing/model/visit_references.h"
#include "drawing/records/raw_groups.h"

MVDRAWING_DEFINE_OBJECT(OdDbProxyEntity, OdDbEntity, "ACAD_PROXY_ENTITY");
MVDRAWING_DEFINE_OBJECT(OdDbProxyObject, OdDbObject, "ACAD_PROXY_OBJECT");

namespace {

constexpr int kClassId = 91;

drawing::SubclassLayout proxySubclass(drawing::SubclassLayout subclass, const char* legacyMarker) {
  subclass.alias = legacyMarker;
  return subclass;
}

} // namespace

const drawing::Description& OdDbProxyEntity::ownDescription() {
  static const drawing::Description description(
      &OdDbEntity::ownDescription(),
      {proxySubclass(drawing::rawSubclass<&OdDbProxyEntity::groups_>("AcDbProxyEntity"), "AcDbZombieEntity")});
  return description;
}

const drawing::Description& OdDbProxyObject::ownDescription() {
  static const drawing::Description description(
      &OdDbObject::ownDescription(),
      {proxySubclass(drawing::rawSubclass<&OdDbProxyObject::groups_>("AcDbProxyObject"), "AcDbZombieObject")});
  return description;
}

MVDRAWING_VISIT_REFERENCES(OdDbProxyEntity, OdDbEntity, drawing::visitGroups(groups_, visitor);)

MVDRAWING_VISIT_REFERENCES(OdDbProxyObject, OdDbObject, drawing::visitGroups(groups_, visitor);)

std::int32_t OdDbProxyEntity::applicationClassId() const {
  return static_cast<std::int32_t>(drawing::rawInteger(groups_, kClassId));
}

std::int32_t OdDbProxyObject::applicationClassId() const {
  return static_cast<std::int32_t>(drawing::rawInteger(groups_, kClassId));
}

OdResult OdDbProxyEntity::applyTransform(const OdGeMatrix3d& matrix) {
  return drawing::isIdentity(matrix) ? eOk : eCannotTransform;
}
