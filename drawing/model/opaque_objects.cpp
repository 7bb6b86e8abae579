#include "drawing/opaque_objects.h"

ODDB_DEFINE_MEMBERS(OdDbCarriedObject, OdDbObject, "");
ODRX_DEFINE_MEMBERS(OdDbCarriedEntity, OdDbEntity, "");

const drawing::Description& OdDbCarriedObject::ownDescription() {
  return OdDbObject::ownDescription();
}

OdDbObject* OdDbCarriedEntity::makeCopy() const {
  return new OdDbCarriedEntity(*this);
}

void OdDbCarriedEntity::assignState(const OdDbObject& other) {
  *this = static_cast<const OdDbCarriedEntity&>(other);
}

const drawing::Description& OdDbCarriedEntity::description() const {
  return unread_ ? OdDbObject::ownDescription() : OdDbEntity::ownDescription();
}
