#include "DbVertexPolylines.h"
#include "drawing/model/setters.h"

using drawing::field;

MVDRAWING_DEFINE_ABSTRACT_CLASS(OdDbVertex, OdDbEntity);
MVDRAWING_DEFINE_ABSTRACT_CLASS(OdDbWorldVertex, OdDbVertex);
MVDRAWING_DEFINE_OBJECT(OdDb3dPolylineVertex, OdDbWorldVertex, "VERTEX");
MVDRAWING_DEFINE_OBJECT(OdDbPolygonMeshVertex, OdDbWorldVertex, "VERTEX");
MVDRAWING_DEFINE_OBJECT(OdDbPolyFaceMeshVertex, OdDbWorldVertex, "VERTEX");
MVDRAWING_DEFINE_OBJECT(OdDbFaceRecord, OdDbVertex, "VERTEX");
MVDRAWING_DEFINE_OBJECT(OdDb2dVertex, OdDbVertex, "VERTEX");

const drawing::Description& OdDb2dVertex::ownDescription() {
  using Self = OdDb2dVertex;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(),
      {{"AcDbVertex", {}},
       {"AcDb2dVertex",
        {field<&Self::position_>(10), field<&Self::startWidth_>(40).unless(kWidthOfPolyline),
         field<&Self::endWidth_>(41).unless(kWidthOfPolyline), field<&Self::bulge_>(42).unless(0),
         field<&Self::identifier_>(91).unless(0).from(OdDb::kRelease2010), field<&Self::flags_>(70),
         field<&Self::tangent_>(50).angle().unless(0)}}});
  return description;
}

drawing::SubclassLayout OdDbWorldVertex::vertexSubclass(const char* marker) {
  return {marker, {field<&OdDbWorldVertex::position_>(10), field<&OdDbWorldVertex::flags_>(70)}};
}

const drawing::Description& OdDb3dPolylineVertex::ownDescription() {
  static const drawing::Description description(&OdDbEntity::ownDescription(),
                                                {{"AcDbVertex", {}}, vertexSubclass("AcDb3dPolylineVertex")});
  return description;
}

const drawing::Description& OdDbPolygonMeshVertex::ownDescription() {
  static const drawing::Description description(&OdDbEntity::ownDescription(),
                                                {{"AcDbVertex", {}}, vertexSubclass("AcDbPolygonMeshVertex")});
  return description;
}

const drawing::Description& OdDbPolyFaceMeshVertex::ownDescription() {
  static const drawing::Description description(&OdDbEntity::ownDescription(),
                                                {{"AcDbVertex", {}}, vertexSubclass("AcDbPolyFaceMeshVertex")});
  return description;
}

const drawing::Description& OdDbFaceRecord::ownDescription() {
  using Self = OdDbFaceRecord;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(), {{"AcDbFaceRecord",
                                       {field<&Self::unused_>(10), field<&Self::flags_>(70),
                                        field<&Self::first_>(71).unless(0), field<&Self::second_>(72).unless(0),
                                        field<&Self::third_>(73).unless(0), field<&Self::fourth_>(74).unless(0)}}});
  return description;
}

MVDRAWING_SETTER(OdDb2dVertex, setPosition, const OdGePoint3d&, position_)
MVDRAWING_SETTER(OdDb2dVertex, setBulge, double, bulge_)
MVDRAWING_SETTER(OdDb2dVertex, setStartWidth, double, startWidth_)
MVDRAWING_SETTER(OdDb2dVertex, setEndWidth, double, endWidth_)
MVDRAWING_SETTER(OdDbWorldVertex, setPosition, const OdGePoint3d&, position_)

OdResult OdDbWorldVertex::applyTransform(const OdGeMatrix3d& matrix) {
  position_ = matrix * position_;
  return eOk;
}

OdResult OdDbWorldVertex::getGeomExtents(OdGeExtents3d& extents) const {
  extents.addPoint(position_);
  return eOk;
}

namespace {

int checkedCorner(int index) {
  if (index < 0 || index > 3)
    throw OdError(eInvalidIndex);
  return index;
}

} // namespace

std::int16_t OdDbFaceRecord::getVertexAt(int index) const {
  const std::int16_t all[] = {first_, second_, third_, fourth_};
  return all[checkedCorner(index)];
}

void OdDbFaceRecord::setVertexAt(int index, std::int16_t vertex) {
  assertWriteEnabled();
  std::int16_t* const all[] = {&first_, &second_, &third_, &fourth_};
  *all[checkedCorner(index)] = vertex;
}
