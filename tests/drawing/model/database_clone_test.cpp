// A copy of a drawing is the same drawing, and neither sees what happens to the other afterwards.
#include "DbDictionary.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

using namespace tests;

namespace {

class DatabaseClone : public ::testing::Test {
protected:
  DatabaseClone() : source_(skewedDrawing()) {
    block_ = addBlock(*source_, L"door");
    shape_ = addBlock(*source_, L"*U");
    text_ = addText(*source_, L"inside", block_);
    reference_ = addReference(*source_, block_);
    addAttribute(reference_, L"TAG", L"value");
    forWrite<OdDbText>(text_)->setLayer(addLayer(*source_, L"walls"));
    forWrite<OdDbText>(text_)->addPersistentReactor(reference_);
    const OdDbObjectId data = forWrite<OdDbText>(text_)->createExtensionDictionary();
    const auto record = OdDbXrecord::createObject();
    record->setValues(OdResBuf::make(330, reference_).get());
    forWrite<OdDbDictionary>(data)->setAt(L"LINK", record.get());
    drawing::GroupList& groups = source_->opaqueSections().emplace_back().groups;
    source_->opaqueSections().back().name = "OTHER";
    groups.utf8(0, "RECORD");
    groups.reference(330, text_);
    erase();
  }

  // One of each place where an erased object can still be named.
  void erase() {
    const OdDbObjectId member = addText(*source_, L"erased", block_);
    const OdDbObjectId record = addLayer(*source_, L"erased");
    const auto entry = OdDbXrecord::createObject();
    forWrite<OdDbDictionary>(source_->getNamedObjectsDictionaryId())->setAt(L"ERASED", entry.get());
    forWrite<OdDbText>(text_)->addPersistentReactor(member);
    addAttribute(reference_, L"ERASED", L"");
    const OdDbObjectId attribute = source_->objectIdOf(source_->handseed() - 1);
    addReference(*source_, block_);
    const OdDbObjectId other = source_->objectIdOf(source_->handseed() - 1);
    for (OdDbObjectId id : {member, record, entry->objectId(), attribute, other})
      forWrite<OdDbObject>(id)->erase();
  }

  OdDbDatabasePtr source_;
  OdDbObjectId block_, shape_, text_, reference_;
};

TEST_F(DatabaseClone, IsTheSameDrawingWhenTheSourceIsClosed) {
  expectEqualClone(source_->clone()); // a copy of a copy as well
  expectEqualClone(std::move(source_));
}

TEST_F(DatabaseClone, BelongsToItselfAndBeginsAfresh) {
  source_->startUndoRecord();
  forWrite<OdDbText>(text_)->setHeight(9);
  const OdDbDatabasePtr copy = source_->clone();
  EXPECT_FALSE(copy->hasUndo());
  EXPECT_EQ(copy->handseed(), source_->handseed());
  EXPECT_EQ(copy->symbol(OdDb::kLayerTable, L"ERASED"), OdDbObjectId());
  const OdDbObjectId block = copy->symbol(OdDb::kBlockTable, L"DOOR");
  EXPECT_EQ(block.database(), copy.get());
  EXPECT_EQ(block.getHandle(), block_.getHandle());
  EXPECT_EQ(forRead<OdDbBlockTableRecord>(block)->getBlockReferenceIds().size(), 1u);
  EXPECT_EQ(forRead<OdDbBlockTableRecord>(addBlock(*copy, L"*U"))->getName(), L"*U2");
  EXPECT_THROW(addReference(*copy, block, block), OdError) << "a block that contains itself";
}

TEST_F(DatabaseClone, ChangesOfOneAreNotSeenInTheOther) {
  const OdDbDatabasePtr copy = source_->clone();
  for (const auto& [changed, other] : {std::pair(copy.get(), source_.get()), std::pair(source_.get(), copy.get())}) {
    SCOPED_TRACE(changed == copy.get() ? "the copy changes" : "the source changes");
    const std::string dump = drawing::canonicalDump(*other), bytes = drawing::writeDrawingToMemory(*other);
    expectUndoRestores(*changed, [database = changed, this] {
      const auto same = [database](OdDbObjectId id) { return database->objectIdOf(id.getHandle()); };
      forWrite<OdDbText>(same(text_))->setTextString(L"changed");
      addAttribute(same(reference_), L"NEW", L"value");
      addText(*database, L"new", same(block_));
      forWrite<OdDbBlockTableRecord>(same(shape_))->setName(L"renamed");
      database->setHeaderReal("LTSCALE", 40, 3);
    });
    changed->opaqueSections().clear();
    EXPECT_EQ(firstDifference(dump, drawing::canonicalDump(*other)), "");
    EXPECT_TRUE(bytes == drawing::writeDrawingToMemory(*other));
  }
}

} // namespace
