// Kinds of entities for the checks that all kinds pass: how files hold them, where their points lie, and which matrices
// they take. The table here has those that are made of several sections or lists; round ones are looked at twice.
#pragma once

#include "DbCurves.h"
#include "DbDimension.h"
#include "DbFcf.h"
#include "DbHatch.h"
#include "DbHelix.h"
#include "DbLight.h"
#include "DbMLeader.h"
#include "DbMline.h"
#include "DbModelerGeometry.h"
#include "DbOle2Frame.h"
#include "DbShape.h"
#include "DbSubDMesh.h"
#include "DbTable.h"
#include "Ge/GeUtil.h"

#include <cmath>
#include <vector>

namespace tests {

using Points = std::vector<OdGePoint3d>;

template <class T>
const T& as(const OdDbEntity& entity) {
  return static_cast<const T&>(entity);
}

inline Points tips(const OdGePoint3d& base, const OdGeVector3d& direction) {
  return {base, base + direction};
}

// The matrices that a kind takes; each class holds those before it.
enum Reach { kNothing, kMoves, kScales, kMirrors, kAll, kNever };

struct Kind {
  const char* name;
  const char* dxfName;
  const char* groups;
  Reach reach;
  Points (*points)(const OdDbEntity&);
  bool (*has)(const OdDbEntity&, const OdGePoint3d&) = nullptr; // null: the points go one by one
  bool reshapes = false; // other groups stand for what lost its shape: reshape_test.cpp
};

inline double sweepOf(double start, double end) {
  const double sweep = std::fmod(end - start, kTwoPi);
  return sweep > 0 ? sweep : sweep + kTwoPi;
}

// Points of a curve at even steps of its parameter; the top of its thickness at the end.
template <class T>
inline Points sampled(const T& curve, double start, double end) {
  Points points;
  for (int i = 0; i <= 8; ++i)
    points.push_back(curve.pointAt(start + sweepOf(start, end) * i / 8));
  return points;
}

inline Points circlePoints(const OdDbEntity& e) {
  return sampled(as<OdDbCircle>(e), 0, 0);
}
inline Points arcPoints(const OdDbEntity& e) {
  return sampled(as<OdDbArc>(e), as<OdDbArc>(e).startAngle(), as<OdDbArc>(e).endAngle());
}
inline Points ellipsePoints(const OdDbEntity& e) {
  return sampled(as<OdDbEllipse>(e), as<OdDbEllipse>(e).startParam(), as<OdDbEllipse>(e).endParam());
}

inline bool near(double a, double b) {
  return std::fabs(a - b) < 1e-9;
}

inline bool within(double angle, double start, double end) {
  const double at = std::fmod(angle - start + 2 * kTwoPi + 1e-9, kTwoPi);
  return at <= sweepOf(start, end) + 2e-9;
}

inline bool onCircle(const OdDbRoundCurve& circle, const OdGePoint3d& p) {
  const OdGeVector3d v = p - circle.center();
  return near(v.length(), circle.radius()) && near(v.dotProduct(circle.normal()), 0);
}

inline bool circleHas(const OdDbEntity& e, const OdGePoint3d& p) {
  return onCircle(as<OdDbCircle>(e), p);
}

inline bool arcHas(const OdDbEntity& e, const OdGePoint3d& p) {
  const auto& arc = as<OdDbArc>(e);
  const OdGeVector3d v = OdGeMatrix3d::worldToPlane(arc.normal()) * (p - arc.center());
  return onCircle(arc, p) && within(std::atan2(v.y, v.x), arc.startAngle(), arc.endAngle());
}

inline bool ellipseHas(const OdDbEntity& e, const OdGePoint3d& p) {
  const auto& ellipse = as<OdDbEllipse>(e);
  const OdGeVector3d v = p - ellipse.center(), a = ellipse.majorAxis(), b = ellipse.minorAxis();
  const double x = v.dotProduct(a) / a.squaredLength(), y = v.dotProduct(b) / b.squaredLength();
  return near(a.dotProduct(b), 0) && a.length() > b.length() * 0.999 && near(x * x + y * y, 1) &&
         near(v.dotProduct(ellipse.normal()), 0) && within(std::atan2(y, x), ellipse.startParam(), ellipse.endParam());
}

// The lines, and how the text lies.
inline Points mleaderPoints(const OdDbEntity& e) {
  const auto& leader = as<OdDbMLeader>(e);
  const bool block = leader.contentType() == OdDbMLeader::kBlockContent;
  Points points;
  for (const Points& line : leader.leaderLines())
    points.insert(points.end(), line.begin(), line.end());
  const OdGeVector3d x = leader.textDirection(), y = leader.normal().crossProduct(x);
  const OdGePoint3d at = block ? leader.blockPosition() : leader.textLocation();
  points.insert(points.end(), {at});
  if (!block)
    points.insert(points.end(), {at + x * leader.arrowSize(), at + y * leader.textHeight()});
  return points;
}

inline Points toleranceFramePoints(const OdDbEntity& e) {
  return {as<OdDbFcf>(e).location()};
}

// Where the strokes cross the mitres, and a point on the side that the normal gives.
inline Points mlinePoints(const OdDbEntity& e) {
  const auto& line = as<OdDbMline>(e);
  Points points;
  for (int i = 0; i < line.numVertices(); ++i) {
    const OdDbMline::Vertex& vertex = line.vertexAt(i);
    const OdGeVector3d left = line.normal().crossProduct(vertex.direction);
    points.push_back(vertex.point + left * line.scale());
    for (const OdDbMline::Stroke& stroke : vertex.strokes)
      points.push_back(vertex.point + vertex.miter * stroke.cuts.front());
  }
  return points;
}

// The letter's base line, upright and thickness.
inline Points shapePoints(const OdDbEntity& e) {
  const auto& shape = as<OdDbShape>(e);
  const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(shape.normal());
  const double c = std::cos(shape.rotation()), s = std::sin(shape.rotation()), slant = std::tan(shape.oblique());
  const OdGeVector3d along = plane * OdGeVector3d(c, s, 0) * (shape.size() * shape.widthFactor());
  const OdGeVector3d up = plane * OdGeVector3d(-s + slant * c, c + slant * s, 0) * shape.size();
  return {shape.position(), shape.position() + along, shape.position() + up,
          shape.position() + plane.column(2) * shape.thickness()};
}

// The last one lies a quarter of a turn on: the way round shows in it.
inline Points helixPoints(const OdDbEntity& e) {
  const auto& helix = as<OdDbHelix>(e);
  Points points = helix.controlPoints();
  const OdGeVector3d out = helix.startPoint() - helix.axisPoint();
  const OdGeVector3d quarter = helix.axisVector().crossProduct(out) * (helix.isRightHanded() ? 1 : -1);
  points.insert(points.end(),
                {helix.axisPoint(), helix.startPoint(), helix.axisPoint() + helix.axisVector() * helix.height(),
                 helix.axisPoint() + quarter.normal() * helix.radius()});
  return points;
}

inline Points meshPoints(const OdDbEntity& e) {
  return as<OdDbSubDMesh>(e).vertices();
}

inline Points lightPoints(const OdDbEntity& e) {
  return {as<OdDbLight>(e).position(), as<OdDbLight>(e).targetLocation()};
}

inline Points tablePoints(const OdDbEntity& e) {
  const auto& table = as<OdDbTable>(e);
  const OdGePoint3d at = table.position();
  return {at, at + table.direction() * table.columnWidth(1), table.blockTransform() * OdGePoint3d(1, 2, 3)};
}

inline Points referencePoints(const OdDbEntity& e) {
  const OdGeMatrix3d block = as<OdDbBlockReference>(e).blockTransform();
  return {block * OdGePoint3d(), block * OdGePoint3d(1, 0, 0), block * OdGePoint3d(0, 1, 0)};
}

inline Points arcDimensionPoints(const OdDbEntity& e) {
  const auto& dim = as<OdDbArcDimension>(e);
  return {dim.arcPoint(), dim.xLine1Point(), dim.xLine2Point(), dim.centerPoint(), dim.textPosition()};
}

inline Points jogPoints(const OdDbEntity& e) {
  const auto& dim = as<OdDbRadialDimensionLarge>(e);
  return {dim.center(), dim.overrideCenter(), dim.jogPoint(), dim.chordPoint()};
}

// Both corners, and the middle of the bulge between them.
inline Points mpolygonPoints(const OdDbEntity& e) {
  const auto& polygon = as<OdDbMPolygon>(e);
  const drawing::GroupList& groups = polygon.groups();
  const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(polygon.normal());
  const std::size_t loop = groups.find(93), second = groups.find(10, groups.find(10, loop) + 1);
  const auto place = [&](std::size_t i) {
    return OdGePoint3d(groups[i].real, groups[i + 1].real, polygon.elevation());
  };
  const OdGePoint3d a = place(groups.find(10, loop)), b = place(second);
  const OdGeVector3d bulge = (b - a).crossProduct(OdGeVector3d::kZAxis) * (groups[groups.find(42)].real / 2);
  return {plane * a, plane * b, plane * (a + (b - a) * 0.5 + bulge)};
}

inline Points noPoints(const OdDbEntity&) {
  return {};
}

inline const Kind kComposedKinds[] = {
    {"TextLeader", "MULTILEADER",
     "100 AcDbMLeader|270 2|300 CONTEXT_DATA{|40 1|10 1|20 2|30 3|41 4|140 4|145 2|174 1|175 6|176 0|177 0|290 1|"
     "304 one\\Ptwo|11 0|21 0|31 1|340 0|12 3|22 4|32 3|13 0.8|23 0.6|33 0|42 0.6435011087932844|43 9.5|44 8|45 1|"
     "170 1|90 -1073741824|171 1|172 5|141 0|92 0|291 0|142 0|143 0|296 0|110 1|120 2|130 0|111 1|121 0|131 0|112 0|"
     "122 1|132 0|297 0|302 LEADER{|290 1|291 1|10 0|20 2|30 3|11 1|21 0|31 0|90 0|40 0.36|304 LEADER_LINE{|10 -5|20 1|"
     "30 3|10 -2|20 1|30 3|91 0|305 }|304 LEADER_LINE{|10 -5|20 9|30 3|91 1|305 }|271 0|303 }|272 9|273 9|301 }|340 0|"
     "90 279552|170 1|41 0.36|42 4|172 2|343 0|10 1|20 1|30 1|43 0|45 1|271 0|295 1",
     kScales, mleaderPoints},
    {"BlockLeader", "MULTILEADER",
     "100 AcDbMLeader|300 CONTEXT_DATA{|40 2|10 1|20 2|30 3|140 4|290 0|296 1|341 0|14 0|24 0|34 1|15 4|25 5|35 3|16 "
     "2|26 2|36 2|46 0.25|93 1|47 2|47 0|47 0|47 4|47 0|47 2|47 0|47 5|47 0|47 0|47 2|47 3|47 0|47 0|47 0|47 1|302 "
     "LEADER{|10 0|20 2|30 3|304 LEADER_LINE{|10 -5|20 1|30 3|305 }|303 }|301 }|340 0|172 1|344 0|10 1|20 1|30 1|45 2",
     kScales, mleaderPoints},
    {"Tolerance", "TOLERANCE", "100 AcDbFcf|3 Standard|10 1|20 2|30 3|1 {\\Fgdt;r}%%v1%%v|11 0.6|21 0.8|31 0", kMirrors,
     toleranceFramePoints},
    {"Mline", "MLINE",
     "100 AcDbMline|2 STANDARD|340 0|40 2|70 0|71 3|72 2|73 2|10 1|20 2|30 3|210 0|220 0|230 1|11 1|21 2|31 3|12 1|"
     "22 0|32 0|13 0.6|23 0.8|33 0|74 2|41 0|41 0.5|75 0|74 3|41 -2.5|41 0|41 1|75 1|42 0.25|11 6|21 2|31 3|12 0|22 1|"
     "32 0|13 -0.6|23 0.8|33 0|74 1|41 0|75 0|74 1|41 -2.5|75 0",
     kMirrors, mlinePoints},
    {"Shape", "SHAPE", "100 AcDbShape|39 2|10 1|20 2|30 3|40 2.5|2 PIN|50 30|41 0.5|51 15|210 0.6|220 0|230 0.8",
     kMirrors, shapePoints},
    {"FlatShape", "SHAPE", "100 AcDbShape|10 1|20 2|30 3|40 2.5|2 PIN", kAll, shapePoints},
    {"Helix", "HELIX",
     "100 AcDbSpline|70 0|71 2|42 1e-07|43 1e-07|44 1e-10|72 6|73 3|74 0|40 0|40 0|40 0|40 1|40 1|40 1|10 3|20 0|30 0|"
     "10 3|20 2|30 0.5|10 0|20 3|30 1|100 AcDbHelix|90 29|91 63|10 0|20 0|30 0|11 2|21 0|31 0|12 0|22 0|32 1|40 2|41 3|"
     "42 1.5|290 1|280 1",
     kMirrors, helixPoints},
    {"Mesh", "MESH",
     "100 AcDbSubDMesh|71 2|72 0|91 1|92 4|10 0|20 0|30 0|10 4|20 0|30 0|10 4|20 3|30 1|10 0|20 3|30 0|93 5|90 4|90 0|"
     "90 1|90 2|90 3|94 1|90 0|90 1|95 1|140 2|90 0",
     kAll, meshPoints},
    {"Light", "LIGHT",
     "100 AcDbLight|90 1|1 Spot|70 3|290 1|63 5|291 0|40 5.4|10 1|20 2|30 3|11 4|21 5|31 6|72 0|292 0|41 1|42 10|50 45|"
     "51 50|293 1|73 0|91 256|280 1",
     kMirrors, lightPoints},
    {"Table", "ACAD_TABLE",
     "100 AcDbBlockReference|2 Picture|10 1|20 2|30 3|100 AcDbTable|280 0|342 0|343 0|11 0.6|21 0.8|31 0|90 22|91 2|"
     "92 2|93 0|141 11|141 9|142 40|142 60.5|171 1|172 0|145 0|92 0|301 CELL_VALUE|93 0|90 32|11 7|21 8|31 9|"
     "304 ACVALUE_END|171 2|340 0|144 1",
     kMoves, tablePoints},
    {"FlatReference", "INSERT", "100 AcDbBlockReference|2 Picture|10 1|20 2|30 3|41 2|42 2|43 0|50 30", kMirrors,
     referencePoints},
    {"ArcDimension", "ARC_DIMENSION",
     "100 AcDbDimension|280 0|10 6|20 2|30 0|11 6|21 3|31 0|70 37|71 5|42 26|3 Standard|100 AcDbArcDimension|13 5|23 2|"
     "33 0|14 6|24 3|34 0|15 5|25 3|35 0|70 1|40 0.5|41 1.25|71 0|16 5|26 2|36 0|17 6|27 3|37 0",
     kMirrors, arcDimensionPoints},
    {"JoggedDimension", "LARGE_RADIAL_DIMENSION",
     "100 AcDbDimension|280 0|10 6|20 2|30 0|11 6|21 3|31 0|70 41|71 5|42 26|3 Standard|100 AcDbRadialDimensionLarge|"
     "13 5|23 2|33 0|14 6|24 3|34 0|15 5|25 3|35 0|40 0.75",
     kMirrors, jogPoints},
    {"MPolygon", "MPOLYGON",
     "100 AcDbMPolygon|70 1|10 0|20 0|30 2|210 0|220 0|230 1|2 SOLID|71 1|91 1|92 0|72 1|73 0|93 2|10 0|20 0|42 1|10 4|"
     "20 0|42 1|76 1|63 1|11 0|21 0|99 0",
     kMirrors, mpolygonPoints},
    {"Solid3d", "3DSOLID", "100 AcDbModelerGeometry|70 1|1 koo mi|3 n o|1 ni|100 AcDb3dSolid|350 0", kNothing,
     noPoints},
    {"LoftedSurface", "LOFTEDSURFACE",
     "100 AcDbModelerGeometry|70 1|1 koo|100 AcDbSurface|71 6|72 6|100 AcDbLoftedSurface|40 1|40 0|70 2", kNothing,
     noPoints},
    {"Ole2Frame", "OLE2FRAME", "100 AcDbOle2Frame|70 2|3 Sheet|10 1|20 5|30 0|11 4|21 2|31 0|71 2|72 1|73 3|90 2|1 OLE",
     kNothing, noPoints},
    {"OleFrame", "OLEFRAME", "100 AcDbOleFrame|70 1|90 0|1 OLE", kNothing, noPoints},
    {"Proxy", "ACAD_PROXY_ENTITY", "100 AcDbProxyEntity|90 498|91 521|95 69|70 0|160 0|162 0|161 0|330 0|340 0|94 0",
     kNothing, noPoints},
};

} // namespace tests
