#include "DbRasterImage.h"

#include "drawing/ge/plane_map.h"
#include "drawing/model/setters.h"

using drawing::field;

MVDRAWING_DEFINE_ABSTRACT_CLASS(OdDbImageBase, OdDbEntity);
MVDRAWING_DEFINE_OBJECT(OdDbRasterImage, OdDbImageBase, "IMAGE");
MVDRAWING_DEFINE_OBJECT(OdDbWipeout, OdDbImageBase, "WIPEOUT");

drawing::SubclassLayout OdDbImageBase::imageSubclass(const char* marker) {
  using Self = OdDbImageBase;
  return {marker, {field<&Self::origin_>(10), field<&Self::u_>(11), field<&Self::v_>(12), field<&Self::size_>(13)}};
}

const drawing::Description& OdDbRasterImage::ownDescription() {
  static const drawing::Description description = [] {
    drawing::SubclassLayout subclass = imageSubclass("AcDbRasterImage");
    subclass.fields.push_back(field<&OdDbRasterImage::definition_>(340).ref(OdDb::kHardPointerRef));
    return drawing::Description(&OdDbEntity::ownDescription(), {subclass});
  }();
  return description;
}

const drawing::Description& OdDbWipeout::ownDescription() {
  static const drawing::Description description(&OdDbEntity::ownDescription(), {imageSubclass("AcDbWipeout")});
  return description;
}

MVDRAWING_SETTER(OdDbImageBase, setImageSize, const OdGePoint2d&, size_)

void OdDbImageBase::getOrientation(OdGePoint3d& origin, OdGeVector3d& u, OdGeVector3d& v) const {
  origin = origin_;
  u = u_;
  v = v_;
}

void OdDbImageBase::setOrientation(const OdGePoint3d& origin, const OdGeVector3d& u, const OdGeVector3d& v) {
  assertWriteEnabled();
  origin_ = origin;
  u_ = u;
  v_ = v;
}

OdResult OdDbImageBase::applyTransform(const OdGeMatrix3d& matrix) {
  origin_ = matrix * origin_;
  u_ = matrix * u_;
  v_ = matrix * v_;
  return eOk;
}

OdResult OdDbImageBase::getGeomExtents(OdGeExtents3d& extents) const {
  const OdGeVector3d across = u_ * size_.x, up = v_ * size_.y;
  for (const OdGeVector3d& corner : {OdGeVector3d(), across, up, across + up})
    extents.addPoint(origin_ + corner);
  return eOk;
}
