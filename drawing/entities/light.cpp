#include "DbLight.h"

#include "drawing/ge/plane_map.h"
#include "drawing/model/setters.h"

#include <cmath>

using drawing::field;

MVDRAWING_DEFINE_OBJECT(OdDbLight, OdDbEntity, "LIGHT");

const drawing::Description& OdDbLight::ownDescription() {
  using Self = OdDbLight;
  static const drawing::Description description(&OdDbEntity::ownDescription(),
                                                {{"AcDbLight",
                                                  {field<&Self::version_>(90),
                                                   field<&Self::name_>(1),
                                                   field<&Self::type_>(70),
                                                   field<&Self::on_>(290),
                                                   field<&Self::color_>(63).unless(256),
                                                   field<&Self::trueColor_>(421).unless(-1),
                                                   field<&Self::plotGlyph_>(291),
                                                   field<&Self::intensity_>(40),
                                                   field<&Self::position_>(10),
                                                   field<&Self::target_>(11),
                                                   field<&Self::attenuation_>(72),
                                                   field<&Self::useLimits_>(292),
                                                   field<&Self::attenuationStart_>(41),
                                                   field<&Self::attenuationEnd_>(42),
                                                   field<&Self::hotspot_>(50).angle(),
                                                   field<&Self::falloff_>(51).angle(),
                                                   field<&Self::castShadows_>(293),
                                                   field<&Self::shadowType_>(73),
                                                   field<&Self::shadowMapSize_>(91),
                                                   field<&Self::shadowSoftness_>(280)}}});
  return description;
}

MVDRAWING_SETTER(OdDbLight, setName, const OdString&, name_)
MVDRAWING_SETTER(OdDbLight, setOn, bool, on_)
MVDRAWING_SETTER(OdDbLight, setIntensity, double, intensity_)
MVDRAWING_SETTER(OdDbLight, setPosition, const OdGePoint3d&, position_)
MVDRAWING_SETTER(OdDbLight, setTargetLocation, const OdGePoint3d&, target_)

OdResult OdDbLight::applyTransform(const OdGeMatrix3d& matrix) {
  if (!matrix.isUniformlyScaled(OdGeTol(1e-10)))
    return eCannotTransform;
  position_ = matrix * position_;
  target_ = matrix * target_;
  if (const double scale = matrix.scale(); std::fabs(scale - 1) > 1e-14) {
    attenuationStart_ *= scale;
    attenuationEnd_ *= scale;
  }
  return eOk;
}

OdResult OdDbLight::getGeomExtents(OdGeExtents3d& extents) const {
  extents.addPoint(position_);
  if (type_ == kSpotLight)
    extents.addPoint(target_);
  return eOk;
}
