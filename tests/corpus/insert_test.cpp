// Every real drawing goes into one that has much in it already, as a block: the block shows what the file shows, the
// file's drawing and everything else of the target stay as they were, and taking it back leaves nothing.
#include "DbBlockTable.h"
#include "DbEntity.h"
#include "drawing/dump.h"
#include "tests/corpus/drawings.h"
#include "tests/support/oracles.h"

#include <vector>

namespace {

using namespace tests;

std::vector<OdRxClass*> kindsIn(OdDbObjectId block) {
  std::vector<OdRxClass*> kinds;
  for (const OdDbObjectId id : forRead<OdDbBlockTableRecord>(block)->drawOrder())
    kinds.push_back(id.objectClass());
  return kinds;
}

TEST(Insert, EveryDrawingIsTheBlockInItsModelSpace) {
  std::size_t inserted = 0;
  corpus::forEachDrawing([&](const std::string&, const drawing::ReadResult& read) {
    const OdDbDatabasePtr source = read.database, target = OdDbDatabase::create();
    skewHandles(*target);
    const std::string before = drawing::canonicalDump(*source);
    target->startUndoRecord();
    const std::string empty = drawing::canonicalDump(*target);
    const OdDbObjectId block = target->insert(L"the file", source.get(), true);
    ASSERT_FALSE(block.isNull());
    EXPECT_EQ(kindsIn(block), kindsIn(source->getModelSpaceId()));
    EXPECT_TRUE(corpus::sameExtents<OdDbBlockTableRecord>(source->getModelSpaceId(), block));
    EXPECT_EQ(target->insert(L"THE FILE", source.get(), true), block); // refilled
    EXPECT_EQ(kindsIn(block), kindsIn(source->getModelSpaceId()));
    EXPECT_EQ(firstDifference(before, drawing::canonicalDump(*source)), "");
    expectSound(*target);
    target->undo();
    EXPECT_EQ(firstDifference(empty, drawing::canonicalDump(*target)), "");
    ++inserted;
  });
  EXPECT_GT(inserted, 350u);
}

} // namespace
