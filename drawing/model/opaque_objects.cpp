#include "drawing/opaque_objects.h"

MVDRAWING_DEFINE_OBJECT(OdDbOpaqueObject, OdDbObject, "");
MVDRAWING_DEFINE_CLASS(OdDbOpaqueEntity, OdDbEntity, "");

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
