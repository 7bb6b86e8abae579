// Making block definitions: what lands in the block, what the sources look like afterwards, and what each failure
// leaves behind.
#include "blockcommon/block_lookup.h"
#include "blockcommon/creation.h"
#include "blockcommon/properties.h"
#include "blockcommon/transforms.h"
#include "morvane/drawing_tools.h"
#include "morvane/result_codes.h"
#include "tests/support/open_document.h"
#include "tests/support/oracles.h"

#include "DbCurves.h"
#include "DbDimension.h"
#include "DbIdMapping.h"
#include "Ge/GeUtil.h"
#include "drawing/opaque_objects.h"

namespace {

using namespace tests;

class Creation : public OpenDocument {
protected:
  void SetUp() override { skewHandles(*database_); }

  OdDbObjectId line(const OdGePoint3d& from, const OdGePoint3d& to, OdDbDatabase* where = nullptr) {
    const auto made = addTo<OdDbLine>((where == nullptr ? database_.get() : where)->getModelSpaceId());
    made->setStartPoint(from);
    made->setEndPoint(to);
    return made->objectId();
  }
  OdDbObjectId create(OdDbObjectIdArray& ids, const OdGePoint3d& base = {}) {
    return blockUtils::create(database_, L"door", ids, false, created_, base, L"a door");
  }
  OdDbObjectId lockedLayer(OdDbObjectId of) {
    const OdDbObjectId layer = addLayer(*database_, L"locked");
    forWrite<OdDbEntity>(of)->setLayer(layer);
    LayerTools::lockOrUnlockLayer(layer, true);
    return layer;
  }
  // A dimension of model space with an association, that of the answer.
  OdDbObjectId addDimension(OdDbObjectId& association, OdDbObjectId measured) {
    const auto dimension = addTo<OdDbRotatedDimension>(database_->getModelSpaceId());
    dimension->setXLine2Point({10, 0, 0});
    dimension->setHorizontalRotation(6.0);
    const auto made = OdDbDimAssoc::createObject();
    made->setDimObjId(dimension->objectId());
    made->addPoint(1, measured);
    EXPECT_EQ(made->post(dimension->objectId(), association, true), 0);
    return dimension->objectId();
  }
  // A UCS turned by 90 degrees about Z, moved away.
  static OdGeMatrix3d turned() {
    OdGeMatrix3d ucs;
    ucs.setCoordSystem({100, 0, 0}, OdGeVector3d(0, 1, 0), OdGeVector3d(-1, 0, 0), OdGeVector3d(0, 0, 1));
    return ucs;
  }

