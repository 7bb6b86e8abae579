#include "DbViewport.h"

#include "db/setters.h"

using drawing::field;

ODDB_DEFINE_MEMBERS(OdDbViewport, OdDbEntity, "VIEWPORT");
ODDB_DEFINE_MEMBERS(OdDbCamera, OdDbEntity, "CAMERA");

const drawing::Description& OdDbViewport::ownDescription() {
  using Self = OdDbViewport;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(),
      {{"AcDbViewport", {field<&Self::center_>(10), field<&Self::width_>(40), field<&Self::height_>(41)}}});
  return description;
}

const drawing::Description& OdDbCamera::ownDescription() {
  return OdDbEntity::ownDescription();
}

MVDB_SETTER(OdDbViewport, setCenterPoint, const OdGePoint3d&, center_)
MVDB_SETTER(OdDbViewport, setWidth, double, width_)
MVDB_SETTER(OdDbViewport, setHeight, double, height_)

OdResult OdDbViewport::getGeomExtents(OdGeExtents3d& extents) const {
  const OdGeVector3d half(width_ / 2, height_ / 2, 0);
  extents.addPoint(center_ - half);
  extents.addPoint(center_ + half);
  return eOk;
}
