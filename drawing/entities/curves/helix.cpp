#include "DbHelix.h"

#include "drawing/ge/plane_map.h"

using drawing::field;

MVDRAWING_DEFINE_OBJECT(OdDbHelix, OdDbSpline, "HELIX");

const drawing::Description& OdDbHelix::ownDescription() {
  using Self = OdDbHelix;
  static const drawing::Description description(
      &OdDbSpline::ownDescription(),
      {{"AcDbHelix",
        {field<&Self::majorRelease_>(90), field<&Self::maintenance_>(91), field<&Self::axisPoint_>(10),
         field<&Self::start_>(11), field<&Self::axis_>(12), field<&Self::radius_>(40), field<&Self::turns_>(41),
         field<&Self::turnHeight_>(42), field<&Self::rightHanded_>(290), field<&Self::constraint_>(280)}}});
  return description;
}

OdResult OdDbHelix::applyTransform(const OdGeMatrix3d& matrix) {
  if (!matrix.isUniformlyScaled(OdGeTol(1e-10)))
    return eCannotTransform;
  if (const OdResult result = OdDbSpline::applyTransform(matrix); result != eOk)
    return result;
  axisPoint_ = matrix * axisPoint_;
  start_ = matrix * start_;
  if (drawing::isTranslation(matrix))
    return eOk;
  axis_ = (matrix * axis_).normal();
  radius_ *= matrix.scale();
  turnHeight_ *= matrix.scale();
  rightHanded_ = rightHanded_ != (matrix.determinant() < 0);
  return eOk;
}

OdDbEntityPtr OdDbHelix::transformedAsAnother(const OdGeMatrix3d& matrix) const {
  const OdDbSplinePtr spline = OdDbSpline::createObject();
  static_cast<OdDbSpline&>(*spline) = *this;
  if (spline->transformBy(matrix) != eOk)
    return {};
  return OdDbEntityPtr(spline.get());
}
