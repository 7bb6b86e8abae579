// Helices: a spline, and how it was wound.
#pragma once

#include "DbSpline.h"

class MVDRAWING_API OdDbHelix : public OdDbSpline {
public:
  ODDB_DECLARE_MEMBERS(OdDbHelix);
  OdDbHelix() = default;
  OdGePoint3d axisPoint() const { return axisPoint_; } // the middle of the foot; world coordinates
  OdGeVector3d axisVector() const { return axis_; }    // unit length
  OdGePoint3d startPoint() const { return start_; }
  double radius() const { return radius_; } // at the top
  double turns() const { return turns_; }
  double turnHeight() const { return turnHeight_; }
  double height() const { return turns_ * turnHeight_; }
  bool isRightHanded() const { return rightHanded_; }

protected:
  // Under matrices that do not keep shapes an entity of a drawing becomes the spline that it looks like.
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;
  OdDbEntityPtr transformedAsAnother(const OdGeMatrix3d& matrix) const override;

private:
  std::int32_t majorRelease_ = 29, maintenance_ = 63;
  OdGePoint3d axisPoint_, start_;
  OdGeVector3d axis_{0, 0, 1};
  double radius_ = 1, turns_ = 1, turnHeight_ = 1;
  bool rightHanded_ = true;
  std::int16_t constraint_ = 1; // which of height, turns and turn height stays when another changes
};
using OdDbHelixPtr = OdSmartPtr<OdDbHelix>;
