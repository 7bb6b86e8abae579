// Helices: a spline with the parameters that it was created from.
#pragma once

#include "DbSpline.h"

// A helix. Accepts matrices that scale all axes alike; under any other matrix a resident helix becomes a spline.
class MVDRAWING_API OdDbHelix : public OdDbSpline {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbHelix);
  OdDbHelix() = default;
  // Parameters: centre of the base, direction of the axis (unit length) and start of the curve in world coordinates;
  // radius at the top, height of a turn and total height in drawing units. The spline is not derived from them.
  OdGePoint3d axisPoint() const { return axisPoint_; }
  OdGeVector3d axisVector() const { return axis_; }
  OdGePoint3d startPoint() const { return start_; }
  double radius() const { return radius_; }
  double turns() const { return turns_; }
  double turnHeight() const { return turnHeight_; }
  double height() const { return turns_ * turnHeight_; }
  bool isRightHanded() const { return rightHanded_; }

protected:
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;
  OdDbEntityPtr transformedAsAnother(const OdGeMatrix3d& matrix) const override;

private:
  std::int32_t majorRelease_ = 29, maintenance_ = 63;
  OdGePoint3d axisPoint_, start_;
  OdGeVector3d axis_{0, 0, 1};
  double radius_ = 1, turns_ = 1, turnHeight_ = 1;
  bool rightHanded_ = true;
  std::int16_t constraint_ = 1; // which of height, turns and turn height is kept when another one changes
};
using OdDbHelixPtr = OdSmartPtr<OdDbHelix>;