  bool created_ = true;
};

TEST_F(Creation, MakesTheBlockAboutTheBasePointAndLeavesTheObjects) {
  database_->setINSUNITS(OdDb::kUnitsCentimeters);
  OdDbObjectIdArray ids{line({10, 0, 0}, {20, 0, 0})};
  OdDbObjectId block;
  expectUndoRestores(*database_, [&] { block = create(ids, {10, 0, 0}); });
  ASSERT_FALSE(block.isNull());
  EXPECT_TRUE(created_);
  const auto record = forRead<OdDbBlockTableRecord>(block);
  EXPECT_EQ(record->comments(), L"a door");
  EXPECT_EQ(record->blockInsertUnits(), OdDb::kUnitsCentimeters);
  const auto inside = forRead<OdDbLine>(entitiesOf(block)[0]);
  EXPECT_EQ(inside->startPoint(), OdGePoint3d(0, 0, 0));
  EXPECT_EQ(inside->endPoint(), OdGePoint3d(10, 0, 0));
  EXPECT_EQ(forRead<OdDbLine>(ids[0])->startPoint(), OdGePoint3d(10, 0, 0));
  expectSound(*database_);
  expectRoundTrip(*database_);
}

TEST_F(Creation, FollowsTheUcs) {
  ASSERT_EQ(mvsi::mvsidbSetUcsMatrix(turned(), database_), RTNORM);
  OdDbObjectIdArray ids{line({100, 5, 0}, {100, 15, 0})}; // along the X axis of the UCS
  const OdDbObjectId block = create(ids, {5, 0, 0});
  ASSERT_TRUE(created_);
  const auto inside = forRead<OdDbLine>(entitiesOf(block)[0]);
  EXPECT_TRUE(inside->startPoint().isEqualTo({0, 0, 0}));
  EXPECT_TRUE(inside->endPoint().isEqualTo({10, 0, 0}));
}

TEST_F(Creation, RefusesBeforeAnyChange) {
  addBlock(*database_, L"Door");
  OdDbObjectIdArray ids{line({0, 0, 0}, {1, 0, 0})};
  const std::string before = drawing::canonicalDump(*database_);
  const struct {
    OdDbDatabase *database, *working;
    const wchar_t* name;
    bool redefine;
  } rows[] = {{database_, database_, L"door", false}, // the name exists
              {database_, database_, L"", true},
              {nullptr, database_, L"lamp", true},
              {database_, nullptr, L"lamp", false}};
  for (const auto& row : rows) {
    mvsi::mvsidbSetWorkingDatabase(row.working);
    created_ = true;
    EXPECT_TRUE(blockUtils::create(row.database, row.name, ids, row.redefine, created_, {}, L"").isNull());
    EXPECT_FALSE(created_) << &row - rows;
  }
  EXPECT_EQ(drawing::canonicalDump(*database_), before);
}

TEST_F(Creation, RedefinesInPlace) {
  OdDbObjectIdArray ids{line({0, 0, 0}, {1, 0, 0})};
  const OdDbObjectId block = create(ids), reference = addReference(*database_, block);
  OdDbObjectIdArray other{line({0, 0, 0}, {7, 0, 0}), line({0, 0, 0}, {8, 0, 0})};
  expectUndoRestores(*database_,
                     [&] { EXPECT_EQ(blockUtils::create(database_, L"DOOR", other, true, created_, {}, L""), block); });
  EXPECT_TRUE(created_);
  EXPECT_EQ(entitiesOf(block).size(), 2u);
  EXPECT_EQ(forRead<OdDbBlockReference>(reference)->blockTableRecord(), block);
  EXPECT_TRUE(forRead<OdDbBlockTableRecord>(block)->comments().isEmpty()); // an empty description clears the old one
}

TEST_F(Creation, SkipsWhatCannotMoveAndStopsAtWhatDoesNotOpen) {
  const auto camera = addTo<OdDbOpaqueEntity>(database_->getModelSpaceId());
  camera->setDxfName("CAMERA");
  OdDbObjectIdArray ids{camera->objectId(), line({0, 0, 0}, {1, 0, 0})};
  const OdDbObjectId block = create(ids, {1, 0, 0});
  EXPECT_TRUE(created_);
  ASSERT_EQ(ids.size(), 1u);
  EXPECT_EQ(entitiesOf(block).size(), 1u);

  OdDbObjectIdArray some{line({5, 0, 0}, {6, 0, 0}), line({5, 0, 0}, {6, 0, 0})};
  lockedLayer(some[1]);
  EXPECT_TRUE(blockUtils::create(database_, L"lamp", some, false, created_, {5, 0, 0}, L"").isNull());
  EXPECT_FALSE(created_);
  EXPECT_EQ(forRead<OdDbLine>(some[0])->startPoint(), OdGePoint3d(0, 0, 0)); // moved before the walk stopped
  some = {addLayer(*database_, L"wall")};
  EXPECT_THROW(blockUtils::create(database_, L"lamp", some, false, created_, {}, L""), OdError_NotThatKindOfClass);
}

TEST_F(Creation, CopiesFromSeveralDrawings) {
  const OdDbDatabasePtr other = OdDbDatabase::create();
  const OdDbObjectId theirs = line({1, 0, 0}, {2, 0, 0}, other);
  forWrite<OdDbLine>(theirs)->setLayer(addLayer(*other, L"theirs"));
  OdDbObjectIdArray ids{theirs, line({1, 0, 0}, {3, 0, 0})};
  const OdDbObjectId block = create(ids, {1, 0, 0});
  ASSERT_TRUE(created_);
  ASSERT_EQ(entitiesOf(block).size(), 2u);
  EXPECT_FALSE(database_->symbol(OdDb::kLayerTable, L"theirs").isNull());
  EXPECT_EQ(forRead<OdDbLine>(theirs)->startPoint(), OdGePoint3d(1, 0, 0));
  expectSound(*database_);
}

TEST_F(Creation, NullIdsGroupUnderNoDrawingAndFailTheCopy) {
  OdDbObjectIdArray ids{OdDbObjectId()};
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
    explicit Out(OdRxClass* taken) : taken_(taken) { classRegistry().remove(taken); }
    ~Out() { classRegistry().add(taken_); }
    OdRxClass* taken_;
  };
  OdDbObjectIdArray ids{line({0, 0, 0}, {1, 0, 0})};
  OdDbObjectId block;
  OdString name = L"door";
  const auto failure = [](OdRxClass* taken, auto&& make) {
    const Out out(taken);
    try {
      make();
    } catch (const OdError& error) {
      return error;
    }
    return OdError(eOk);
  };
  const OdError noRecord =
      failure(OdDbBlockTableRecord::desc(), [&] { blockUtils::addBlockInfo(database_, block, name, L""); });
  EXPECT_EQ(noRecord.description(), L"OdDbOdDbBlockTableRecordis not loaded");
  EXPECT_EQ(failure(OdDbIdMapping::desc(), [&] { create(ids); }).code(), 255);
}

