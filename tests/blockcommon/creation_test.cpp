// Making block definitions: what lands in the block, what the sources look like afterwards, and what each failure
// leaves behind.
#include "blockcommon/block_lookup.h"
#include "blockcommon/creation.h"
#include "blockcommon/properties.h"
#include "blockcommon/transforms.h"
#include "morvane/drawing_tools.h"
#include "morvane/result_codes.h"
#include "morvane/testing.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

#include "DbBlockReference.h"
#include "DbCarried.h"
#include "DbCurves.h"
#include "DbDimension.h"
#include "DbDump.h"
#include "DbIdMapping.h"
#include "DbSymbolRecords.h"
#include "Ge/GeUtil.h"

#include <gtest/gtest.h>

namespace {

using namespace tests;

class Creation : public testing::Test {
protected:
  void SetUp() override { skewHandles(*database_); }

  OdDbObjectId line(const OdGePoint3d& from, const OdGePoint3d& to, OdDbDatabase* where = nullptr) {
    OdDbDatabase& database = where == nullptr ? *database_ : *where;
    const OdDbLinePtr made = OdDbLine::createObject();
    made->setStartPoint(from);
    made->setEndPoint(to);
    return append(made.get(), database);
  }
  OdDbObjectId append(OdDbEntity* entity, OdDbDatabase& database) {
    entity->setLayer(database.getLayerZeroId());
    return forWrite<OdDbBlockTableRecord>(database.getModelSpaceId())->appendOdDbEntity(entity);
  }
  OdDbObjectId create(OdDbObjectIdArray& ids, const OdGePoint3d& base = {}, bool redefine = false) {
    return blockUtils::create(database_, L"door", ids, redefine, created_, base, L"a door");
  }
  static OdDbObjectIdArray contents(OdDbObjectId block) {
    OdDbObjectIdArray ids;
    for (auto it = forRead<OdDbBlockTableRecord>(block)->newIterator(); !it->done(); it->step())
      ids.append(it->objectId());
    return ids;
  }
  // A UCS turned by 90 degrees about Z, moved away.
  static OdGeMatrix3d turned() {
    OdGeMatrix3d ucs;
    ucs.setCoordSystem({100, 0, 0}, OdGeVector3d(0, 1, 0), OdGeVector3d(-1, 0, 0), OdGeVector3d(0, 0, 1));
    return ucs;
  }

