// Every definition of real drawings becomes a drawing of its own: with the same contents, with what they need and
// nothing else, and inserted again it is the definition that it was.
#include "DbBlockTable.h"
#include "DbCompare.h"
#include "DbDynBlockReference.h"
#include "DbPurge.h"
#include "DbWblock.h"
#include "tests/corpus/drawings.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

#include <gtest/gtest.h>

namespace {

using namespace tests;

OdDbObjectIdArray definitionsOf(const OdDbDatabase& database) {
  OdDbObjectIdArray ids;
  const auto table = forRead<OdDbBlockTable>(database.getBlockTableId());
  for (const auto walk = table->newIterator(); !walk->done(); walk->step()) {
    const auto block = forRead<OdDbBlockTableRecord>(walk->getRecordId());
    if (!block->isLayout() && !block->isFromExternalReference())
      ids.append(walk->getRecordId());
  }
  return ids;
}

// Names of what a drawing holds beyond what an empty one does and what is used.
std::vector<std::string> unused(OdDbDatabase& made) {
  std::vector<std::string> names;
  const drawing::PurgePlan plan(made);
  for (const OdDbObjectId id : plan.purgeable())
    names.push_back(id.safeOpenObject()->dxfName() + " " + id.getHandle().ascii());
  return names;
}

std::string nameOf(OdDbObjectId block) {
  return forRead<OdDbBlockTableRecord>(block)->getName().toUtf8Lossless();
}

void expectOwnDrawing(OdDbObjectId block) {
  SCOPED_TRACE(nameOf(block));
  const OdDbDatabasePtr made = drawing::wblockBlock(block);
  ASSERT_FALSE(made.isNull());
  EXPECT_TRUE(drawing::sameDefinition(block, made->getModelSpaceId()));
  EXPECT_EQ(unused(*made), std::vector<std::string>());
  expectSound(*made);
  const drawing::ReadResult read = drawing::readDrawingFromMemory(drawing::writeDrawingToMemory(*made));
  ASSERT_FALSE(read.database.isNull());
  EXPECT_EQ(read.report.outcome(), drawing::Outcome::Whole);
  EXPECT_TRUE(drawing::sameDefinition(made->getModelSpaceId(), read.database->getModelSpaceId()));
  const OdDbDatabasePtr into = OdDbDatabase::create();
  const OdDbObjectId again = into->insert(L"written and read", read.database.get());
  ASSERT_FALSE(again.isNull());
  EXPECT_TRUE(drawing::sameDefinition(block, again));
  EXPECT_EQ(OdDbDynBlockTableRecord(again).isDynamicBlock(), OdDbDynBlockTableRecord(block).isDynamicBlock());
  expectSound(*into);
}

TEST(Wblock, EveryDefinitionBecomesADrawingAndComesBack) {
  std::size_t definitions = 0, dynamic = 0;
  corpus::forEachDrawing([&](const std::string&, const drawing::ReadResult& read) {
    for (const OdDbObjectId block : definitionsOf(*read.database)) {
      expectOwnDrawing(block);
      ++definitions;
      dynamic += OdDbDynBlockTableRecord(block).isDynamicBlock() ? 1 : 0;
    }
  });
  EXPECT_GT(definitions, 500U);
  EXPECT_GT(dynamic, 10U);
}

} // namespace
