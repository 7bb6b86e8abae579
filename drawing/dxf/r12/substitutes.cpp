#include "drawing/dxf/r12/substitutes.h"

#include "DbFcf.h"
#include "DbHatch.h"
#include "DbLeader.h"
#include "DbMLeader.h"
#include "DbMText.h"
#include "DbMline.h"
#include "DbPolyline.h"
#include "DbRasterImage.h"
#include "DbSpline.h"
#include "DbSubDMesh.h"
#include "Ge/GeUtil.h"
#include "drawing/dxf/r12/primitives.h"
#include "drawing/entities/curves/tessellate.h"
#include "drawing/entities/hatch/hatch_fill.h"
#include "drawing/model/object_store.h"
#include "drawing/model/symbol_name.h"
#include "drawing/records/raw_groups.h"

#include <algorithm>
#include <cmath>

namespace drawing::dxf {

namespace {

using Points = std::vector<OdGePoint3d>;

constexpr std::size_t kMaxHatchWork = 20'000'000; // cuts
constexpr std::size_t kMaxHatchLines = 200'000;

struct Source {
  const OdDbEntity& entity;
  const GroupList& groups;
  R12Drawing& draw;
};

Substitute same(std::string done) {
  return {true, Severity::kNote, std::move(done)};
}
Substitute about(std::string done) {
  return {true, Severity::kLost, std::move(done)};
}
Substitute nothing() {
  return {false, Severity::kLost, "it is omitted"};
}

Substitute lightPolyline(const Source& source) {
  const auto& polyline = static_cast<const OdDbPolyline&>(source.entity);
  if (polyline.numVerts() == 0)
    return nothing();
  source.draw.polyline(polyline);
  return same("it is written as a POLYLINE");
}

Substitute ellipse(const Source& source) {
  const auto& curve = static_cast<const OdDbEllipse&>(source.entity);
  double start = curve.startParam(), end = curve.endParam();
  if (end <= start)
    end += kTwoPi;
  Points points;
  flattenArc(curve.center(), curve.majorAxis(), curve.minorAxis(), start, end, points);
  const bool closed = end - start > kTwoPi - 1e-9;
  if (closed)
    points.pop_back();
  source.draw.polyline(points, closed);
  return about("it is written as a polyline of " + std::to_string(points.size()) + " points");
}

Substitute spline(const Source& source) {
  const auto& curve = static_cast<const OdDbSpline&>(source.entity);
  Points points;
  flattenNurbs({curve.degree(), curve.knots(), curve.controlPoints(), curve.weights()}, points);
  if (points.empty())
    points = curve.fitPoints();
  if (points.size() < 2)
    return nothing();
  source.draw.polyline(points, false);
  return about("it is written as a polyline of " + std::to_string(points.size()) + " points");
}

// As far as the drawing reaches, twice.
Substitute unboundedLine(const Source& source) {
  const auto& line = static_cast<const OdDbUnboundedLine&>(source.entity);
  const bool isRay = source.entity.isKindOf(OdDbRay::desc());
  const OdGeVector3d far = line.unitDir() * (2 * source.draw.reach());
  source.draw.line(isRay ? line.basePoint() : line.basePoint() - far, line.basePoint() + far);
  return about("it is written as a line that extends past the drawing");
}

Substitute mtext(const Source& source) {
  const auto& text = static_cast<const OdDbMText&>(source.entity);
  return about("it is written as " + std::to_string(source.draw.lines(text)) + " texts without formatting");
}

Substitute tolerance(const Source& source) {
  const auto& frame = static_cast<const OdDbFcf&>(source.entity);
  OdDbMText text;
  OdString contents = frame.text();
  contents.replace(L"%%v", L" | ");
  text.setContents(contents);
  text.setLocation(frame.location());
  text.setNormal(frame.normal());
  text.setDirection(frame.direction());
  text.setTextHeight(source.draw.dimensionTextHeight(frame.dimensionStyle()));
  text.setAttachment(OdDbMText::kMiddleLeft);
  source.draw.lines(text);
  return about("its text is written as TEXT");
}

Substitute leader(const Source& source) {
  const auto& leader = static_cast<const OdDbLeader&>(source.entity);
  Points points;
  for (int i = 0; i < leader.numVertices(); ++i)
    points.push_back(leader.vertexAt(i));
  if (points.size() < 2)
    return nothing();
  source.draw.polyline(points, false);
  return about("its line is written as a POLYLINE");
}

Substitute multiLeader(const Source& source) {
  const auto& leader = static_cast<const OdDbMLeader&>(source.entity);
  bool any = false;
  for (const Points& line : leader.leaderLines()) {
    if (line.size() > 1)
      source.draw.polyline(line, false);
    any = any || line.size() > 1;
  }
  if (leader.contentType() == OdDbMLeader::kMTextContent) {
    OdDbMText text;
    text.setContents(leader.contents());
    text.setLocation(leader.textLocation());
    text.setNormal(leader.normal());
    text.setDirection(leader.textDirection());
    text.setTextHeight(leader.textHeight());
    any = source.draw.lines(text) > 0 || any;
  }
  if (leader.contentType() == OdDbMLeader::kBlockContent && isAlive(leader.blockContentId())) {
    source.draw.reference(symbolName(leader.blockContentId()), leader.blockPosition(), leader.scale());
    any = true;
  }
  return any ? about("its lines and its text are written separately") : nothing();
}

// Strokes cross the mitre of each vertex at their first cut.
Substitute multiLine(const Source& source) {
  const auto& line = static_cast<const OdDbMline&>(source.entity);
  std::vector<Points> strokes;
  for (int i = 0; i < line.numVertices(); ++i) {
    const OdDbMline::Vertex& vertex = line.vertexAt(i);
    strokes.resize(std::max(strokes.size(), vertex.strokes.size()));
    for (std::size_t j = 0; j < vertex.strokes.size(); ++j) {
      const std::vector<double>& cuts = vertex.strokes[j].cuts;
      strokes[j].push_back(vertex.point + vertex.miter * (cuts.empty() ? 0 : cuts.front()));
    }
  }
  for (const Points& stroke : strokes)
    source.draw.polyline(stroke, line.isClosed());
  return strokes.empty() ? nothing() : about("each of its lines is written as a POLYLINE");
}

Substitute image(const Source& source) {
  const auto& image = static_cast<const OdDbRasterImage&>(source.entity);
  OdGePoint3d origin;
  OdGeVector3d u, v; // of one pixel
  image.getOrientation(origin, u, v);
  u *= image.imageSize().x;
  v *= image.imageSize().y;
  source.draw.polyline({origin, origin + u, origin + u + v, origin + v}, true);
  return about("its frame is written as a POLYLINE");
}

// Faces of three and four corners are faces, others their outlines.
Substitute mesh(const Source& source) {
  const auto& mesh = static_cast<const OdDbSubDMesh&>(source.entity);
  const Points vertices = mesh.vertices();
  std::vector<std::int64_t> list;
  const GroupList& groups = mesh.groups();
  const std::size_t start = groups.find(93);
  for (std::size_t i = start + 1; start < groups.size() && i < groups.size() && groups[i].code == 90; ++i)
    list.push_back(groups[i].integer);
  std::size_t faces = 0;
  for (std::size_t i = 0; i < list.size();) {
    const auto corners = static_cast<std::size_t>(std::max<std::int64_t>(list[i], 0));
    Points face;
    for (std::size_t j = i + 1; j <= i + corners && j < list.size(); ++j) {
      if (list[j] >= 0 && list[j] < static_cast<std::int64_t>(vertices.size()))
        face.push_back(vertices[static_cast<std::size_t>(list[j])]);
    }
    i += corners + 1;
    if (face.size() < 3)
      continue;
    ++faces;
    if (face.size() > 4)
      source.draw.polyline(face, true);
    else
      source.draw.face(face);
  }
  return faces == 0 ? nothing() : about("its " + std::to_string(faces) + " faces are written separately");
}

Substitute solidHatch(const Source& source, const OdDbHatch& hatch, const std::vector<Polygon>& loops) {
  const auto area = hatchArea(loops, kMaxHatchWork);
  if (!area || area->size() > kMaxHatchLines || area->empty())
    return nothing();
  for (const Trapezoid& part : *area)
    source.draw.solid(part, hatch.elevation(), hatch.normal());
  return about("its fill is written as " + std::to_string(area->size()) + " solids");
}

Substitute patternHatch(const Source& source, const OdDbHatch& hatch, const std::vector<Polygon>& loops) {
  const auto lines = hatchLines(hatch, loops, kMaxHatchWork);
  if (!lines || lines->size() > kMaxHatchLines || lines->empty())
    return nothing();
  const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(hatch.normal());
  for (const HatchLine& line : *lines)
    source.draw.line(plane * OdGePoint3d(line.from.x, line.from.y, hatch.elevation()),
                     plane * OdGePoint3d(line.to.x, line.to.y, hatch.elevation()));
  return about("its pattern is written as " + std::to_string(lines->size()) + " lines");
}

Substitute hatch(const Source& source) {
  const auto& hatch = static_cast<const OdDbHatch&>(source.entity);
  const std::vector<Polygon> loops = hatchLoops(hatch);
  return hatch.isSolidFill() ? solidHatch(source, hatch, loops) : patternHatch(source, hatch, loops);
}

// Unlike a hatch, its boundary is drawn, whatever its fill is.
Substitute multiPolygon(const Source& source) {
  const auto& polygon = static_cast<const OdDbMPolygon&>(source.entity);
  const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(polygon.normal());
  std::size_t written = 0;
  for (const Polygon& loop : hatchLoops(polygon)) {
    Points points;
    for (const OdGePoint2d& point : loop)
      points.push_back(plane * OdGePoint3d(point.x, point.y, polygon.elevation()));
    if (points.size() < 2)
      continue;
    source.draw.polyline(points, true);
    ++written;
  }
  if (written == 0)
    return nothing();
  const std::string boundary = "its boundary is written as " + std::to_string(written) + " polylines";
  constexpr int kPatternLines = 78;
  if (!polygon.isSolidFill() && rawInteger(polygon.groups(), kPatternLines) == 0)
    return about(boundary);
  const Substitute fill = hatch(source);
  return about(boundary + (fill.isWritten ? "; " + fill.done : "; its fill is omitted"));
}

// Tables, and dimensions that came later, are drawn by a block of their own: a reference to it looks the same.
Substitute ownBlock(const Source& source) {
  const std::size_t name = source.groups.find(2);
  if (name == source.groups.size())
    return nothing();
  const bool isTable = source.entity.dxfName() == "ACAD_TABLE";
  const OdGePoint3d position = isTable ? rawPoint(source.groups, 10) : OdGePoint3d();
  const OdGePoint3d along = rawPoint(source.groups, 11);
  const double rotationRad = isTable ? std::atan2(along.y, along.x) : 0;
  source.draw.reference(source.groups.stringOf(source.groups[name]), position, 1, rotationRad);
  return about("it is written as a reference to its graphics block");
}

struct Way {
  OdRxClass* (*kind)();
  Substitute (*write)(const Source& source);
};

const Way kWays[] = {
    {&OdDbPolyline::desc, lightPolyline},
    {&OdDbEllipse::desc, ellipse},
    {&OdDbSpline::desc, spline},
    {&OdDbUnboundedLine::desc, unboundedLine},
    {&OdDbMText::desc, mtext},
    {&OdDbFcf::desc, tolerance},
    {&OdDbLeader::desc, leader},
    {&OdDbMLeader::desc, multiLeader},
    {&OdDbMline::desc, multiLine},
    {&OdDbRasterImage::desc, image},
    {&OdDbSubDMesh::desc, mesh},
    {&OdDbMPolygon::desc, multiPolygon},
    {&OdDbHatch::desc, hatch},
};

} // namespace

Substitute writeSubstitute(const OdDbEntity& entity, const GroupList& groups, R12Writer& writer) {
  R12Drawing draw(entity, writer);
  const Source source{entity, groups, draw};
  const std::string kind = entity.dxfName();
  if (kind == "ACAD_TABLE" || kind == "ARC_DIMENSION" || kind == "LARGE_RADIAL_DIMENSION")
    return ownBlock(source);
  for (const Way& way : kWays) {
    if (entity.isKindOf(way.kind()))
      return way.write(source);
  }
  return nothing();
}

} // namespace drawing::dxf
