#include "DbFaces.h"

#include "Ge/GeUtil.h"
#include "drawing/ge/plane_map.h"
#include "drawing/model/setters.h"
#include "drawing/records/group_readers.h"

using drawing::field;

MVDRAWING_DEFINE_ABSTRACT_CLASS(OdDbFilledArea, OdDbEntity);
MVDRAWING_DEFINE_OBJECT(OdDbSolid, OdDbFilledArea, "SOLID");
MVDRAWING_DEFINE_OBJECT(OdDbTrace, OdDbFilledArea, "TRACE");
MVDRAWING_DEFINE_OBJECT(OdDbFace, OdDbEntity, "3DFACE");

const drawing::Description& OdDbFilledArea::areaDescription() {
  using Self = OdDbFilledArea;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(),
      {{"AcDbTrace",
        {field<&Self::thickness_>(39).unless(0), field<&Self::normal_>(210).unless(0, 0, 1)},
        [](OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context) {
          return static_cast<Self&>(object).corners_.take(group, context);
        },
        [](const OdDbObject& object, drawing::GroupSink& sink) {
          static_cast<const Self&>(object).corners_.write(sink);
        },
        true}});
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
      &OdDbEntity::ownDescription(),
      {{"AcDbFace",
        {field<&Self::hiddenEdges_>(70).unless(0)},
        [](OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context) {
          return static_cast<Self&>(object).corners_.take(group, context);
        },
        [](const OdDbObject& object, drawing::GroupSink& sink) {
          static_cast<const Self&>(object).corners_.write(sink);
        },
        true}});
  return description;
}

MVDRAWING_SETTER(OdDbFilledArea, setNormal, const OdGeVector3d&, normal_)
MVDRAWING_SETTER(OdDbFilledArea, setThickness, double, thickness_)

namespace drawing {

const OdGePoint3d& Corners::at(int index) const {
  if (index < 0 || index > 3)
    throw OdError(eInvalidIndex);
  return points[index == 3 && !hasFourth ? 2 : index];
}

void Corners::set(int index, const OdGePoint3d& point) {
  if (index < 0 || index > 3)
    throw OdError(eInvalidIndex);
  points[index] = point;
  hasFourth = hasFourth || index == 3;
}

bool Corners::take(const RawGroup& group, LoadContext& context) {
  const int corner = group.code % 10, component = group.code / 10 - 1;
  if (group.code < 10 || component > 2 || corner > 3)
    return false;
  hasFourth = hasFourth || corner == 3;
  return takeReal(points[corner][component], group, context);
}

void Corners::write(GroupSink& sink) const {
  for (int i = 0; i < (hasFourth ? 4 : 3); ++i)
    sink.point(10 + i, points[i]);
}

} // namespace drawing

OdGePoint3d OdDbFilledArea::getPointAt(int index) const {
  return ocsToWcs(corners_.at(index), normal_);
}

void OdDbFilledArea::setPointAt(int index, const OdGePoint3d& point) {
  assertWriteEnabled();
  corners_.set(index, wcsToOcs(point, normal_));
}

OdResult OdDbFilledArea::applyTransform(const OdGeMatrix3d& matrix) {
  const drawing::PlaneMap map(matrix, normal_);
  if (!map.takesThickness(thickness_))
    return eCannotTransform;
  for (OdGePoint3d& corner : corners_.points)
    corner = map.point(corner);
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
  return corners_.at(index);
}

void OdDbFace::setVertexAt(int index, const OdGePoint3d& point) {
  assertWriteEnabled();
  corners_.set(index, point);
}

OdResult OdDbFace::applyTransform(const OdGeMatrix3d& matrix) {
  for (OdGePoint3d& corner : corners_.points)
    corner = matrix * corner;
  return eOk;
}

OdResult OdDbFace::getGeomExtents(OdGeExtents3d& extents) const {
  for (int i = 0; i < 4; ++i)
    extents.addPoint(corners_.at(i));
  return eOk;
}
