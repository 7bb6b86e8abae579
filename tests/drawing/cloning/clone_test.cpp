// Clones: everything owned comes along, references among clones follow, nothing of another drawing is named, and a
// drawing stays sound whatever was cloned into it.
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

#include "DbCurves.h"
#include "DbDictionary.h"
#include "DbDimension.h"

namespace {

using namespace tests;

OdDbObjectId addLine(OdDbDatabase& database, const OdGePoint3d& from, const OdGePoint3d& to,
                     OdDbObjectId block = OdDbObjectId()) {
  const OdDbLinePtr line = addTo<OdDbLine>(block.isNull() ? database.getModelSpaceId() : block);
  line->setStartPoint(from);
  line->setEndPoint(to);
  return line->objectId();
}

class DeepClone : public testing::Test {
protected:
  void SetUp() override { skewHandles(*database_); }
  OdDbDatabasePtr database_ = OdDbDatabase::create();
};

TEST_F(DeepClone, ClonesEverythingOwnedInOrderAsOneUndoStep) {
  const OdDbObjectId door = addBlock(*database_, L"door");
  addLine(*database_, {0, 0, 0}, {1, 0, 0}, door);
  const OdDbObjectId reference = addReference(*database_, door);
  const OdDbObjectId attribute = addAttribute(reference, L"NO", L"7");
  const OdDbObjectId line = addLine(*database_, {0, 0, 0}, {5, 5, 0});
  {
    const auto open = forWrite<OdDbLine>(line);
    const auto dictionary = forWrite<OdDbDictionary>(open->createExtensionDictionary());
    const OdSmartPtr<OdDbXrecord> record = OdDbXrecord::createObject();
    record->groupsForWrite().reference(330, reference); // among the clones: must follow
    record->groupsForWrite().reference(330, door);      // of the same drawing: stays
    dictionary->setAt(L"NOTE", record);
  }
  const OdDbObjectId lamp = addBlock(*database_, L"lamp");
  OdDbIdMapping mapping;
  expectUndoRestores(*database_, [&] {
    ASSERT_EQ(database_->deepCloneObjects({line, reference}, lamp, mapping), eOk);
  });
  const OdDbObjectIdArray clones = entitiesOf(lamp);
  ASSERT_EQ(clones.size(), 2u);
  EXPECT_EQ(clones[0], mapping.valueOf(line));
  EXPECT_EQ(clones[1], mapping.valueOf(reference));
  ASSERT_GE(mapping.size(), 5u); // both, the attribute with its end, the dictionary with its record
  EXPECT_TRUE(mapping.pairs()[0].isPrimary());
  EXPECT_FALSE(mapping.pairs()[2].isPrimary());

  const auto clonedReference = forRead<OdDbBlockReference>(clones[1]);
  ASSERT_EQ(clonedReference->attributeIds().size(), 1u);
  EXPECT_EQ(clonedReference->attributeIds()[0], mapping.valueOf(attribute));
  const auto dictionary = forRead<OdDbDictionary>(clones[0].safeOpenObject()->extensionDictionary());
  const auto record = forRead<OdDbXrecord>(dictionary->getAt(L"NOTE"));
  EXPECT_EQ(record->groups().idOf(record->groups()[0]), clones[1]);
  EXPECT_EQ(record->groups().idOf(record->groups()[1]), door);
  expectSound(*database_);
  expectRoundTrip(*database_);
}

TEST_F(DeepClone, RefusesToCloseACycleAndChangesNothing) {
  const OdDbObjectId a = addBlock(*database_, L"a");
  const OdDbObjectId b = addBlock(*database_, L"b");
  const OdDbObjectId c = addBlock(*database_, L"c");
  addReference(*database_, b, a);
  addReference(*database_, c, b);
  const OdDbObjectId toA = addReference(*database_, a);
  const OdDbObjectId line = addLine(*database_, {0, 0, 0}, {1, 0, 0});
  const std::string before = drawing::canonicalDump(*database_);
  for (const OdDbObjectId& into : {a, b, c}) {
    OdDbIdMapping mapping;
    EXPECT_EQ(database_->deepCloneObjects({line, toA}, into, mapping), eSelfReference);
    EXPECT_EQ(mapping.size(), 0u);
  }
  for (const OdDbObjectId& into : {a, b, c})
    EXPECT_THROW(addReference(*database_, a, into), OdError);
  EXPECT_EQ(drawing::canonicalDump(*database_), before);
}

TEST_F(DeepClone, GivesADimensionItsOwnBlock) {
  const OdDbObjectId picture = addBlock(*database_, L"*D");
  addLine(*database_, {10, 0, 0}, {20, 0, 0}, picture);
  const auto dimension = addTo<OdDbRotatedDimension>(database_->getModelSpaceId());
  dimension->setXLine1Point({10, 0, 0});
  dimension->setXLine2Point({20, 0, 0});
  dimension->setDimBlockId(picture);
  const OdDbObjectId id = dimension->objectId();
  const OdDbIdMapping mapping = cloned({id}, addBlock(*database_, L"x"));
  const auto clone = forWrite<OdDbRotatedDimension>(mapping.valueOf(id));
  ASSERT_NE(clone->dimBlockId(), picture);
  EXPECT_EQ(clone->transformBy(OdGeMatrix3d::translation(OdGeVector3d(0, 5, 0))), eOk);
  EXPECT_EQ(forRead<OdDbLine>(entitiesOf(clone->dimBlockId())[0])->startPoint(), OdGePoint3d(10, 5, 0));
  EXPECT_EQ(forRead<OdDbLine>(entitiesOf(picture)[0])->startPoint(), OdGePoint3d(10, 0, 0));
  expectSound(*database_);
}

class CloneBetween : public testing::Test {
protected:
  void SetUp() override {
    skewHandles(*target_);
    wall_ = addLayer(*source_, L"wall");
    forWrite<OdDbLayerTableRecord>(wall_)->setColor({1, OdCmColor::kNoTrueColor});
    hinge_ = addBlock(*source_, L"hinge");
    addLine(*source_, {0, 0, 0}, {1, 0, 0}, hinge_);
    door_ = addBlock(*source_, L"door");
    addReference(*source_, hinge_, door_);
    reference_ = addReference(*source_, door_);
    forWrite<OdDbBlockReference>(reference_)->setLayer(wall_);
  }
  OdResult clone(OdDbObjectId into, OdDb::DuplicateRecordCloning mode) {
    return source_->wblockCloneObjects({reference_}, into, mapping_, mode);
  }
  OdDbDatabasePtr source_ = OdDbDatabase::create();
  OdDbDatabasePtr target_ = OdDbDatabase::create();
  OdDbObjectId wall_, hinge_, door_, reference_;
  OdDbIdMapping mapping_;
};

TEST_F(CloneBetween, ReplacesOrKeepsRecordsOfTheSameName) {
  struct Case {
    OdDb::DuplicateRecordCloning mode;
    std::int16_t color;
    std::size_t lines;
  };
  for (const Case& expected : {Case{OdDb::kDrcReplace, 1, 1}, Case{OdDb::kDrcIgnore, 7, 2}}) {
    target_ = OdDbDatabase::create();
    mapping_ = OdDbIdMapping();
    const OdDbObjectId wall = addLayer(*target_, L"WALL");
    const OdDbObjectId hinge = addBlock(*target_, L"Hinge");
    addLine(*target_, {0, 0, 0}, {9, 0, 0}, hinge);
    addLine(*target_, {0, 0, 0}, {8, 0, 0}, hinge);
    EXPECT_EQ(clone(target_->getModelSpaceId(), expected.mode), eOk);
    EXPECT_EQ(target_->symbol(OdDb::kLayerTable, L"wall"), wall); // the id stays valid for whoever holds it
    EXPECT_EQ(forRead<OdDbLayerTableRecord>(wall)->color().index, expected.color);
    EXPECT_EQ(entitiesOf(hinge).size(), expected.lines);
    expectSound(*target_);
    expectRoundTrip(*target_);
  }
}

// What is replaced cannot lead back any more: it is replaced like any other.
TEST_F(CloneBetween, ReplacesABlockThatContainedTheFilledOne) {
  const OdDbObjectId lamp = addBlock(*target_, L"lamp");
  const OdDbObjectId door = addBlock(*target_, L"door");
  addReference(*target_, lamp, door);
  ASSERT_EQ(clone(lamp, OdDb::kDrcReplace), eOk);
  EXPECT_EQ(forRead<OdDbBlockReference>(entitiesOf(lamp)[0])->blockTableRecord(), door);
  ASSERT_EQ(entitiesOf(door).size(), 1u);
  EXPECT_EQ(forRead<OdDbBlockReference>(entitiesOf(door)[0])->blockTableRecord(),
            target_->symbol(OdDb::kBlockTable, L"hinge"));
  expectSound(*target_);
  expectRoundTrip(*target_);
}

// A drawing's spaces are its own, although every drawing names them alike.
TEST_F(CloneBetween, NeverReplacesASpace) {
  addText(*source_, L"theirs", source_->getPaperSpaceId());
  const OdDbObjectId ours = addText(*target_, L"ours", target_->getPaperSpaceId());
  const OdDbObjectId drawing = addReference(*source_, source_->getPaperSpaceId());
  const OdDbObjectId pointing = addLine(*source_, {0, 0, 0}, {1, 0, 0});
  {
    const auto dictionary = forWrite<OdDbDictionary>(forWrite<OdDbLine>(pointing)->createExtensionDictionary());
    const OdSmartPtr<OdDbXrecord> record = OdDbXrecord::createObject();
    record->groupsForWrite().reference(340, source_->getModelSpaceId());
    dictionary->setAt(L"NOTE", record);
  }
  for (const OdDb::DuplicateRecordCloning mode : {OdDb::kDrcReplace, OdDb::kDrcIgnore}) {
    OdDbIdMapping mapping;
    const OdDbObjectId lamp = addBlock(*target_, mode == OdDb::kDrcReplace ? L"lamp" : L"lantern");
    ASSERT_EQ(source_->wblockCloneObjects({pointing, drawing}, lamp, mapping, mode), eOk);
    ASSERT_EQ(entitiesOf(target_->getPaperSpaceId()).size(), 1u);
    EXPECT_EQ(entitiesOf(target_->getPaperSpaceId())[0], ours);
    EXPECT_TRUE(entitiesOf(target_->getModelSpaceId()).isEmpty());
    const auto copy = forRead<OdDbBlockReference>(mapping.valueOf(drawing));
    EXPECT_TRUE(forRead<OdDbBlockTableRecord>(copy->blockTableRecord())->isAnonymous());
    EXPECT_EQ(entitiesOf(copy->blockTableRecord()).size(), 1u);
  }
  expectSound(*target_);
  expectRoundTrip(*target_);
}

TEST_F(CloneBetween, ReturnsWhyNothingWasCloned) {
  const OdDbObjectIdArray none{OdDbObjectId()}, erased{addLine(*source_, {0, 0, 0}, {1, 0, 0})},
      foreign{addLine(*target_, {0, 0, 0}, {1, 0, 0})};
  erased[0].safeOpenObject(OdDb::kForWrite)->erase();
  const OdDbObjectId space = target_->getModelSpaceId();
  const std::string before = drawing::canonicalDump(*target_);
  EXPECT_EQ(source_->wblockCloneObjects(none, space, mapping_, OdDb::kDrcReplace), eNullObjectId);
  EXPECT_EQ(source_->wblockCloneObjects(erased, space, mapping_, OdDb::kDrcReplace), eWasErased);
  EXPECT_EQ(source_->wblockCloneObjects(foreign, space, mapping_, OdDb::kDrcReplace), eWrongDatabase);
  EXPECT_EQ(source_->wblockCloneObjects(erased, OdDbObjectId(), mapping_, OdDb::kDrcReplace), eNullObjectId);
  EXPECT_EQ(source_->deepCloneObjects(erased, OdDbObjectId(), mapping_), eNullObjectId);
  mapping_.setObjectLimit(3); // the reference needs its layer, two blocks and what is in them
  EXPECT_EQ(clone(space, OdDb::kDrcReplace), eBudgetExceeded);
  EXPECT_EQ(drawing::canonicalDump(*target_), before);
}

} // namespace
