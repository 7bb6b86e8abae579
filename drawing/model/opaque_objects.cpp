#include "drawing/opaque_objects.h"

ODDB_DEFINE_MEMBERS(OdDbOpaqueObject, OdDbObject, "");
ODRX_DEFINE_MEMBERS(OdDbOpaqueEntity, OdDbEntity, "");

const drawing::Description& OdDbOpaqueObject::ownDescription() {
  return OdDbObject::ownDescription();
}

OdDbObject* OdDbOpaqueEntity::makeCopy() const {
  return new OdDbOpaqueEntity(*this);
}

void OdDbOpaqueEntity::assignState(const OdDbObject& other) {
  *this = static_cast<const OdDbOpaqueEntity&>(other);
}

const drawing::Description& OdDbOpaqueEntity::description() const {
  return unparsed_ ? OdDbObject::ownDescription() : OdDbEntity::ownDescription();
}