TEST_F(Creation, EmptyingThrowsForLockedContents) {
  lockedLayer(addText(*database_, L"x", addBlock(*database_, L"door")));
  EXPECT_THROW(blockUtils::emptyRec(database_, L"door"), OdError);
  EXPECT_EQ(database_->transactionDepth(), 0);
  for (const wchar_t* none : {L"lamp", L""})
    EXPECT_FALSE(blockUtils::emptyRec(database_, none));
  EXPECT_FALSE(blockUtils::emptyRec(nullptr, L"door"));
}

// A dimension keeps the direction of its text: the turn of the UCS is added and reduced to one full turn.
TEST_F(Creation, RotatesDimensionsAndClonesTheirAssociations) {
  ASSERT_EQ(mvsi::mvsidbSetUcsMatrix(turned(), database_), RTNORM);
  OdDbObjectId posted;
  const OdDbObjectId measured = line({0, 0, 0}, {10, 0, 0}), id = addDimension(posted, measured);
  OdDbObjectIdArray ids{measured, id};
  const OdDbObjectId block = create(ids);
  ASSERT_TRUE(created_);
  const OdDbObjectId clone = entitiesOf(block)[1];
  EXPECT_NEAR(forRead<OdDbDimension>(clone)->horizontalRotation(), 6.0 + kPi / 2 - kTwoPi, 1e-15);
  EXPECT_EQ(forRead<OdDbDimension>(id)->horizontalRotation(), 6.0);
  const OdDbObjectId cloned = OdDbDimAssoc::associationOf(clone);
  ASSERT_FALSE(cloned.isNull());
  EXPECT_NE(cloned, posted);
  EXPECT_EQ(forRead<OdDbDimAssoc>(cloned)->dimObjId(), clone);
  EXPECT_EQ(forRead<OdDbDimAssoc>(cloned)->getDimAssocGeomIds()[0], entitiesOf(block)[0]);
  EXPECT_TRUE(forRead<OdDbDimension>(clone)->hasPersistentReactor(cloned));

  // Locked layers are unlocked for the posting and locked again.
  const OdDbObjectId layer = lockedLayer(clone);
  OdSmartPtr<OdDbDimAssoc> again = forWrite<OdDbDimAssoc>(cloned);
  OdDbObjectId newId;
  EXPECT_EQ(blockUtils::postDimAssoc(again, clone, newId), 5100);
  EXPECT_TRUE(LayerTools::isLayerLocked(layer));
  OdSmartPtr<OdDbDimAssoc> none;
  EXPECT_EQ(blockUtils::postDimAssoc(none, clone, newId), -5001);
}

// Whatever call of the host fails, a layer that was locked before is locked afterwards.
TEST_F(Creation, PostingLocksLayersAgainWhereverTheHostFails) {
  OdDbObjectId posted;
  const OdDbObjectId id = addDimension(posted, line({0, 0, 0}, {10, 0, 0})), layer = lockedLayer(id);
  for (int n = 1;; ++n) {
    host_.failCall(n);
    OdSmartPtr<OdDbDimAssoc> again = forWrite<OdDbDimAssoc>(posted);
    OdDbObjectId newId;
    blockUtils::postDimAssoc(again, id, newId);
    const bool done = host_.allPassed();
    host_.failNothing();
    ASSERT_TRUE(LayerTools::isLayerLocked(layer)) << n;
    if (done)
      break;
  }
}

TEST_F(Creation, TransformsSkipDuplicates) {
  OdDbObjectIdArray ids{line({1, 0, 0}, {2, 0, 0})};
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
