#include "DbPolyline.h"

#include "Ge/GeUtil.h"
#include "drawing/entities/curves/arc_extents.h"
#include "drawing/ge/plane_map.h"
#include "drawing/model/setters.h"
#include "drawing/records/group_readers.h"

#include <algorithm>

using drawing::field;
using drawing::PlaneMap;

MVDRAWING_DEFINE_OBJECT(OdDbPolyline, OdDbCurve, "LWPOLYLINE");

const drawing::Description& OdDbPolyline::ownDescription() {
  using Self = OdDbPolyline;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(),
      {{"AcDbPolyline",
        {field<&Self::flags_>(70), field<&Self::constantWidth_>(43).unless(0), field<&Self::elevation_>(38).unless(0),
         field<&Self::thickness_>(39).unless(0), field<&Self::normal_>(210).unless(0, 0, 1)},
        readGroup,
        writeGroups}});
  return description;
}

bool OdDbPolyline::readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context) {
  auto& vertices = static_cast<OdDbPolyline&>(object).vertices_;
  if (group.code == 90)
    return true; // the count
  if (group.code == 10)
    vertices.emplace_back();
  if (vertices.empty())
    return false;
  Vertex& vertex = vertices.back();
  switch (group.code) {
  case 10:
    return drawing::takeReal(vertex.point.x, group, context);
  case 20:
    return drawing::takeReal(vertex.point.y, group, context);
  case 40:
    return drawing::takeReal(vertex.startWidth, group, context);
  case 41:
    return drawing::takeReal(vertex.endWidth, group, context);
  case 42:
    return drawing::takeReal(vertex.bulge, group, context);
  case 91:
    return drawing::takeInteger(vertex.identifier, group, context);
  default:
    return false;
  }
}

void OdDbPolyline::writeGroups(const OdDbObject& object, drawing::GroupSink& sink) {
  const auto& vertices = static_cast<const OdDbPolyline&>(object).vertices_;
  sink.integer(90, static_cast<std::int64_t>(vertices.size()));
  for (const Vertex& vertex : vertices) {
    sink.real(10, vertex.point.x);
    sink.real(20, vertex.point.y);
    if (vertex.startWidth != 0 || vertex.endWidth != 0) {
      sink.real(40, vertex.startWidth);
      sink.real(41, vertex.endWidth);
    }
    if (vertex.bulge != 0)
      sink.real(42, vertex.bulge);
    if (vertex.identifier != 0 && sink.version() >= OdDb::kRelease2010)
      sink.integer(91, vertex.identifier);
  }
}

const OdDbPolyline::Vertex& OdDbPolyline::vertexAt(unsigned index) const {
  if (index >= vertices_.size())
    throw OdError(eInvalidIndex);
  return vertices_[index];
}

OdDbPolyline::Vertex& OdDbPolyline::vertexForWrite(unsigned index) {
  assertWriteEnabled();
  return const_cast<Vertex&>(vertexAt(index));
}

OdGePoint3d OdDbPolyline::getPointAt(unsigned index) const {
  return ocsToWcs(OdGePoint3d(vertexAt(index).point, elevation_), normal_);
}

void OdDbPolyline::addVertexAt(unsigned index, const OdGePoint2d& point, double bulge, double startWidth,
                               double endWidth) {
  assertWriteEnabled();
  const auto at = static_cast<std::ptrdiff_t>(std::min<std::size_t>(index, vertices_.size()));
  vertices_.insert(vertices_.begin() + at, Vertex{point, bulge, startWidth, endWidth, 0});
}

void OdDbPolyline::setPointAt(unsigned index, const OdGePoint2d& point) {
  vertexForWrite(index).point = point;
}

void OdDbPolyline::setBulgeAt(unsigned index, double bulge) {
  vertexForWrite(index).bulge = bulge;
}

void OdDbPolyline::removeVertexAt(unsigned index) {
  vertexForWrite(index);
  vertices_.erase(vertices_.begin() + index);
}

void OdDbPolyline::setClosed(bool closed) {
  assertWriteEnabled();
  flags_ = static_cast<std::int16_t>(closed ? flags_ | 1 : flags_ & ~1);
}

MVDRAWING_SETTER(OdDbPolyline, setConstantWidth, double, constantWidth_)
MVDRAWING_SETTER(OdDbPolyline, setElevation, double, elevation_)
MVDRAWING_SETTER(OdDbPolyline, setThickness, double, thickness_)
MVDRAWING_SETTER(OdDbPolyline, setNormal, const OdGeVector3d&, normal_)

OdResult OdDbPolyline::applyTransform(const OdGeMatrix3d& matrix) {
  const PlaneMap map(matrix, normal_);
  const auto hasShape = [](const Vertex& v) { return v.bulge != 0 || v.startWidth != 0 || v.endWidth != 0; };
  const bool shaped = constantWidth_ != 0 || std::any_of(vertices_.begin(), vertices_.end(), hasShape);
  if ((shaped && !map.keepsShapes()) || !map.takesThickness(thickness_))
    return eCannotTransform;
  for (Vertex& vertex : vertices_) {
    vertex.point = map.point(OdGePoint3d(vertex.point, elevation_)).to2d();
    vertex.startWidth *= map.scale();
    vertex.endWidth *= map.scale();
    if (map.isMirrored())
      vertex.bulge = -vertex.bulge;
  }
  elevation_ = map.point(OdGePoint3d(0, 0, elevation_)).z;
  constantWidth_ *= map.scale();
  thickness_ *= map.thicknessScale();
  normal_ = map.normal();
  return eOk;
}

OdResult OdDbPolyline::getGeomExtents(OdGeExtents3d& extents) const {
  if (vertices_.empty())
    return eNotApplicable;
  std::vector<drawing::PathVertex> path;
  path.reserve(vertices_.size());
  for (const Vertex& v : vertices_) {
    const bool own = constantWidth_ == 0;
    path.push_back({OdGePoint3d(v.point, elevation_), v.bulge, own ? v.startWidth : constantWidth_,
                    own ? v.endWidth : constantWidth_});
  }
  const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(normal_);
  OdGeExtents3d flat;
  drawing::addPath(flat, plane, path, isClosed());
  flat.expandBy(plane.column(2) * thickness_);
  extents.addExt(flat);
  return eOk;
}
