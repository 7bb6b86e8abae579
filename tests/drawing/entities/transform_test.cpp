// A matrix moves an entity to where it moves the entity's points, or the entity says no and stays as it was.
#include "DbCurves.h"
#include "DbDimension.h"
#include "DbFaces.h"
#include "DbHatch.h"
#include "DbLeader.h"
#include "DbMText.h"
#include "DbPolyline.h"
#include "DbRasterImage.h"
#include "DbSpline.h"
#include "DbUnderlayReference.h"
#include "Ge/GeUtil.h"
#include "drawing/file.h"
#include "drawing/picture.h"
#include "tests/drawing/entities/composed_kinds.h"
#include "tests/drawing/entities/group_text.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

#include <algorithm>
#include <cmath>
#include <set>

using namespace tests;

namespace {

Points linePoints(const OdDbEntity& e) {
  const auto& line = as<OdDbLine>(e);
  return {line.startPoint(), line.endPoint(), line.startPoint() + line.normal() * line.thickness()};
}

Points pointPoints(const OdDbEntity& e) {
  const auto& point = as<OdDbPoint>(e);
  return tips(point.position(), point.normal() * point.thickness());
}

bool rayHas(const OdDbEntity& e, const OdGePoint3d& p) {
  const auto& ray = as<OdDbRay>(e);
  const OdGeVector3d v = p - ray.basePoint();
  return near(v.crossProduct(ray.unitDir()).length(), 0) && v.dotProduct(ray.unitDir()) > -1e-9;
}
Points pointsOfRay(const OdDbEntity& e) {
  const auto& ray = as<OdDbRay>(e);
  return tips(ray.basePoint(), ray.unitDir());
}

Points splinePoints(const OdDbEntity& e) {
  const auto& spline = as<OdDbSpline>(e);
  Points points = spline.controlPoints();
  points.insert(points.end(), spline.fitPoints().begin(), spline.fitPoints().end());
  points.push_back(points[0] + spline.startTangent());
  return points;
}

// Vertices, the middle of each arc, the top and the width at the first vertex.
Points polylinePoints(const OdDbEntity& e) {
  const auto& line = as<OdDbPolyline>(e);
  const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(line.normal());
  Points points;
  for (unsigned i = 0; i < line.numVerts(); ++i) {
    const OdGePoint3d a = line.getPointAt(i), b = line.getPointAt((i + 1) % line.numVerts());
    const OdGeVector3d chord = b - a;
    points.push_back(a);
    points.push_back(a + chord * 0.5 + chord.crossProduct(plane.column(2)) * (line.getBulgeAt(i) / 2));
  }
  points.push_back(points[0] + plane.column(2) * line.thickness());
  return points;
}

Points mtextPoints(const OdDbEntity& e) {
  const auto& text = as<OdDbMText>(e);
  const OdGeVector3d x = text.direction(), y = text.normal().crossProduct(x);
  return {text.location(), text.location() + x * text.width(), text.location() + y * text.textHeight()};
}

Points areaPoints(const OdDbEntity& e) {
  const auto& area = as<OdDbFilledArea>(e);
  const OdGeVector3d top = OdGeMatrix3d::planeToWorld(area.normal()).column(2) * area.thickness();
  return {area.getPointAt(0), area.getPointAt(1), area.getPointAt(2), area.getPointAt(3), area.getPointAt(3) + top};
}

Points facePoints(const OdDbEntity& e) {
  const auto& face = as<OdDbFace>(e);
  return {face.getVertexAt(0), face.getVertexAt(1), face.getVertexAt(2), face.getVertexAt(3)};
}

// The dimension line's direction too; the text must lie as before beside the points.
Points rotatedPoints(const OdDbEntity& e) {
  const auto& dim = as<OdDbRotatedDimension>(e);
  const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(dim.normal());
  const auto along = [&](double angle) { return plane * OdGeVector3d(std::cos(angle), std::sin(angle), 0); };
  const OdGeVector3d line = along(dim.rotation()) * dim.getMeasurement();
  const OdGeVector3d slanted = along(dim.rotation() + dim.oblique()) * dim.getMeasurement();
  const OdGeVector3d text = along(dim.rotation() + dim.textRotation()) * dim.getMeasurement();
  return {dim.xLine1Point(),        dim.xLine2Point(),           dim.dimLinePoint(),      dim.textPosition(),
          dim.xLine1Point() + line, dim.xLine1Point() + slanted, dim.xLine1Point() + text};
}

Points angularPoints(const OdDbEntity& e) {
  const auto& dim = as<OdDbAngularDimension>(e);
  return {dim.definitionPoint(), dim.xLine1Point(), dim.xLine2Point(),
          dim.centerPoint(),     dim.arcPoint(),    dim.textPosition()};
}

Points radialPoints(const OdDbEntity& e) {
  const auto& dim = as<OdDbRoundDimension>(e);
  const OdGeVector3d out = (dim.chordPoint() - dim.definitionPoint()).normal();
  return {dim.definitionPoint(), dim.chordPoint(), dim.chordPoint() + out * dim.leaderLength(),
          dim.definitionPoint() + out * dim.getMeasurement()};
}

Points ordinatePoints(const OdDbEntity& e) {
  const auto& dim = as<OdDbOrdinateDimension>(e);
  return {dim.origin(), dim.definingPoint(), dim.leaderEndPoint()};
}

// Of the hatch below: a line, an arc that may run clockwise, a bulge, the pattern's line and a seed.
Points hatchPoints(const OdDbEntity& e) {
  const auto& hatch = as<OdDbHatch>(e);
  const drawing::GroupList& groups = hatch.groups();
  const auto nth = [&](int code, int n) {
    std::size_t i = groups.find(code);
    for (; n > 0; --n)
      i = groups.find(code, i + 1);
    return i;
  };
  const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(hatch.normal());
  const auto real = [&](int code, int n) { return groups[nth(code, n)].real; };
  const auto pair = [&](int code, int codeOfY, int n) {
    return OdGePoint3d(real(code, n), real(codeOfY, n), hatch.elevation());
  };
  const auto turned = [](double angle) { return OdGeVector3d(std::cos(angle), std::sin(angle), 0); };
  Points flat{pair(10, 20, 1), pair(11, 21, 0)};
  const double sign = groups[nth(73, 0)].integer == 1 ? 1 : -1;
  for (const double degrees : {real(50, 0), real(51, 0), (real(50, 0) + real(51, 0)) / 2})
    flat.push_back(pair(10, 20, 2) + turned(sign * toRadians(degrees)) * real(40, 0));
  const OdGePoint3d a = pair(10, 20, 3), b = pair(10, 20, 4);
  flat.insert(flat.end(), {a, b, a + (b - a) * 0.5 + (b - a).crossProduct(OdGeVector3d::kZAxis) * (real(42, 0) / 2)});
  const OdGePoint3d base = pair(43, 44, 0);
  flat.insert(flat.end(), {base, base + turned(toRadians(real(53, 0))) * real(49, 0),
                           base + (pair(45, 46, 0) - OdGePoint3d(0, 0, hatch.elevation())), pair(10, 20, 5)});
  for (OdGePoint3d& point : flat)
    point = plane * point;
  return flat;
}

Points leaderPoints(const OdDbEntity& e) {
  const auto& leader = as<OdDbLeader>(e);
  return {leader.vertexAt(0), leader.vertexAt(1)};
}

Points picturePoints(const OdDbEntity& e) {
  OdGePoint3d origin;
  OdGeVector3d u, v;
  as<OdDbImageBase>(e).getOrientation(origin, u, v);
  return {origin, origin + u * 200, origin + v * 100};
}

Points pagePoints(const OdDbEntity& e) {
  const OdGeMatrix3d page = as<OdDbUnderlayReference>(e).transform();
  return {page * OdGePoint3d(), page * OdGePoint3d(4, 0, 0), page * OdGePoint3d(0, 3, 0)};
}

const Kind kKinds[] = {
    {"Line", "LINE", "100 AcDbLine|39 2|10 1|20 2|30 3|11 4|21 5|31 7", kAll, linePoints},
    {"Point", "POINT", "100 AcDbPoint|10 1|20 2|30 3|39 1.5|210 0|220 1|230 0|50 30", kAll, pointPoints},
    {"Circle", "CIRCLE", "100 AcDbCircle|10 1|20 2|30 3|40 2.5|210 0|220 1|230 0", kMirrors, circlePoints, circleHas},
    {"Arc", "ARC", "100 AcDbCircle|39 1|10 1|20 2|30 3|40 2.5|100 AcDbArc|50 300|51 80", kMirrors, arcPoints, arcHas},
    {"ArcTurnedOver", "ARC", "100 AcDbCircle|10 1|20 2|30 3|40 2.5|210 0|220 0|230 -1|100 AcDbArc|50 10|51 200",
     kMirrors, arcPoints, arcHas},
    {"Ellipse", "ELLIPSE", "100 AcDbEllipse|10 1|20 2|30 3|11 4|21 0|31 0|40 0.5|41 0.25|42 4.5", kAll, ellipsePoints,
     ellipseHas},
    {"WholeEllipse", "ELLIPSE",
     "100 AcDbEllipse|10 1|20 2|30 3|11 0|21 3|31 0|210 1|220 0|230 0|40 1|41 0|42 6.283185307179586", kAll,
     ellipsePoints, ellipseHas},
    {"EllipseALittleMoreThanWhole", "ELLIPSE",
     "100 AcDbEllipse|10 1|20 2|30 3|11 -4|21 0|31 0|40 0.5|41 3.141592653600453|42 9.424777960780041", kAll,
     ellipsePoints, ellipseHas},
    {"Ray", "RAY", "100 AcDbRay|10 1|20 2|30 3|11 0.6|21 0.8|31 0", kAll, pointsOfRay, rayHas},
    {"Spline", "SPLINE",
     "100 AcDbSpline|70 8|71 2|42 1e-07|43 1e-07|44 1e-10|12 1|22 2|32 0|72 6|73 3|74 1|40 0|40 0|40 0|40 1|40 1|40 1|"
     "41 1|41 0.5|41 1|10 1|20 2|30 3|10 4|20 5|30 6|10 7|20 0|30 1|11 1|21 2|31 3",
     kAll, splinePoints},
    {"StraightPolyline", "LWPOLYLINE", "100 AcDbPolyline|70 1|38 2|90 3|10 1|20 2|91 5|10 4|20 2|10 4|20 7", kAll,
     polylinePoints},
    {"BentPolyline", "LWPOLYLINE",
     "100 AcDbPolyline|70 0|43 0.5|38 2|39 3|210 0|220 0|230 -1|90 3|10 1|20 2|42 0.5|10 4|20 2|40 1|41 2|42 -2|10 4|"
     "20 7",
     kMirrors, polylinePoints},
    {"MText", "MTEXT",
     "100 AcDbMText|10 1|20 2|30 3|40 2.5|41 40|71 5|72 1|7 Standard|11 0.6|21 0.8|31 0|42 12|43 3|73 1|44 1|"
     "1 one\\Ptwo|90 1|63 3|45 1.5|441 0|75 1|76 2|48 18|49 1|50 9",
     kMirrors, mtextPoints},
    {"Solid", "SOLID",
     "100 AcDbTrace|10 1|20 2|30 3|11 4|21 2|31 3|12 1|22 6|32 3|13 4|23 6|33 3|39 2|210 0.6|220 0|230 -0.8", kMirrors,
     areaPoints},
    {"Trace", "TRACE", "100 AcDbTrace|10 1|20 2|30 3|11 4|21 2|31 3|12 1|22 6|32 3", kAll, areaPoints},
    {"Face", "3DFACE", "100 AcDbFace|10 1|20 2|30 3|11 4|21 2|31 5|12 1|22 6|32 3|13 4|23 6|33 8|70 5", kAll,
     facePoints},
    {"RotatedDimension", "DIMENSION",
     "100 AcDbDimension|280 0|10 5|20 9|30 0|11 3|21 9|31 0|70 32|71 5|42 4|53 15|51 40|3 Standard|"
     "100 AcDbAlignedDimension|13 1|23 2|33 0|14 5|24 3|34 0|52 20|50 30|100 AcDbRotatedDimension",
     kMirrors, rotatedPoints},
    {"AngularDimension", "DIMENSION",
     "100 AcDbDimension|280 0|10 5|20 9|30 0|11 3|21 9|31 0|70 34|1 about <>|71 5|42 0.5|210 0|220 0|230 -1|"
     "100 AcDb2LineAngularDimension|13 1|23 2|33 0|14 5|24 3|34 0|15 1|25 8|35 0|16 7|26 7|36 2",
     kMirrors, angularPoints},
    {"RadialDimension", "DIMENSION",
     "100 AcDbDimension|280 0|10 1|20 2|30 3|70 4|71 5|42 5|100 AcDbRadialDimension|15 4|25 6|35 3|40 2", kMirrors,
     radialPoints},
    {"OrdinateDimension", "DIMENSION",
     "100 AcDbDimension|280 0|10 1|20 2|30 3|70 70|71 5|100 AcDbOrdinateDimension|13 4|23 6|33 3|14 9|24 9|34 3",
     kMirrors, ordinatePoints},
    {"Leader", "LEADER",
     "100 AcDbLeader|3 Standard|71 1|72 0|73 3|74 1|75 0|40 2|41 5|76 2|10 1|20 2|30 3|10 4|20 5|30 3|212 1|222 2|232 "
     "0",
     kMirrors, leaderPoints},
    {"Hatch", "HATCH",
     "100 AcDbHatch|10 0|20 0|30 2|210 0|220 0|230 1|2 ANSI31|70 0|71 0|91 2|92 1|93 2|72 1|10 1|20 2|11 4|21 2|72 2|"
     "10 4|20 4|40 2|50 90|51 200|73 0|97 0|92 3|72 1|73 1|93 2|10 0|20 0|42 0.5|10 3|20 0|97 0|75 1|76 1|52 0|41 1|"
     "77 0|78 1|53 45|43 1|44 2|45 -2|46 2|79 1|49 3|98 1|10 2|20 3",
     kAll, hatchPoints, nullptr, true},
    {"Image", "IMAGE",
     "100 AcDbRasterImage|90 0|10 1|20 2|30 3|11 0.1|21 0|31 0|12 0|22 0.1|32 0|13 200|23 100|340 0|70 7|280 1|71 2|"
     "91 2|14 0|24 0|14 9|24 9",
     kAll, picturePoints},
    {"Underlay", "PDFUNDERLAY",
     "100 AcDbUnderlayReference|340 0|10 1|20 2|30 3|41 2|42 2|43 2|50 30|280 2|11 0|21 0|11 5|21 5", kMirrors,
     pagePoints},
};

struct Motion {
  const char* name;
  OdGeMatrix3d matrix;
  Reach needs;
};

std::vector<Motion> motions() {
  OdGeMatrix3d shear = OdGeMatrix3d::kIdentity;
  shear(0, 1) = 0.5;
  shear(1, 2) = -0.75;
  const OdGePoint3d center(3, -2, 1);
  return {{"none", OdGeMatrix3d::kIdentity, kNothing},
          {"translation", OdGeMatrix3d::translation({5, -7, 0.25}), kMoves},
          {"turn", OdGeMatrix3d::rotation(0.7, OdGeVector3d(1, 2, 2), center), kMoves},
          {"half turn", OdGeMatrix3d::rotation(kPi, OdGeVector3d::kXAxis, center), kMoves},
          {"scaling", OdGeMatrix3d::scaling(2.5, center), kScales},
          {"mirror", OdGeMatrix3d::mirroring(center, OdGeVector3d::kXAxis), kMirrors},
          {"tilted mirror", OdGeMatrix3d::mirroring(center, OdGeVector3d(1, -2, 2).normal()), kMirrors},
          {"point mirror", OdGeMatrix3d::scaling(-1.5, center), kMirrors},
          {"unequal scaling", OdGeMatrix3d::scaling(OdGeScale3d(2, -3, 0.5), center), kAll},
          {"shear", shear, kAll},
          {"flattening", OdGeMatrix3d::scaling(OdGeScale3d(1, 1, 0)), kNever},
          {"no number", OdGeMatrix3d::scaling(std::nan("")), kNever}};
}

class EntityKinds : public testing::TestWithParam<Kind> {
protected:
  void SetUp() override { addBlock(*loader.database, L"Picture"); }
  Loader loader;
  OdDbEntityPtr load() { return loader.load(GetParam().dxfName, GetParam().groups); }
};

void expectMoved(const Kind& kind, const Points& before, const OdDbEntity& moved, const OdGeMatrix3d& matrix) {
  const Points after = kind.points(moved);
  ASSERT_EQ(after.size(), before.size());
  for (std::size_t i = 0; i < before.size(); ++i) {
    const OdGePoint3d wanted = matrix * before[i];
    const bool meets = kind.has != nullptr ? kind.has(moved, wanted) : wanted.distanceTo(after[i]) < 1e-9;
    EXPECT_TRUE(meets) << "point " << i;
  }
}

TEST_P(EntityKinds, MoveAsTheirPointsDoOrStay) {
  for (const Motion& motion : motions()) {
    SCOPED_TRACE(motion.name);
    const OdDbEntityPtr entity = load();
    const Points before = GetParam().points(*entity);
    const std::string dump = written(*entity);
    const OdResult result = entity->transformBy(motion.matrix);
    EXPECT_EQ(result, motion.needs <= GetParam().reach ? eOk : eCannotTransform);
    if (result == eOk && (motion.needs < kAll || !GetParam().reshapes)) {
      expectMoved(GetParam(), before, *entity, motion.matrix);
    } else if (result != eOk) {
      EXPECT_EQ(written(*entity), dump);
    }
  }
}

TEST_P(EntityKinds, RoundTripBitIdentically) {
  const OdDbEntityPtr entity = load();
  const std::string dump = written(*entity);
  for (const OdGeVector3d& by : {OdGeVector3d(100, -250, 7), OdGeVector3d(-100, 250, -7)})
    ASSERT_EQ(entity->transformBy(OdGeMatrix3d::translation(by)),
              GetParam().reach == kNothing ? eCannotTransform : eOk);
  EXPECT_EQ(written(*entity), dump);
}

std::vector<std::string> sortedGroups(std::string_view text) {
  std::vector<std::string> groups;
  for (const drawing::RawGroup& group : rawGroupsOf(text))
    groups.push_back(std::to_string(group.code) + " " + std::string(group.text));
  std::sort(groups.begin(), groups.end());
  return groups;
}

TEST_P(EntityKinds, WriteWhatTheyRead) {
  const OdDbEntityPtr entity = load();
  const std::string once = written(*entity);
  EXPECT_EQ(written(*loader.load(GetParam().dxfName, once)), once);
  // Nothing of the input is lost; the sections of all entities come with it.
  std::vector<std::string> all = sortedGroups(once), given = sortedGroups(GetParam().groups);
  EXPECT_TRUE(std::includes(all.begin(), all.end(), given.begin(), given.end())) << once;
}

// Kinds whose points above lie beside their outline.
const std::set<std::string> kBeside{"MTEXT", "HATCH", "MULTILEADER", "MLINE", "SHAPE", "HELIX"};

TEST_P(EntityKinds, ExtentsContainThePoints) {
  const OdDbEntityPtr entity = load();
  OdGeExtents3d extents;
  const std::string name = GetParam().dxfName;
  if (entity->getGeomExtents(extents) != eOk || kBeside.count(name) > 0)
    return;
  for (const OdGePoint3d& point : GetParam().points(*entity))
    EXPECT_TRUE(extents.contains(point, OdGeTol(1e-9))) << point.x << " " << point.y << " " << point.z;
}

// A whole life: into a drawing, moved, taken back, written and read, cloned into a block and into another drawing.
TEST_P(EntityKinds, AreStoredInADrawing) {
  const OdDbEntityPtr entity = loader.add(GetParam().dxfName, GetParam().groups);
  const OdDbObjectId id = entity->objectId();
  if (GetParam().reach != kNothing)
    expectUndoRestores(*loader.database, [&] {
      EXPECT_EQ(entity->transformBy(OdGeMatrix3d::rotation(0.7, OdGeVector3d(1, 2, 2), OdGePoint3d(1, 1, 1))), eOk);
    });
  expectRoundTrip(*loader.database);
  const std::string text = written(*entity);
  const OdDbDatabasePtr other = skewedDrawing();
  for (const OdDbObjectId owner : {addBlock(*loader.database, L"copy"), other->getModelSpaceId()}) {
    OdDbIdPair pair(id, {}, false, false);
    ASSERT_TRUE(cloned({id}, owner).compute(pair));
    EXPECT_EQ(written(*forRead<OdDbEntity>(pair.value())), text);
  }
  expectSound(*other);
}

// A picture shows the entity, or its report names the kind and why not. A light is not visible.
TEST_P(EntityKinds, AreRenderedOrReported) {
  loader.add(GetParam().dxfName, GetParam().groups);
  if (const OdDbObjectId block = loader.database->symbol(OdDb::kBlockTable, L"Picture"); !block.isNull())
    addText(*loader.database, L"x", block);
  const drawing::Picture picture(loader.database->getModelSpaceId());
  for (const drawing::NotDrawn& one : picture.report().notDrawn)
    EXPECT_TRUE(!one.kind.empty() && !one.reason.empty());
  const bool isDrawnOrReported = !picture.report().isEmpty || !picture.report().notDrawn.empty();
  EXPECT_EQ(isDrawnOrReported, std::string(GetParam().dxfName) != "LIGHT");
}

// R12 gets the entity or something in its place, or the report names it and why not.
TEST_P(EntityKinds, AreInR12OrReported) {
  const OdDbObjectId id = loader.add(GetParam().dxfName, GetParam().groups)->objectId();
  drawing::WriteOptions options;
  options.version = OdDb::kRelease12;
  drawing::WriteResult written;
  const std::string bytes = drawing::writeDrawingToMemory(*loader.database, options, &written);
  const drawing::ReadResult read = drawing::readDrawingFromMemory(bytes);
  ASSERT_FALSE(read.database.isNull()) << read.message;
  const bool isThere = !forRead<OdDbBlockTableRecord>(read.database->getModelSpaceId())->newIterator()->done();
  const auto& issues = written.report.issues();
  const bool isReported = std::any_of(issues.begin(), issues.end(), [id](const drawing::Issue& issue) {
    return issue.handle == static_cast<std::uint64_t>(id.getHandle()) && !issue.done.empty();
  });
  EXPECT_TRUE(isThere || isReported);
}

std::string nameOf(const testing::TestParamInfo<Kind>& kind) {
  return kind.param.name;
}
INSTANTIATE_TEST_SUITE_P(Plain, EntityKinds, testing::ValuesIn(kKinds), nameOf);
INSTANTIATE_TEST_SUITE_P(Composed, EntityKinds, testing::ValuesIn(kComposedKinds), nameOf);

} // namespace
