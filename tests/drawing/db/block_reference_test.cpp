// Where a reference puts its block: checked against the transformation worked out by hand.
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

#include <cmath>

using namespace tests;

namespace {

struct Placing {
  const char* what;
  OdGePoint3d position;
  OdGeVector3d normal;
  double rotation;
  OdGeScale3d scale;
};
const Placing kPlacings[] = {
    {"plain", {1, 2, 3}, {0, 0, 1}, 0, {1, 1, 1}},
    {"turned", {1, 2, 3}, {0, 0, 1}, 0.7, {1, 1, 1}},
    {"unequal", {-5, 0, 0}, {0, 0, 1}, 2.5, {2, 3, 4}},
    {"mirrored", {-5, 0, 0}, {0, 0, 1}, -1.2, {-2, 3, 4}},
    {"twice mirrored", {0, 0, 9}, {0, 0, 1}, 1, {-2, -2, 1}},
    {"from below", {1, 2, 3}, {0, 0, -1}, 0.3, {1, 1, 1}},
    {"standing", {1e6, -1e6, 10}, {1, 0, 0}, 0.3, {1, -2, 1}},
};

OdDbBlockReferencePtr placed(OdDbDatabase& database, OdDbObjectId block, const Placing& row) {
  const OdDbBlockReferencePtr reference = forWrite<OdDbBlockReference>(addReference(database, block));
  reference->setNormal(row.normal);
  reference->setPosition(row.position);
  reference->setRotation(row.rotation);
  reference->setScaleFactors(row.scale);
  return reference;
}

// Scale, turn about z, tilt into the plane (its x axis by the rule of drawing files), move.
OdGePoint3d byHand(const Placing& row, const OdGePoint3d& p) {
  const double x = p.x * row.scale.sx, y = p.y * row.scale.sy, z = p.z * row.scale.sz;
  const double u = x * std::cos(row.rotation) - y * std::sin(row.rotation);
  const double v = x * std::sin(row.rotation) + y * std::cos(row.rotation);
  const OdGeVector3d& n = row.normal;
  const bool nearZ = std::fabs(n.x) < 1.0 / 64 && std::fabs(n.y) < 1.0 / 64;
  const OdGeVector3d across = (nearZ ? OdGeVector3d(0, 1, 0) : OdGeVector3d(0, 0, 1)).crossProduct(n);
  const OdGeVector3d xAxis = across * (1 / across.length());
  return row.position + xAxis * u + n.crossProduct(xAxis) * v + n * z;
}

TEST(BlockReference, PutsPointsWhereItsPartsSayWhateverTheOriginOfTheBlock) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId block = addBlock(*database, L"door");
  forWrite<OdDbBlockTableRecord>(block)->setOrigin({100, 200, 300});
  for (const Placing& row : kPlacings) {
    const OdDbBlockReferencePtr reference = placed(*database, block, row);
    for (const OdGePoint3d& point : {OdGePoint3d(0, 0, 0), OdGePoint3d(1, 0, 0), OdGePoint3d(-2, 3, 5)}) {
      const OdGePoint3d is = reference->blockTransform() * point, wanted = byHand(row, point);
      EXPECT_LT((is - wanted).length(), 1e-9) << row.what;
    }
  }
  expectRoundTrip(*database);
}

TEST(BlockReference, TakesATransformationApartAndRefusesShearAndFlatness) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId block = addBlock(*database, L"door");
  for (const Placing& row : kPlacings) {
    const OdGeMatrix3d matrix = placed(*database, block, row)->blockTransform();
    const OdDbBlockReferencePtr other = forWrite<OdDbBlockReference>(addReference(*database, block));
    ASSERT_EQ(other->setBlockTransform(matrix), eOk) << row.what;
    for (const OdGePoint3d& point : {OdGePoint3d(0, 0, 0), OdGePoint3d(1, 2, 3), OdGePoint3d(-2, 3, 5)})
      EXPECT_LT((other->blockTransform() * point - matrix * point).length(), 1e-9) << row.what;
  }
  const OdDbBlockReferencePtr reference = placed(*database, block, kPlacings[1]);
  const std::string before = drawing::canonicalDump(*database);
  const OdGeMatrix3d stretched = OdGeMatrix3d::scaling(OdGeScale3d(2, 1, 1)); // of a turned reference: a shear
  EXPECT_EQ(reference->transformBy(stretched), eCannotTransform);
  EXPECT_EQ(reference->setBlockTransform(OdGeMatrix3d::scaling(OdGeScale3d(1, 1, 0))), eCannotTransform);
  EXPECT_EQ(firstDifference(before, drawing::canonicalDump(*database)), "");
}

} // namespace
