// Associations tie a dimension to geometry, all or nothing. A text stands for the dimension: posting asks nothing of
// its kind.
#include "DbDimAssoc.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

using namespace tests;

namespace {

struct Fixture : testing::Test {
  OdDbDatabasePtr database = OdDbDatabase::create();
  OdDbObjectId dimension, other, lineA, lineB;

  Fixture() {
    skewHandles(*database);
    dimension = addText(*database, L"dimension");
    other = addText(*database, L"other dimension");
    lineA = addText(*database, L"geometry a");
    lineB = addText(*database, L"geometry b");
  }

  OdDbDimAssocPtr make(std::initializer_list<OdDbObjectId> geometry) const {
    const OdDbDimAssocPtr association = OdDbDimAssoc::createObject();
    for (OdDbObjectId id : geometry)
      EXPECT_EQ(association->addPoint(1, id), eOk);
    return association;
  }
};
using DimAssoc = Fixture;

TEST_F(DimAssoc, BelongsToItsDimensionAndReactsToTheGeometry) {
  const OdDbDimAssocPtr made = make({lineA, lineB, lineA});
  OdDbObjectId id;
  expectUndoRestores(*database, [&] { ASSERT_EQ(made->post(dimension, id), eOk); });
  EXPECT_EQ(OdDbDimAssoc::associationOf(dimension), id);
  EXPECT_EQ(id, made->objectId());
  EXPECT_EQ(made->dimObjId(), dimension);
  EXPECT_EQ(made->ownerId(), forRead<OdDbText>(dimension)->extensionDictionary());
  OdDbObjectIdArray geometry;
  made->getDimAssocGeomIds(geometry);
  EXPECT_EQ(geometry, (OdDbObjectIdArray{lineA, lineB}));
  for (OdDbObjectId watched : {dimension, lineA, lineB})
    EXPECT_TRUE(watched.safeOpenObject()->hasPersistentReactor(id));
  expectRoundTrip(*database);
}

TEST_F(DimAssoc, PostedAgainStaysAndPostedElsewhereIsCopiedAndAnOlderOneGivesWay) {
  const OdDbDimAssocPtr made = make({lineA});
  OdDbObjectId first, again, copy;
  ASSERT_EQ(made->post(dimension, first), eOk);
  const std::string before = drawing::canonicalDump(*database);
  ASSERT_EQ(made->post(dimension, again), eOk);
  EXPECT_EQ(again, first);
  EXPECT_EQ(firstDifference(before, drawing::canonicalDump(*database)), "");
  ASSERT_EQ(made->post(other, copy), eOk);
  EXPECT_NE(copy, first);
  EXPECT_EQ(OdDbDimAssoc::associationOf(dimension), first);
  EXPECT_EQ(OdDbDimAssoc::associationOf(other), copy);
  EXPECT_EQ(forRead<OdDbDimAssoc>(copy)->dimObjId(), other);
  EXPECT_EQ(forRead<OdDbDimAssoc>(copy)->getPersistentReactors().size(), 1u);
  EXPECT_EQ(forRead<OdDbText>(lineA)->getPersistentReactors().size(), 2u);
  expectRoundTrip(*database);
  OdDbObjectId fresh;
  ASSERT_EQ(make({lineB})->post(dimension, fresh), eOk);
  EXPECT_TRUE(first.isErased());
  EXPECT_EQ(OdDbDimAssoc::associationOf(dimension), fresh);
  EXPECT_FALSE(forRead<OdDbText>(lineA)->hasPersistentReactor(first));
  EXPECT_FALSE(forRead<OdDbText>(dimension)->hasPersistentReactor(first));
}

TEST_F(DimAssoc, ClonedWithItsGeometryTiesTheClonesAndAloneTheOldGeometry) {
  OdDbObjectId id;
  ASSERT_EQ(make({lineA, lineB})->post(dimension, id), eOk);
  const OdDbIdMapping mapping = cloned({dimension, lineA}, database->getModelSpaceId());
  const OdDbObjectId copy = OdDbDimAssoc::associationOf(mapping.valueOf(dimension));
  ASSERT_EQ(copy, mapping.valueOf(id));
  EXPECT_EQ(forRead<OdDbDimAssoc>(copy)->dimObjId(), mapping.valueOf(dimension));
  EXPECT_EQ(forRead<OdDbDimAssoc>(copy)->getDimAssocGeomIds(), (OdDbObjectIdArray{mapping.valueOf(lineA), lineB}));
  EXPECT_TRUE(mapping.valueOf(lineA).safeOpenObject()->hasPersistentReactor(copy));
  expectRoundTrip(*database);
}

TEST_F(DimAssoc, RefusedWhereSomethingDoesNotOpenAndChangesNothing) {
  const OdDbObjectId locked = addLayer(*database, L"locked");
  forWrite<OdDbText>(lineB)->setLayer(locked);
  forWrite<OdDbLayerTableRecord>(locked)->setIsLocked(true);
  const OdDbObjectId erased = addText(*database, L"erased");
  forWrite<OdDbText>(erased)->erase();
  const OdDbDatabasePtr foreign = OdDbDatabase::create();
  const OdDbObjectId stranger = addText(*foreign, L"stranger");
  const std::string before = drawing::canonicalDump(*database);
  struct Case {
    const char* what;
    OdDbObjectId dimension;
    std::initializer_list<OdDbObjectId> geometry;
    int expected;
  };
  for (const Case& row : {Case{"null", {}, {lineA}, eNullObjectId}, Case{"erased", erased, {lineA}, eWasErased},
                          Case{"locked dimension", lineB, {lineA}, eOnLockedLayer},
                          Case{"locked geometry", dimension, {lineA, lineB}, eOnLockedLayer},
                          Case{"erased geometry", dimension, {lineA, erased}, eWasErased},
                          Case{"another drawing's geometry", dimension, {stranger}, eWrongDatabase}}) {
    OdDbObjectId id;
    EXPECT_EQ(make(row.geometry)->post(row.dimension, id), row.expected) << row.what;
    EXPECT_TRUE(id.isNull()) << row.what;
  }
  EXPECT_EQ(firstDifference(before, drawing::canonicalDump(*database)), "");
}

} // namespace
