#include "DbUnderlayReference.h"
#include "Ge/GeUtil.h"
#include "drawing/entities/text/text_frame.h"
#include "drawing/ge/plane_map.h"
#include "drawing/model/setters.h"

#include <cmath>

using drawing::field;

MVDRAWING_DEFINE_ABSTRACT_CLASS(OdDbUnderlayReference, OdDbEntity);
MVDRAWING_DEFINE_OBJECT(OdDbPdfReference, OdDbUnderlayReference, "PDFUNDERLAY");
MVDRAWING_DEFINE_OBJECT(OdDbDwfReference, OdDbUnderlayReference, "DWFUNDERLAY");
MVDRAWING_DEFINE_OBJECT(OdDbDgnReference, OdDbUnderlayReference, "DGNUNDERLAY");

const drawing::Description& OdDbUnderlayReference::underlayDescription() {
  using Self = OdDbUnderlayReference;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(),
      {{"AcDbUnderlayReference",
        {field<&Self::definition_>(340).ref(OdDb::kHardPointerRef), field<&Self::position_>(10),
         field<&Self::scaleX_>(41).unless(1), field<&Self::scaleY_>(42).unless(1), field<&Self::scaleZ_>(43).unless(1),
         field<&Self::rotation_>(50).angle().unless(0), field<&Self::normal_>(210).unless(0, 0, 1)}}});
  return description;
}

const drawing::Description& OdDbPdfReference::ownDescription() {
  return underlayDescription();
}
const drawing::Description& OdDbDwfReference::ownDescription() {
  return underlayDescription();
}
const drawing::Description& OdDbDgnReference::ownDescription() {
  return underlayDescription();
}

OdGePoint3d OdDbUnderlayReference::position() const {
  return ocsToWcs(position_, normal_);
}

MVDRAWING_SETTER_OCS(OdDbUnderlayReference, setPosition, position_)

OdGeMatrix3d OdDbUnderlayReference::transform() const {
  return OdGeMatrix3d::translation(position().asVector()) * OdGeMatrix3d::planeToWorld(normal_) *
         OdGeMatrix3d::rotation(rotation_, OdGeVector3d::kZAxis) * OdGeMatrix3d::scaling(scaleFactors());
}

// A page is placed in its plane like a letter of height 1.
OdResult OdDbUnderlayReference::applyTransform(const OdGeMatrix3d& matrix) {
  drawing::TextFrame frame{rotation_, 1, 1, 0, normal_};
  if (!frame.transform(matrix) || std::fabs(frame.oblique) > 1e-10)
    return eCannotTransform;
  const OdGePoint3d moved = matrix * position();
  const bool translation = drawing::isTranslation(matrix);
  const drawing::PlaneMap map(matrix, normal_);
  position_ = translation ? map.point(position_) : wcsToOcs(moved, frame.normal);
  scaleX_ *= frame.height * frame.widthFactor;
  scaleY_ *= frame.height;
  scaleZ_ *= map.thicknessScale();
  rotation_ = frame.rotation;
  normal_ = frame.normal;
  return eOk;
}
