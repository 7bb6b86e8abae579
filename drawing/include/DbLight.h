// Lights.
#pragma once

#include "DbEntity.h"
#include "Ge/GeVector3d.h"

// A light. Points are world coordinates, angles radians. Setters store the value unchecked.
class MVDRAWING_API OdDbLight : public OdDbEntity {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbLight);
  OdDbLight() = default;
  // Kind of light; values as in files (group 70).
  enum LightType : std::int16_t { kDistantLight = 1, kPointLight = 2, kSpotLight = 3 };

  // Name, kind, whether it is on, and intensity factor (1 by default).
  const OdString& name() const { return name_; }
  void setName(const OdString& value);
  LightType lightType() const { return static_cast<LightType>(type_); }
  bool isOn() const { return on_; }
  void setOn(bool value);
  double intensity() const { return intensity_; }
  void setIntensity(double value);
  // Position and target; full angles of the cones of full light and of any light of a spotlight.
  OdGePoint3d position() const { return position_; }
  void setPosition(const OdGePoint3d& value);
  OdGePoint3d targetLocation() const { return target_; }
  void setTargetLocation(const OdGePoint3d& value);
  double hotspotAngle() const { return hotspot_; }
  double falloffAngle() const { return falloff_; }

  OdResult getGeomExtents(OdGeExtents3d& extents) const override; // position, and target of a spotlight

protected:
  // Accepts matrices that scale all axes alike; limits of the attenuation are scaled.
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;

private:
  std::int32_t version_ = 1;
  OdString name_;
  std::int16_t type_ = kPointLight;
  bool on_ = true;
  std::int16_t color_ = 256;
  std::int32_t trueColor_ = -1;
  bool plotGlyph_ = false;
  double intensity_ = 1;
  OdGePoint3d position_, target_;
  std::int16_t attenuation_ = 0;
  bool useLimits_ = false;
  double attenuationStart_ = 1, attenuationEnd_ = 10;
  double hotspot_ = 0, falloff_ = 0;
  bool castShadows_ = true;
  std::int16_t shadowType_ = 0, shadowSoftness_ = 1;
  std::int32_t shadowMapSize_ = 256;
};
using OdDbLightPtr = OdSmartPtr<OdDbLight>;
