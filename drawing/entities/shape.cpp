#include "DbShape.h"

#include "drawing/entities/text/text_frame.h"
#include "drawing/ge/plane_map.h"
#include "drawing/model/setters.h"

using drawing::field;

MVDRAWING_DEFINE_OBJECT(OdDbShape, OdDbEntity, "SHAPE");

const drawing::Description& OdDbShape::ownDescription() {
  using Self = OdDbShape;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(),
      {{"AcDbShape",
        {field<&Self::thickness_>(39).unless(0), field<&Self::position_>(10), field<&Self::size_>(40),
         field<&Self::name_>(2), field<&Self::rotation_>(50).angle().unless(0),
         field<&Self::widthFactor_>(41).unless(1), field<&Self::oblique_>(51).angle().unless(0),
         field<&Self::normal_>(210).unless(0, 0, 1)}}});
  return description;
}

MVDRAWING_SETTER(OdDbShape, setName, const OdString&, name_)
MVDRAWING_SETTER(OdDbShape, setPosition, const OdGePoint3d&, position_)
MVDRAWING_SETTER(OdDbShape, setSize, double, size_)
MVDRAWING_SETTER(OdDbShape, setRotation, double, rotation_)

OdResult OdDbShape::applyTransform(const OdGeMatrix3d& matrix) {
  const drawing::PlaneMap map(matrix, normal_);
  drawing::TextFrame frame{rotation_, size_, widthFactor_, oblique_, normal_};
  if (!map.takesThickness(thickness_) || !frame.transform(matrix))
    return eCannotTransform;
  // A reflection inverts the normal, and what is above the plane is below it then.
  const bool over = map.isMirrored();
  thickness_ *= over ? -map.thicknessScale() : map.thicknessScale();
  position_ = matrix * position_;
  rotation_ = frame.rotation;
  size_ = frame.height;
  widthFactor_ = frame.widthFactor;
  oblique_ = frame.oblique;
  normal_ = frame.normal;
  return eOk;
}

OdResult OdDbShape::getGeomExtents(OdGeExtents3d& extents) const {
  extents.addPoint(position_);
  return eOk;
}
