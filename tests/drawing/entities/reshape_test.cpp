// What a matrix makes of round things when it does not leave them round: the same curve, point by point, in another
// form, and nothing that is attached to the entity is lost by it.
#include "DbDictionary.h"
#include "Ge/GeUtil.h"
#include "tests/drawing/entities/composed_kinds.h"
#include "tests/drawing/entities/group_text.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

#include <cmath>

using namespace tests;

namespace {

OdGeMatrix3d shear() {
  OdGeMatrix3d matrix = OdGeMatrix3d::kIdentity;
  matrix(0, 1) = 0.5;
  matrix(1, 2) = -0.75;
  matrix(2, 0) = 0.2;
  return matrix;
}

const OdGeMatrix3d kStretches[] = {OdGeMatrix3d::scaling(OdGeScale3d(2, 1, 1), OdGePoint3d(3, -2, 1)),
                                   OdGeMatrix3d::scaling(OdGeScale3d(-3, 0.5, 2), OdGePoint3d(1, 1, 1)), shear(),
                                   OdGeMatrix3d::rotation(0.4, OdGeVector3d(1, 2, 2)) * shear()};

const Kind kRounds[] = {
    {"Circle", "CIRCLE", "100 AcDbCircle|10 1|20 2|30 3|40 2.5", kAll, circlePoints},
    {"TiltedCircle", "CIRCLE", "100 AcDbCircle|10 1|20 2|30 3|40 2.5|210 0.6|220 0|230 0.8", kAll, circlePoints},
    {"Arc", "ARC", "100 AcDbCircle|10 1|20 2|30 3|40 2.5|100 AcDbArc|50 300|51 80", kAll, arcPoints},
    {"ArcTurnedOver", "ARC", "100 AcDbCircle|10 1|20 2|30 3|40 2|210 0|220 0|230 -1|100 AcDbArc|50 10|51 200", kAll,
     arcPoints}};

class RoundCurves : public testing::TestWithParam<Kind> {
protected:
  void SetUp() override {
    before = addText(*loader.database, L"before");
    OdDbEntityPtr round = loader.add(GetParam().dxfName, GetParam().groups);
    round->setColorIndex(3);
    id = round->objectId();
    behind = addText(*loader.database, L"behind");
    round->createExtensionDictionary();
    round->addPersistentReactor(before);
    OdResBufPtr data = OdResBuf::make(1001, L"ACAD");
    data->setNext(OdResBuf::make(1011, OdGePoint3d(1, 2, 3)));
    round->setXData(data);
    round->extrasForLoad().unmodelledGroups.utf8(100, "AcDbEntity");
    round->extrasForLoad().unmodelledGroups.integer(160, 3);
    round->extrasForLoad().unmodelledGroups.binary(310, "old");
    round->extrasForLoad().unmodelledGroups.integer(284, 1);
  }

