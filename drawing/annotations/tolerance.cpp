#include "DbFcf.h"

#include "drawing/ge/plane_map.h"
#include "drawing/model/setters.h"

using drawing::field;

MVDRAWING_DEFINE_OBJECT(OdDbFcf, OdDbEntity, "TOLERANCE");

const drawing::Description& OdDbFcf::ownDescription() {
  using Self = OdDbFcf;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(),
      {{"AcDbFcf",
        {field<&Self::style_>(3).name(OdDb::kDimStyleTable).unlessEmpty(), field<&Self::location_>(10),
         field<&Self::text_>(1), field<&Self::normal_>(210).unless(0, 0, 1),
         field<&Self::direction_>(11).unless(1, 0, 0)}}});
  return description;
}

MVDRAWING_SETTER(OdDbFcf, setText, const OdString&, text_)
MVDRAWING_SETTER(OdDbFcf, setLocation, const OdGePoint3d&, location_)
MVDRAWING_SETTER(OdDbFcf, setDimensionStyle, OdDbObjectId, style_)

void OdDbFcf::setOrientation(const OdGeVector3d& normal, const OdGeVector3d& direction) {
  assertWriteEnabled();
  normal_ = normal.normal();
  direction_ = direction.normal();
}

OdResult OdDbFcf::applyTransform(const OdGeMatrix3d& matrix) {
  const drawing::PlaneMap map(matrix, normal_);
  if (!map.keepsShapes())
    return eCannotTransform;
  location_ = matrix * location_;
  normal_ = map.normal();
  if (!drawing::isTranslation(matrix))
    direction_ = (matrix * direction_).normal();
  return eOk;
}

OdResult OdDbFcf::getGeomExtents(OdGeExtents3d& extents) const {
  extents.addPoint(location_);
  return eOk;
}
