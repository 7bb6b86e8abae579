// Polylines, meshes and faces.
#include "DbDatabase.h"
#include "DbFaces.h"
#include "DbPolyline.h"
#include "DbSubDMesh.h"
#include "DbVertexPolylines.h"
#include "drawing/gi/draw/entity_drawers.h"
#include "drawing/model/object_store.h"

#include <algorithm>
#include <cstdlib>

namespace drawing::gi {

PlanePath planePathOf(const OdDbPolyline& polyline) {
  PlanePath path;
  path.closed = polyline.isClosed();
  path.toBlock = OdGeMatrix3d::planeToWorld(polyline.normal());
  const double width = polyline.getConstantWidth();
  for (unsigned i = 0; i < polyline.numVerts(); ++i) {
    const OdDbPolyline::Vertex& vertex = polyline.vertexAt(i);
    path.vertices.push_back({OdGePoint3d(vertex.point, polyline.elevation()), vertex.bulge,
                             width != 0 ? width : vertex.startWidth, width != 0 ? width : vertex.endWidth});
  }
  return path;
}

PlanePath planePathOf(const OdDb2dPolyline& polyline) {
  PlanePath path;
  path.closed = polyline.isClosed();
  path.toBlock = OdGeMatrix3d::planeToWorld(polyline.normal());
  const auto width = [](double own, double usual) { return own < 0 ? usual : own; };
  for (OdDbObjectId id : polyline.vertexIds()) {
    const auto* vertex = getIf<OdDb2dVertex>(id);
    if (vertex == nullptr || (vertex->vertexFlags() & OdDbVertex::kSplineControl) != 0)
      continue; // the frame of a smoothed polyline does not show
    path.vertices.push_back({OdGePoint3d(vertex->position().x, vertex->position().y, polyline.elevation()),
                             vertex->bulge(), width(vertex->startWidth(), polyline.defaultStartWidth()),
                             width(vertex->endWidth(), polyline.defaultEndWidth())});
  }
  return path;
}

void drawPolyline(const OdDbPolyline& polyline, Canvas& canvas) {
  drawPlanePath(planePathOf(polyline), canvas);
}

void draw2dPolyline(const OdDb2dPolyline& polyline, Canvas& canvas) {
  drawPlanePath(planePathOf(polyline), canvas);
}

namespace {

// False for faces. Some programs write vertices of polylines in space without saying so: these are read as vertices in
// a plane.
bool positionOf(const OdDbVertex& vertex, OdGePoint3d& position) {
  if (vertex.isKindOf(OdDbWorldVertex::desc()))
    position = static_cast<const OdDbWorldVertex&>(vertex).position();
  else if (vertex.isKindOf(OdDb2dVertex::desc()))
    position = static_cast<const OdDb2dVertex&>(vertex).position();
  else
    return false;
  return true;
}

// The places of the vertices that have none of the first flags and all of the second.
Path positionsOf(const OdDbVertexOwner& owner, std::int16_t without, std::int16_t with = 0) {
  Path path;
  OdGePoint3d position;
  for (OdDbObjectId id : owner.vertexIds()) {
    const auto* vertex = getIf<OdDbVertex>(id);
    const bool isWanted =
        vertex != nullptr && (vertex->vertexFlags() & without) == 0 && (vertex->vertexFlags() & with) == with;
    if (isWanted && positionOf(*vertex, position))
      path.push_back(position);
  }
  return path;
}

void drawGrid(const Path& points, std::size_t rows, std::size_t columns, bool rowsClose, bool columnsClose,
              Canvas& canvas) {
  if (rows == 0 || columns == 0 || points.size() / rows < columns)
    return;
  Path line;
  for (std::size_t i = 0; i < rows; ++i) {
    line.assign(points.begin() + static_cast<std::ptrdiff_t>(i * columns),
                points.begin() + static_cast<std::ptrdiff_t>((i + 1) * columns));
    canvas.stroke(line, columnsClose);
  }
  for (std::size_t j = 0; j < columns; ++j) {
    line.clear();
    for (std::size_t i = 0; i < rows; ++i)
      line.push_back(points[i * columns + j]);
    canvas.stroke(line, rowsClose);
  }
}

std::size_t sizeOf(std::int16_t count) {
  return static_cast<std::size_t>(std::max<std::int16_t>(count, 0));
}

} // namespace

void draw3dPolyline(const OdDb3dPolyline& polyline, Canvas& canvas) {
  canvas.stroke(positionsOf(polyline, OdDbVertex::kSplineControl), polyline.isClosed());
}

void drawPolygonMesh(const OdDbPolygonMesh& mesh, Canvas& canvas) {
  if (mesh.isSmoothed())
    drawGrid(positionsOf(mesh, OdDbVertex::kSplineControl, OdDbVertex::kSplineVertex), sizeOf(mesh.mDensity()),
             sizeOf(mesh.nDensity()), mesh.isMClosed(), mesh.isNClosed(), canvas);
  else
    drawGrid(positionsOf(mesh, 0), sizeOf(mesh.mSize()), sizeOf(mesh.nSize()), mesh.isMClosed(), mesh.isNClosed(),
             canvas);
}

namespace {

// Edges of a face by the numbers of its vertices, without those below 0.
void drawFaceRecord(const OdDbFaceRecord& face, const Path& vertices, Canvas& canvas) {
  int corners = 0;
  while (corners < 4 && face.getVertexAt(corners) != 0)
    ++corners;
  for (int i = 0; i < corners; ++i) {
    const int from = face.getVertexAt(i), to = std::abs(face.getVertexAt((i + 1) % corners));
    const auto count = static_cast<int>(vertices.size());
    if (from > 0 && from <= count && to <= count)
      canvas.line(vertices[static_cast<std::size_t>(from - 1)], vertices[static_cast<std::size_t>(to - 1)]);
  }
}

} // namespace

void drawPolyFaceMesh(const OdDbPolyFaceMesh& mesh, Canvas& canvas) {
  Path vertices;
  for (OdDbObjectId id : mesh.vertexIds()) {
    if (const auto* vertex = getIf<OdDbPolyFaceMeshVertex>(id))
      vertices.push_back(vertex->position());
    else if (const auto* face = getIf<OdDbFaceRecord>(id))
      drawFaceRecord(*face, vertices, canvas);
  }
}

// A list of faces, each its number of corners and their indices.
void drawSubDMesh(const OdDbSubDMesh& mesh, Canvas& canvas) {
  const Path vertices = mesh.vertices();
  const GroupList& groups = mesh.groups();
  std::size_t i = groups.find(93) + 1;
  const auto isEntry = [&] { return i < groups.size() && groups[i].code == 90; };
  while (isEntry()) {
    Path face;
    for (std::int64_t corners = groups[i++].integer; corners > 0 && isEntry(); --corners, ++i) {
      if (groups[i].integer >= 0 && groups[i].integer < static_cast<std::int64_t>(vertices.size()))
        face.push_back(vertices[static_cast<std::size_t>(groups[i].integer)]);
    }
    canvas.stroke(face, true);
  }
  if (mesh.subdivisionLevel() > 0)
    canvas.reportNotDrawn("smoothing");
}

void drawFace(const OdDbFace& face, Canvas& canvas) {
  for (int i = 0; i < 4; ++i) {
    if (face.isEdgeVisibleAt(i))
      canvas.line(face.getVertexAt(i), face.getVertexAt((i + 1) % 4));
  }
}

// The third and fourth corner are crosswise.
void drawFilledArea(const OdDbFilledArea& area, Canvas& canvas) {
  const Path outline{area.getPointAt(0), area.getPointAt(1), area.getPointAt(3), area.getPointAt(2)};
  if (canvas.database().headerInt("FILLMODE", 1) != 0)
    canvas.fill({outline});
  else
    canvas.stroke(outline, true);
}

} // namespace drawing::gi