  morvane::ScriptedHost host_;
  OdDbDatabasePtr database_ = OdDbDatabase::create();
  mvsi::MvsiApDocument* document_ = host_.host().documents().open(database_);
  bool created_ = true;
};

TEST_F(Creation, MakesTheBlockAboutTheBasePointAndLeavesTheObjects) {
  database_->setINSUNITS(OdDb::kUnitsCentimeters);
  OdDbObjectIdArray ids;
  ids.append(line({10, 0, 0}, {20, 0, 0}));
  const std::string objectBefore = drawing::canonicalDump(*database_);
  OdDbObjectId block;
  expectUndoRestores(*database_, [&] { block = create(ids, {10, 0, 0}); });
  ASSERT_FALSE(block.isNull());
  EXPECT_TRUE(created_);
  const auto record = forRead<OdDbBlockTableRecord>(block);
  EXPECT_EQ(record->comments(), L"a door");
  EXPECT_EQ(record->blockInsertUnits(), OdDb::kUnitsCentimeters);
  const auto inside = forRead<OdDbLine>(contents(block)[0]);
  EXPECT_EQ(inside->startPoint(), OdGePoint3d(0, 0, 0));
  EXPECT_EQ(inside->endPoint(), OdGePoint3d(10, 0, 0));
  EXPECT_EQ(forRead<OdDbLine>(ids[0])->startPoint(), OdGePoint3d(10, 0, 0));
  expectSound(*database_);
  expectRoundTrip(*database_);
}

TEST_F(Creation, FollowsTheUcs) {
  ASSERT_EQ(mvsi::mvsidbSetUcsMatrix(turned(), database_), RTNORM);
  OdDbObjectIdArray ids;
  ids.append(line({100, 5, 0}, {100, 15, 0})); // along the X axis of the UCS
  const OdDbObjectId block = create(ids, {5, 0, 0});
  ASSERT_TRUE(created_);
  const auto inside = forRead<OdDbLine>(contents(block)[0]);
  EXPECT_TRUE(inside->startPoint().isEqualTo({0, 0, 0}));
  EXPECT_TRUE(inside->endPoint().isEqualTo({10, 0, 0}));
}

TEST_F(Creation, RefusesBeforeAnyChange) {
  addBlock(*database_, L"Door");
  OdDbObjectIdArray ids;
  ids.append(line({0, 0, 0}, {1, 0, 0}));
  const std::string before = drawing::canonicalDump(*database_);
  EXPECT_TRUE(create(ids).isNull()); // the name exists
  EXPECT_FALSE(created_);
  for (OdDbDatabase* database : {database_.get(), static_cast<OdDbDatabase*>(nullptr)}) {
    created_ = true;
    const OdString name = database == nullptr ? L"lamp" : L"";
    EXPECT_TRUE(blockUtils::create(database, name, ids, true, created_, {}, L"").isNull());
    EXPECT_FALSE(created_);
  }
  mvsi::mvsidbSetWorkingDatabase(nullptr);
  created_ = true;
  EXPECT_TRUE(blockUtils::create(database_, L"lamp", ids, false, created_, {}, L"").isNull());
  EXPECT_FALSE(created_);
  EXPECT_EQ(drawing::canonicalDump(*database_), before);
}

TEST_F(Creation, RedefinesInPlace) {
  OdDbObjectIdArray ids;
  ids.append(line({0, 0, 0}, {1, 0, 0}));
  const OdDbObjectId block = create(ids);
  const OdDbObjectId reference = addReference(*database_, block);
  OdDbObjectIdArray other;
  other.append(line({0, 0, 0}, {7, 0, 0}));
  other.append(line({0, 0, 0}, {8, 0, 0}));
  expectUndoRestores(*database_,
                     [&] { EXPECT_EQ(blockUtils::create(database_, L"DOOR", other, true, created_, {}, L""), block); });
  EXPECT_TRUE(created_);
  EXPECT_EQ(contents(block).size(), 2u);
  EXPECT_EQ(forRead<OdDbBlockReference>(reference)->blockTableRecord(), block);
  EXPECT_TRUE(forRead<OdDbBlockTableRecord>(block)->comments().isEmpty()); // an empty description clears the old one
}

TEST_F(Creation, LeavesOutWhatCannotMoveAndStopsAtWhatDoesNotOpen) {
  auto* camera = new OdDbCarriedEntity;
  camera->setDxfName("CAMERA");
  const OdSmartPtr<OdDbEntity> holder(camera);
  OdDbObjectIdArray ids;
  ids.append(append(camera, *database_));
  ids.append(line({0, 0, 0}, {1, 0, 0}));
  const OdDbObjectId block = create(ids, {1, 0, 0});
  EXPECT_TRUE(created_);
  ASSERT_EQ(ids.size(), 1u);
  EXPECT_EQ(contents(block).size(), 1u);

  const OdDbObjectId layer = addLayer(*database_, L"locked");
  OdDbObjectIdArray some;
  some.append(line({5, 0, 0}, {6, 0, 0}));
  some.append(line({5, 0, 0}, {6, 0, 0}));
  forWrite<OdDbLine>(some[1])->setLayer(layer);
  forWrite<OdDbLayerTableRecord>(layer)->setIsLocked(true);
  EXPECT_TRUE(blockUtils::create(database_, L"lamp", some, false, created_, {5, 0, 0}, L"").isNull());
  EXPECT_FALSE(created_);
  EXPECT_EQ(forRead<OdDbLine>(some[0])->startPoint(), OdGePoint3d(0, 0, 0)); // moved before the walk stopped
}

TEST_F(Creation, ThrowsForObjectsThatAreNoEntities) {
  OdDbObjectIdArray ids;
  ids.append(addLayer(*database_, L"wall"));
  EXPECT_THROW(create(ids), OdError_NotThatKindOfClass);
}

TEST_F(Creation, CopiesFromSeveralDrawings) {
  const OdDbDatabasePtr other = OdDbDatabase::create();
  const OdDbObjectId theirs = line({1, 0, 0}, {2, 0, 0}, other);
  forWrite<OdDbLine>(theirs)->setLayer(addLayer(*other, L"theirs"));
  OdDbObjectIdArray ids;
  ids.append(theirs);
  ids.append(line({1, 0, 0}, {3, 0, 0}));
  const OdDbObjectId block = create(ids, {1, 0, 0});
  ASSERT_TRUE(created_);
  ASSERT_EQ(contents(block).size(), 2u);
  EXPECT_FALSE(database_->symbol(OdDb::kLayerTable, L"theirs").isNull());
  EXPECT_EQ(forRead<OdDbLine>(theirs)->startPoint(), OdGePoint3d(1, 0, 0));
  expectSound(*database_);
}

TEST_F(Creation, NullIdsGroupUnderNoDrawingAndFailTheCopy) {
  OdDbObjectIdArray ids;
  ids.append(OdDbObjectId());
  std::map<OdDbDatabase*, OdArray<OdDbObjectId>*> groups;
  EXPECT_TRUE(blockUtils::groupForEntity(database_, ids, groups));
  ASSERT_EQ(groups.count(nullptr), 1u);
  OdDbObjectId block = addBlock(*database_, L"door");
  bool flag = true;
  EXPECT_FALSE(blockUtils::copyDataToNewBlock(database_, groups, block, OdGeMatrix3d(), flag));
  EXPECT_FALSE(blockUtils::copyDataToNewBlock(nullptr, {}, block, OdGeMatrix3d(), flag));
  EXPECT_TRUE(blockUtils::copyDataToNewBlock(database_, {{database_.get(), nullptr}}, block, OdGeMatrix3d(), flag));
  delete groups[nullptr];
}

TEST_F(Creation, NeedsTheClassesOfTheSdk) {
  struct Out { // a class taken out of the registry, back again at the end
    explicit Out(OdRxClass* taken) : taken_(taken) { odrxClassDictionary().remove(taken); }
    ~Out() { odrxClassDictionary().add(taken_); }
    OdRxClass* taken_;
  };
  OdDbObjectIdArray ids;
  ids.append(line({0, 0, 0}, {1, 0, 0}));
  OdDbObjectId block;
  OdString name = L"door";
  {
    const Out out(OdDbBlockTableRecord::desc());
    try {
      blockUtils::addBlockInfo(database_, block, name, L"");
      FAIL();
    } catch (const OdError& error) {
      EXPECT_EQ(error.description(), L"OdDbOdDbBlockTableRecordis not loaded");
    }
  }
  const Out out(OdDbIdMapping::desc());
  try {
    create(ids);
    FAIL();
  } catch (const OdError& error) {
    EXPECT_EQ(error.code(), 255);
  }
}

TEST_F(Creation, EmptyingThrowsForLockedContents) {
  const OdDbObjectId block = addBlock(*database_, L"door");
  const OdDbObjectId text = addText(*database_, L"x", block);
  const OdDbObjectId layer = addLayer(*database_, L"locked");
  forWrite<OdDbEntity>(text)->setLayer(layer);
  forWrite<OdDbLayerTableRecord>(layer)->setIsLocked(true);
  EXPECT_THROW(blockUtils::emptyRec(database_, L"door"), OdError);
  EXPECT_EQ(database_->transactionDepth(), 0);
  EXPECT_FALSE(blockUtils::emptyRec(database_, L"lamp"));
  EXPECT_FALSE(blockUtils::emptyRec(database_, L""));
  EXPECT_FALSE(blockUtils::emptyRec(nullptr, L"door"));
}

// A dimension keeps the direction of its text: the turn of the UCS is added and reduced to one full turn.
TEST_F(Creation, TurnsDimensionsAndTakesTheirAssociationsAlong) {
  ASSERT_EQ(mvsi::mvsidbSetUcsMatrix(turned(), database_), RTNORM);
  const OdDbObjectId measured = line({0, 0, 0}, {10, 0, 0});
  const auto dimension = OdDbRotatedDimension::createObject();
  dimension->setXLine2Point({10, 0, 0});
  dimension->setHorizontalRotation(6.0);
  const OdDbObjectId id = append(dimension.get(), *database_);
  const auto association = OdDbDimAssoc::createObject();
  association->setDimObjId(id);
  association->addPoint(1, measured);
  OdDbObjectId posted;
  ASSERT_EQ(association->post(id, posted, true), 0);

  const OdDbObjectId layer = addLayer(*database_, L"locked");
  OdDbObjectIdArray ids;
  ids.append(measured);
  ids.append(id);
  const OdDbObjectId block = create(ids);
  ASSERT_TRUE(created_);
  const OdDbObjectId clone = contents(block)[1];
  EXPECT_NEAR(forRead<OdDbDimension>(clone)->horizontalRotation(), 6.0 + OdaPI / 2 - Oda2PI, 1e-15);
  EXPECT_EQ(forRead<OdDbDimension>(id)->horizontalRotation(), 6.0);
  const OdDbObjectId cloned = OdDbDimAssoc::associationOf(clone);
  ASSERT_FALSE(cloned.isNull());
  EXPECT_NE(cloned, posted);
  EXPECT_EQ(forRead<OdDbDimAssoc>(cloned)->dimObjId(), clone);
  EXPECT_EQ(forRead<OdDbDimAssoc>(cloned)->getDimAssocGeomIds()[0], contents(block)[0]);
  EXPECT_TRUE(forRead<OdDbDimension>(clone)->hasPersistentReactor(cloned));

  // Locked layers are unlocked for the posting and locked again.
  forWrite<OdDbEntity>(clone)->setLayer(layer);
  forWrite<OdDbLayerTableRecord>(layer)->setIsLocked(true);
  OdSmartPtr<OdDbDimAssoc> again = forWrite<OdDbDimAssoc>(cloned);
  OdDbObjectId newId;
  EXPECT_EQ(blockUtils::postDimAssoc(again, clone, newId), 5100);
  EXPECT_TRUE(forRead<OdDbLayerTableRecord>(layer)->isLocked());
  OdSmartPtr<OdDbDimAssoc> none;
  EXPECT_EQ(blockUtils::postDimAssoc(none, clone, newId), -5001);
}

// Whatever call of the host fails, a layer that was locked before is locked afterwards.
TEST_F(Creation, PostingLocksLayersAgainWhereverTheHostGivesOut) {
  const auto dimension = OdDbRotatedDimension::createObject();
  const OdDbObjectId id = append(dimension.get(), *database_);
  const auto association = OdDbDimAssoc::createObject();
  association->setDimObjId(id);
  OdDbObjectId posted;
  ASSERT_EQ(association->post(id, posted, true), 0);
  const OdDbObjectId layer = addLayer(*database_, L"locked");
  forWrite<OdDbEntity>(id)->setLayer(layer);
  forWrite<OdDbLayerTableRecord>(layer)->setIsLocked(true);
  morvane::FaultyHost faulty;
  for (int n = 1;; ++n) {
    faulty.failCall(n);
    OdSmartPtr<OdDbDimAssoc> again = forWrite<OdDbDimAssoc>(posted);
    OdDbObjectId newId;
    blockUtils::postDimAssoc(again, id, newId);
    ASSERT_TRUE(forRead<OdDbLayerTableRecord>(layer)->isLocked()) << n;
    if (faulty.allPassed())
      break;
  }
}

TEST_F(Creation, TransformsSkipDuplicatesAsTheyStand) {
  OdDbObjectIdArray ids;
  ids.append(line({1, 0, 0}, {2, 0, 0}));
  ids.append(ids[0]); // named twice: moved twice, and back twice
  const OdGeMatrix3d ecs = OdGeMatrix3d::translation(OdGeVector3d(1, 0, 0));
  EXPECT_TRUE(blockUtils::transformEntityByEcs(database_, ids, ecs));
  EXPECT_EQ(forRead<OdDbLine>(ids[0])->startPoint(), OdGePoint3d(-1, 0, 0));
  EXPECT_TRUE(blockUtils::recoverCoordinateSystem(database_, ids, ecs));
  EXPECT_EQ(forRead<OdDbLine>(ids[0])->startPoint(), OdGePoint3d(1, 0, 0));
  ids.append(OdDbObjectId());
  EXPECT_FALSE(blockUtils::transformEntityByEcs(database_, ids, ecs));
  EXPECT_TRUE(blockUtils::recoverCoordinateSystem(database_, {}, ecs));
  blockUtils::transformRec(nullptr, ecs);
}

TEST_F(Creation, PropertiesAreSetOnBlocksOnly) {
  const OdDbObjectId block = addBlock(*database_, L"door");
  for (const OdDbObjectId& wrong : {OdDbObjectId(), addLayer(*database_, L"wall")}) {
    EXPECT_FALSE(blockUtils::setUniformlyScaled(wrong, true));
    EXPECT_FALSE(blockUtils::setExplodable(wrong, false));
    EXPECT_FALSE(blockUtils::setBtrInsertUnit(wrong, OdDb::kUnitsInches));
    EXPECT_FALSE(blockUtils::SetAnnotative(wrong, true, true));
  }
  EXPECT_FALSE(blockUtils::setAnnotationAndMatch(nullptr, true, true));
  EXPECT_TRUE(blockUtils::setUniformlyScaled(block, true));
  EXPECT_TRUE(blockUtils::setExplodable(block, false));
  EXPECT_TRUE(blockUtils::setBtrInsertUnit(block, OdDb::kUnitsInches));
  const auto record = forRead<OdDbBlockTableRecord>(block);
  EXPECT_EQ(record->blockScaling(), OdDbBlockTableRecord::kUniform);
  EXPECT_FALSE(record->explodable());
  EXPECT_EQ(record->blockInsertUnits(), OdDb::kUnitsInches);
}

} // namespace
