#include "DbVertexPolylines.h"
#include "Ge/GeUtil.h"
#include "drawing/entities/curves/arc_extents.h"
#include "drawing/ge/plane_map.h"
#include "drawing/model/object_store.h"
#include "drawing/model/record.h"
#include "drawing/model/setters.h"
#include "drawing/model/visit_references.h"

#include <algorithm>

using drawing::field;
using drawing::getIf;
using drawing::PlaneMap;

MVDRAWING_DEFINE_ABSTRACT_CLASS(OdDbVertexOwner, OdDbCurve);
MVDRAWING_DEFINE_OBJECT(OdDb3dPolyline, OdDbVertexOwner, "POLYLINE");
MVDRAWING_DEFINE_OBJECT(OdDbPolygonMesh, OdDbVertexOwner, "POLYLINE");
MVDRAWING_DEFINE_OBJECT(OdDbPolyFaceMesh, OdDbVertexOwner, "POLYLINE");
MVDRAWING_DEFINE_OBJECT(OdDb2dPolyline, OdDbVertexOwner, "POLYLINE");

// A flag states that vertices follow; it is not stored in memory.
bool OdDbVertexOwner::readFollowFlag(OdDbObject&, const drawing::RawGroup& group, drawing::LoadContext&) {
  return group.code == 66;
}

void OdDbVertexOwner::writeFollowFlag(const OdDbObject&, drawing::GroupSink& sink) {
  sink.integer(66, 1);
}

drawing::SubclassLayout OdDbVertexOwner::ownerSubclass(const char* marker) {
  return {marker,
          {field<&OdDbVertexOwner::origin_>(10), field<&OdDbVertexOwner::flags_>(70).unless(0)},
          readFollowFlag,
          writeFollowFlag,
          true};
}

namespace {

drawing::SubclassLayout with(drawing::SubclassLayout subclass, std::initializer_list<drawing::Field> fields) {
  subclass.fields.insert(subclass.fields.end(), fields.begin(), fields.end());
  return subclass;
}

} // namespace

const drawing::Description& OdDb2dPolyline::ownDescription() {
  using Self = OdDb2dPolyline;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(),
      {with(ownerSubclass("AcDb2dPolyline"),
            {field<&Self::thickness_>(39).unless(0), field<&Self::startWidth_>(40).unless(0),
             field<&Self::endWidth_>(41).unless(0), field<&Self::curveType_>(75).unless(0),
             field<&Self::normal_>(210).unless(0, 0, 1)})});
  return description;
}

const drawing::Description& OdDb3dPolyline::ownDescription() {
  using Self = OdDb3dPolyline;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(), {with(ownerSubclass("AcDb3dPolyline"), {field<&Self::curveType_>(75).unless(0)})});
  return description;
}

const drawing::Description& OdDbPolygonMesh::ownDescription() {
  using Self = OdDbPolygonMesh;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(),
      {with(ownerSubclass("AcDbPolygonMesh"),
            {field<&Self::mSize_>(71), field<&Self::nSize_>(72), field<&Self::mDensity_>(73).unless(0),
             field<&Self::nDensity_>(74).unless(0), field<&Self::curveType_>(75).unless(0)})});
  return description;
}

const drawing::Description& OdDbPolyFaceMesh::ownDescription() {
  using Self = OdDbPolyFaceMesh;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(),
      {with(ownerSubclass("AcDbPolyFaceMesh"), {field<&Self::vertexCount_>(71), field<&Self::faceCount_>(72)})});
  return description;
}

OdDbObjectId OdDbVertexOwner::appendVertex(OdDbVertex* vertex) {
  return appendSubEntity(*this, vertex);
}

std::vector<OdDbObjectId> OdDbVertexOwner::vertexIds() const {
  std::vector<OdDbObjectId> ids;
  std::copy_if(subEntities().begin(), subEntities().end(), std::back_inserter(ids),
               [](OdDbObjectId id) { return !id.isErased(); });
  return ids;
}

OdResult OdDbVertexOwner::applyTransform(const OdGeMatrix3d& matrix) {
  return transformSubEntities(matrix);
}

OdResult OdDbVertexOwner::getGeomExtents(OdGeExtents3d& extents) const {
  OdGeExtents3d all;
  for (OdDbObjectId id : vertexIds()) {
    if (const auto* vertex = getIf<OdDbWorldVertex>(id))
      vertex->getGeomExtents(all);
  }
  extents.addExt(all);
  return all.isValidExtents() ? eOk : eNotApplicable;
}