  Loader loader;
  OdDbObjectId id, before, behind;
};

TEST_P(RoundCurves, BecomeEllipsesInTheirPlace) {
  for (const OdGeMatrix3d& matrix : kStretches) {
    OdDbEntityPtr held = forWrite<OdDbEntity>(id);
    const Points points = GetParam().points(*held);
    const OdDbHandle handle = id.getHandle();
    const OdDbObjectId extension = held->extensionDictionary();
    held->highlight(true);
    expectUndoRestores(*loader.database, [&] { EXPECT_EQ(held->transformBy(matrix), eOk); });
    {
      OdSmartPtr<OdDbEllipse> ellipse = forRead<OdDbEllipse>(id);
      for (const OdGePoint3d& point : points)
        EXPECT_TRUE(ellipseHas(*ellipse, matrix * point)) << point.x << ' ' << point.y;
      EXPECT_EQ(ellipse->getDbHandle(), handle);
      EXPECT_EQ(ellipse->ownerId(), loader.database->getModelSpaceId());
      EXPECT_EQ(ellipse->colorIndex(), 3);
      EXPECT_TRUE(ellipse->isHighlighted());
      EXPECT_EQ(ellipse->extensionDictionary(), extension);
      EXPECT_TRUE(ellipse->hasPersistentReactor(before));
      EXPECT_NEAR(ellipse->xData()->next()->getPoint3d().distanceTo(matrix * OdGePoint3d(1, 2, 3)), 0, 1e-12);
      const std::string text = written(*ellipse);
      EXPECT_EQ(text.find("|310 "), text.npos); // the old picture
      EXPECT_NE(text.find("|284 1"), text.npos);
      EXPECT_FALSE(held->isResident()); // what was held is the curve as it was, free
      EXPECT_EQ(GetParam().points(*held)[0].distanceTo(points[0]), 0);
    }
    EXPECT_EQ(entitiesOf(loader.database->getModelSpaceId()), (OdDbObjectIdArray{before, id, behind}));
    expectRoundTrip(*loader.database);
    expectSound(*loader.database);
    ASSERT_EQ(loader.database->undo(), eOk);
    EXPECT_STREQ(forRead<OdDbEntity>(id)->dxfName().c_str(), GetParam().dxfName);
  }
}

TEST_P(RoundCurves, StayWhereNoKindCanReplaceThem) {
  OdDbEntityPtr round = forWrite<OdDbEntity>(id);
  static_cast<OdDbRoundCurve&>(*round).setThickness(1);
  const std::string dump = written(*round);
  EXPECT_EQ(round->transformBy(kStretches[0]), eCannotTransform);
  EXPECT_EQ(written(*round), dump);
}

INSTANTIATE_TEST_SUITE_P(All, RoundCurves, testing::ValuesIn(kRounds),
                         [](const auto& round) { return std::string(round.param.name); });

// -- hatches

// Along each edge of a boundary of edges, in the order in which it is drawn.
std::vector<OdGePoint3d> boundary(const OdDbHatch& hatch, int steps) {
  const drawing::GroupList& groups = hatch.groups();
  const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(hatch.normal());
  std::vector<OdGePoint3d> points;
  for (std::size_t edge = groups.find(72); edge < groups.size(); edge = groups.find(72, edge + 1)) {
    const auto real = [&](int code) { return groups[groups.find(code, edge)].real; };
    const auto at = [&](double x, double y) { points.push_back(plane * OdGePoint3d(x, y, hatch.elevation())); };
    const bool circle = groups[edge].integer == 2;
    if (groups[edge].integer == 1) {
      at(real(10), real(20));
      at(real(11), real(21));
      continue;
    }
    const OdGeVector3d a = circle ? OdGeVector3d(real(40), 0, 0) : OdGeVector3d(real(11), real(21), 0);
    const OdGeVector3d b = OdGeVector3d(-a.y, a.x, 0) * (circle ? 1 : real(40));
    const double sign = groups[groups.find(73, edge)].integer != 0 ? 1 : -1;
    const double from = toRadians(real(50)), to = toRadians(real(51));
    for (int i = 0; i <= steps; ++i) {
      const double t = sign * (from + (to - from) * i / steps);
      const OdGeVector3d v = a * std::cos(t) + b * std::sin(t);
      at(real(10) + v.x, real(20) + v.y);
    }
  }
  return points;
}

double distanceTo(const std::vector<OdGePoint3d>& points, const OdGePoint3d& point) {
  double least = HUGE_VAL;
  for (const OdGePoint3d& one : points)
    least = std::min(least, one.distanceTo(point));
  return least;
}

constexpr const char* kHatch =
    "100 AcDbHatch|10 0|20 0|30 2|210 0|220 0|230 1|2 ANSI31|70 0|71 0|91 1|92 1|93 3|72 1|10 1|20 2|11 4|21 2|72 2|"
    "10 4|20 4|40 2|50 90|51 200|73 0|72 3|10 1|20 1|11 3|21 1|40 0.5|50 10|51 300|73 1|97 1|330 0|75 1|76 1|52 0|41 1|"
    "77 0|78 1|53 45|43 1|44 2|45 -2|46 2|79 2|49 3|49 -1|98 1|10 2|20 3";

// Of the edges' ends the order counts; between them the curve counts.
void expectCurveKept(const OdGeMatrix3d& matrix) {
  Loader loader;
  OdSmartPtr<OdDbHatch> hatch = loader.load("HATCH", kHatch);
  const std::vector<OdGePoint3d> ends = boundary(*hatch, 1), curve = boundary(*hatch, 40);
  ASSERT_EQ(hatch->transformBy(matrix), eOk);
  const std::vector<OdGePoint3d> newEnds = boundary(*hatch, 1), newCurve = boundary(*hatch, 4000);
  ASSERT_EQ(newEnds.size(), ends.size());
  for (std::size_t i = 0; i < ends.size(); ++i)
    EXPECT_LT(newEnds[i].distanceTo(matrix * ends[i]), 1e-9) << i;
  for (const OdGePoint3d& point : curve)
    EXPECT_LT(distanceTo(newCurve, matrix * point), 1e-3);
}

TEST(HatchBoundary, KeepsItsCurveUnderEveryMatrix) {
  for (std::size_t i = 0; i < std::size(kStretches); ++i) {
    SCOPED_TRACE(i);
    expectCurveKept(kStretches[i]);
  }
}

TEST(HatchBoundary, OfBentPolylineBecomesEdges) {
  Loader loader;
  OdSmartPtr<OdDbHatch> hatch =
      loader.load("HATCH", "100 AcDbHatch|10 0|20 0|30 0|210 0|220 0|230 1|2 SOLID|70 1|71 0|91 1|92 7|72 1|73 1|93 3|"
                           "10 0|20 0|42 1|10 4|20 0|42 0|10 2|20 -3|42 0|97 0|75 0|76 1|98 0");
  ASSERT_EQ(hatch->transformBy(OdGeMatrix3d::scaling(OdGeScale3d(2, 1, 1))), eOk);
  const std::string text = written(*hatch);
  EXPECT_NE(text.find("|92 5|93 3|72 3|10 4|20 0|11 4|21 0|40 0.5|50 180|51 360|73 1|"), text.npos) << text;
  EXPECT_NE(text.find("73 1|72 1|10 8|20 0|11 4|21 -3|72 1|10 4|20 -3|11 0|21 0|97 0|75 0"), text.npos) << text;
  OdGeExtents3d extents;
  ASSERT_EQ(hatch->getGeomExtents(extents), eOk);
  EXPECT_TRUE(extents.contains(OdGePoint3d(4, -2, 0)) && !extents.contains(OdGePoint3d(4, 1, 0)));
}

TEST(HatchPattern, LinesAndDashesFollowUnequalScales) {
  Loader loader;
  OdSmartPtr<OdDbHatch> hatch = loader.load("HATCH", kHatch);
  ASSERT_EQ(hatch->transformBy(OdGeMatrix3d::scaling(OdGeScale3d(3, 1, 1))), eOk);
  const drawing::GroupList& groups = hatch->groups();
  EXPECT_NEAR(groups[groups.find(53)].real, toDegrees(std::atan2(1, 3)), 1e-12);
  EXPECT_NEAR(groups[groups.find(43)].real, 3, 1e-12);
  EXPECT_NEAR(groups[groups.find(45)].real, -6, 1e-12);
  EXPECT_NEAR(groups[groups.find(49)].real, 3 * std::sqrt(5.0), 1e-12);
  EXPECT_EQ(loader.load("HATCH", "100 AcDbHatch|30 0|2 SOLID|70 1|91 0|75 0|76 1|98 0|450 1|460 0.5|463 0|470 LINEAR")
                ->transformBy(OdGeMatrix3d::scaling(OdGeScale3d(3, 1, 1))),
            eCannotTransform);
}

} // namespace
