#include "DbMline.h"

#include "drawing/ge/plane_map.h"
#include "drawing/records/group_readers.h"

#include <cmath>

using drawing::field;

MVDRAWING_DEFINE_OBJECT(OdDbMline, OdDbCurve, "MLINE");

const drawing::Description& OdDbMline::ownDescription() {
  using Self = OdDbMline;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(),
      {{"AcDbMline",
        {field<&Self::styleName_>(2), field<&Self::style_>(340).ref(OdDb::kHardPointerRef), field<&Self::scale_>(40),
         field<&Self::justification_>(70), field<&Self::flags_>(71), field<&Self::elements_>(73),
         field<&Self::start_>(10), field<&Self::normal_>(210)},
        readGroup,
        writeGroups}});
  return description;
}

namespace {

// Coordinates behind a vertex's first: 11 begins it, 12 and 13 are its directions.
bool takeVector(OdGeVector3d& vector, int code, const drawing::RawGroup& group, drawing::LoadContext& context) {
  const int component = (group.code - code) / 10;
  if (component < 0 || component > 2 || code + 10 * component != group.code)
    return false;
  context.real(group, vector[component]);
  return true;
}

} // namespace

bool OdDbMline::readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context) {
  auto& line = static_cast<OdDbMline&>(object);
  if (group.code == 72)
    return true; // the count
  if (group.code == 11)
    line.vertices_.emplace_back();
  if (line.vertices_.empty())
    return false;
  Vertex& vertex = line.vertices_.back();
  if (group.code == 11 || group.code == 21 || group.code == 31) {
    context.real(group, vertex.point[(group.code - 11) / 10]);
    return true;
  }
  return takeVector(vertex.direction, 12, group, context) || takeVector(vertex.miter, 13, group, context) ||
         line.readStroke(group, context);
}

bool OdDbMline::readStroke(const drawing::RawGroup& group, drawing::LoadContext& context) {
  std::vector<Stroke>& strokes = vertices_.back().strokes;
  if (group.code == 74) { // the count of what follows; begins a stroke
    strokes.emplace_back();
    return true;
  }
  if (strokes.empty())
    return false;
  if (group.code == 41)
    return drawing::takeReal(strokes.back().cuts, group, context);
  if (group.code == 42)
    return drawing::takeReal(strokes.back().fillCuts, group, context);
  return group.code == 75;
}

void OdDbMline::writeGroups(const OdDbObject& object, drawing::GroupSink& sink) {
  const auto& line = static_cast<const OdDbMline&>(object);
  sink.integer(72, static_cast<std::int64_t>(line.vertices_.size()));
  for (const Vertex& vertex : line.vertices_) {
    sink.point(11, vertex.point);
    sink.point(12, OdGePoint3d() + vertex.direction);
    sink.point(13, OdGePoint3d() + vertex.miter);
    for (const Stroke& stroke : vertex.strokes) {
      sink.integer(74, static_cast<std::int64_t>(stroke.cuts.size()));
      for (const double cut : stroke.cuts)
        sink.real(41, cut);
      sink.integer(75, static_cast<std::int64_t>(stroke.fillCuts.size()));
      for (const double cut : stroke.fillCuts)
        sink.real(42, cut);
    }
  }
}

const OdDbMline::Vertex& OdDbMline::vertexAt(int index) const {
  if (index < 0 || index >= numVertices())
    throw OdError(eInvalidIndex);
  return vertices_[static_cast<std::size_t>(index)];
}

namespace {

void scaleAll(std::vector<double>& values, double by) {
  for (double& value : values)
    value *= by;
}

} // namespace

OdResult OdDbMline::applyTransform(const OdGeMatrix3d& matrix) {
  const drawing::PlaneMap map(matrix, normal_);
  if (!map.keepsShapes())
    return eCannotTransform;
  const bool translation = drawing::isTranslation(matrix);
  const double scale = std::fabs(map.scale() - 1) > 1e-14 ? map.scale() : 1;
  start_ = matrix * start_;
  scale_ *= scale;
  normal_ = map.isMirrored() ? -map.normal() : map.normal();
  for (Vertex& vertex : vertices_) {
    vertex.point = matrix * vertex.point;
    if (translation)
      continue;
    vertex.direction = (matrix * vertex.direction).normal();
    vertex.miter = (matrix * vertex.miter).normal();
    for (Stroke& stroke : vertex.strokes) {
      scaleAll(stroke.cuts, scale);
      scaleAll(stroke.fillCuts, scale);
    }
  }
  return eOk;
}

OdResult OdDbMline::getGeomExtents(OdGeExtents3d& extents) const {
  for (const Vertex& vertex : vertices_) {
    extents.addPoint(vertex.point);
    for (const Stroke& stroke : vertex.strokes) {
      if (!stroke.cuts.empty())
        extents.addPoint(vertex.point + vertex.miter * stroke.cuts.front());
    }
  }
  return vertices_.empty() ? eNotApplicable : eOk;
}