void OdDbVertexOwner::ownedObjects(std::vector<OdDbObjectId>& ids) const {
  OdDbCurve::ownedObjects(ids);
  listSubEntities(ids);
}

MVDRAWING_VISIT_REFERENCES(OdDbVertexOwner, OdDbCurve, visitSubEntities(visitor);)

void OdDbVertexOwner::afterClone(const OdDbObject& source, OdDbIdMapping& mapping) {
  OdDbCurve::afterClone(source, mapping);
  dropLostSubEntities();
}

MVDRAWING_SETTER(OdDb2dPolyline, setElevation, double, origin_.z)
MVDRAWING_SETTER(OdDb2dPolyline, setThickness, double, thickness_)
MVDRAWING_SETTER(OdDb2dPolyline, setNormal, const OdGeVector3d&, normal_)
MVDRAWING_SETTER(OdDb2dPolyline, setDefaultStartWidth, double, startWidth_)
MVDRAWING_SETTER(OdDb2dPolyline, setDefaultEndWidth, double, endWidth_)

void OdDb2dPolyline::setClosed(bool closed) {
  assertWriteEnabled();
  flags_ = static_cast<std::int16_t>(closed ? flags_ | 1 : flags_ & ~1);
}

void OdDb3dPolyline::setClosed(bool closed) {
  assertWriteEnabled();
  flags_ = static_cast<std::int16_t>(closed ? flags_ | 1 : flags_ & ~1);
}

OdGePoint3d OdDb2dPolyline::vertexPosition(const OdDb2dVertex& vertex) const {
  return ocsToWcs(OdGePoint3d(vertex.position().x, vertex.position().y, elevation()), normal_);
}

std::vector<OdDb2dVertex*> OdDb2dPolyline::vertices() const {
  std::vector<OdDb2dVertex*> all;
  for (OdDbObjectId id : vertexIds()) {
    if (auto* vertex = getIf<OdDb2dVertex>(id))
      all.push_back(vertex);
  }
  return all;
}

OdResult OdDb2dPolyline::applyTransform(const OdGeMatrix3d& matrix) {
  const PlaneMap map(matrix, normal_);
  const std::vector<OdDb2dVertex*> all = vertices();
  const auto hasShape = [](const OdDb2dVertex* v) { return v->bulge_ != 0 || v->startWidth_ > 0 || v->endWidth_ > 0; };
  const bool shaped = startWidth_ != 0 || endWidth_ != 0 || std::any_of(all.begin(), all.end(), hasShape);
  if ((shaped && !map.keepsShapes()) || !map.takesThickness(thickness_))
    return eCannotTransform;
  const double height = elevation();
  origin_.z = map.point(OdGePoint3d(0, 0, height)).z;
  for (OdDb2dVertex* vertex : all) {
    const drawing::WriteScope scope(*vertex);
    vertex->assertWriteEnabled();
    const OdGePoint3d moved = map.point(OdGePoint3d(vertex->position_.x, vertex->position_.y, height));
    // The elevation is the polyline's; some programs write it with the vertices too.
    const bool sameHeight = vertex->position_.z == height;
    vertex->position_.set(moved.x, moved.y, sameHeight ? origin_.z : vertex->position_.z);
    for (double* width : {&vertex->startWidth_, &vertex->endWidth_})
      *width *= *width > 0 ? map.scale() : 1;
    if (map.isMirrored())
      vertex->bulge_ = -vertex->bulge_;
    if ((vertex->flags_ & OdDbVertex::kHasTangent) != 0)
      vertex->tangent_ = map.angle(vertex->tangent_);
  }
  startWidth_ *= map.scale();
  endWidth_ *= map.scale();
  thickness_ *= map.thicknessScale();
  normal_ = map.normal();
  return eOk;
}

OdResult OdDb2dPolyline::getGeomExtents(OdGeExtents3d& extents) const {
  std::vector<drawing::PathVertex> path;
  for (const OdDb2dVertex* v : vertices()) {
    if ((v->vertexFlags() & OdDbVertex::kSplineControl) != 0)
      continue; // the frame of a smoothed polyline is not drawn
    path.push_back({OdGePoint3d(v->position_.x, v->position_.y, elevation()), v->bulge_,
                    v->startWidth_ < 0 ? startWidth_ : v->startWidth_, v->endWidth_ < 0 ? endWidth_ : v->endWidth_});
  }
  if (path.empty())
    return eNotApplicable;
  const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(normal_);
  OdGeExtents3d flat;
  drawing::addPath(flat, plane, path, isClosed());
  flat.expandBy(plane.column(2) * thickness_);
  extents.addExt(flat);
  return eOk;
}
