#include "DbFaces.h"

#include "Ge/GeUtil.h"
#include "entities/setters.h"
#include "entities/transforms.h"

using drawing::field;

ODRX_DEFINE_MEMBERS_ABSTRACT(OdDbFilledArea, OdDbEntity);
ODDB_DEFINE_MEMBERS(OdDbSolid, OdDbFilledArea, "SOLID");
ODDB_DEFINE_MEMBERS(OdDbTrace, OdDbFilledArea, "TRACE");
ODDB_DEFINE_MEMBERS(OdDbFace, OdDbEntity, "3DFACE");

const drawing::Description& OdDbFilledArea::areaDescription() {
  using Self = OdDbFilledArea;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(),
      {{"AcDbTrace",
        {field<&Self::first_>(10), field<&Self::second_>(11), field<&Self::third_>(12), field<&Self::fourth_>(13),
         field<&Self::thickness_>(39).unless(0), field<&Self::normal_>(210).unless(0, 0, 1)}}});
  return description;
}

const drawing::Description& OdDbSolid::ownDescription() {
  return areaDescription();
}
const drawing::Description& OdDbTrace::ownDescription() {
  return areaDescription();
}

const drawing::Description& OdDbFace::ownDescription() {
  using Self = OdDbFace;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(), {{"AcDbFace",
                                       {field<&Self::first_>(10), field<&Self::second_>(11), field<&Self::third_>(12),
                                        field<&Self::fourth_>(13), field<&Self::hiddenEdges_>(70).unless(0)}}});
  return description;
}

MVDB_SETTER(OdDbFilledArea, setNormal, const OdGeVector3d&, normal_)
MVDB_SETTER(OdDbFilledArea, setThickness, double, thickness_)

namespace {

int checkedCorner(int index) {
  if (index < 0 || index > 3)
    throw OdError(eInvalidIndex);
  return index;
}

} // namespace

OdGePoint3d OdDbFilledArea::getPointAt(int index) const {
  const OdGePoint3d* const all[] = {&first_, &second_, &third_, &fourth_};
  return odgeOcsToWcs(*all[checkedCorner(index)], normal_);
}

void OdDbFilledArea::setPointAt(int index, const OdGePoint3d& point) {
  assertWriteEnabled();
  OdGePoint3d* const all[] = {&first_, &second_, &third_, &fourth_};
  *all[checkedCorner(index)] = odgeWcsToOcs(point, normal_);
}

OdResult OdDbFilledArea::subTransformBy(const OdGeMatrix3d& matrix) {
  const drawing::PlaneMap map(matrix, normal_);
  if (!map.takesThickness(thickness_))
    return eCannotTransform;
  for (OdGePoint3d* corner : {&first_, &second_, &third_, &fourth_})
    *corner = map.point(*corner);
  normal_ = map.normal();
  thickness_ *= map.thicknessScale();
  return eOk;
}

OdResult OdDbFilledArea::getGeomExtents(OdGeExtents3d& extents) const {
  OdGeExtents3d flat;
  for (int i = 0; i < 4; ++i)
    flat.addPoint(getPointAt(i));
  flat.expandBy(OdGeMatrix3d::planeToWorld(normal_).column(2) * thickness_);
  extents.addExt(flat);
  return eOk;
}

OdGePoint3d OdDbFace::getVertexAt(int index) const {
  const OdGePoint3d* const all[] = {&first_, &second_, &third_, &fourth_};
  return *all[checkedCorner(index)];
}

void OdDbFace::setVertexAt(int index, const OdGePoint3d& point) {
  assertWriteEnabled();
  OdGePoint3d* const all[] = {&first_, &second_, &third_, &fourth_};
  *all[checkedCorner(index)] = point;
}

OdResult OdDbFace::subTransformBy(const OdGeMatrix3d& matrix) {
  for (OdGePoint3d* corner : {&first_, &second_, &third_, &fourth_})
    *corner = matrix * *corner;
  return eOk;
}

OdResult OdDbFace::getGeomExtents(OdGeExtents3d& extents) const {
  for (const OdGePoint3d& corner : {first_, second_, third_, fourth_})
    extents.addPoint(corner);
  return eOk;
}
