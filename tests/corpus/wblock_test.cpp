// Every definition of real drawings becomes a drawing of its own: with the same contents, with what they need and
// nothing else, and inserted again it is the definition that it was.
#include "DbDynBlockReference.h"
#include "drawing/audit.h"
#include "drawing/compare.h"
#include "drawing/purge.h"
#include "drawing/wblock.h"
#include "tests/corpus/drawings.h"
#include "tests/support/oracles.h"
#include "tests/support/program_run.h"
#include "tests/support/scratch_folder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

using namespace tests;
using Json = nlohmann::json;

OdDbObjectIdArray definitionsOf(const OdDbDatabase& database) {
  OdDbObjectIdArray ids;
  const auto table = forRead<OdDbBlockTable>(database.getBlockTableId());
  for (const auto iterator = table->newIterator(); !iterator->done(); iterator->step()) {
    const auto block = forRead<OdDbBlockTableRecord>(iterator->getRecordId());
    if (!block->isLayout() && !block->isFromExternalReference())
      ids.append(iterator->getRecordId());
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
  EXPECT_EQ(read.report.outcome(), drawing::Outcome::kWhole);
  EXPECT_TRUE(drawing::sameDefinition(made->getModelSpaceId(), read.database->getModelSpaceId()));
  const OdDbDatabasePtr into = OdDbDatabase::create();
  const OdDbObjectId again = into->insert(L"written and read", read.database.get());
  ASSERT_FALSE(again.isNull());
  EXPECT_TRUE(drawing::sameDefinition(block, again));
  EXPECT_EQ(OdDbDynBlockTableRecord(again).isDynamicBlock(), OdDbDynBlockTableRecord(block).isDynamicBlock());
  expectSound(*into);
}

TEST(Wblock, EveryDefinitionRoundTripsThroughAFile) {
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

// What `one` uses the other has under the same name, with the same properties.
void expectUsedRecords(OdDbDatabase& one, OdDbDatabase& other) {
  const drawing::PurgePlan plan(one);
  for (const drawing::PurgeKind& kind : drawing::purgeKinds()) {
    for (const OdDbObjectId id : drawing::objectsOfKind(one, kind)) {
      const auto record = OdDbSymbolTableRecord::cast(id.safeOpenObject());
      // Files of shapes have no name, and anonymous blocks are renamed.
      const bool isNamed = !record.isNull() && !record->getName().isEmpty() && record->getName().left(1) != L"*";
      if (!isNamed || plan.statusOf(id) != drawing::PurgePlan::Status::kUsed)
        continue;
      SCOPED_TRACE(std::string(kind.name) + " " + record->getName().toUtf8Lossless());
      const OdDbObjectId there = other.symbol(record->tableKind(), record->getName());
      if (there.isNull())
        ADD_FAILURE() << "is not there";
      else if (record->isKindOf(OdDbBlockTableRecord::desc()))
        EXPECT_TRUE(drawing::sameDefinition(id, there));
      else
        EXPECT_TRUE(drawing::sameRecord(id, there));
    }
  }
}

TEST(Wblock, ModelSpaceAndWholeDrawingsAreWrittenUnchanged) {
  corpus::forEachDrawing([](const std::string&, const drawing::ReadResult& read) {
    const OdDbDatabasePtr& source = read.database;
    const bool isSound = drawing::auditDrawing(*source).issues().empty();
    const std::string before = drawing::canonicalDump(*source);
    OdDbObjectIdArray objects;
    for (const OdDbObjectId id : forRead<OdDbBlockTableRecord>(source->getModelSpaceId())->drawOrder())
      objects.append(id);
    const OdDbDatabasePtr picked = drawing::wblockObjects(objects), whole = drawing::wblockDrawing(*source);
    ASSERT_EQ(picked.isNull(), objects.isEmpty());
    ASSERT_FALSE(whole.isNull());
    if (!picked.isNull()) {
      picked->setINSBASE(source->getINSBASE());
      EXPECT_TRUE(drawing::sameDefinition(source->getModelSpaceId(), picked->getModelSpaceId()));
      EXPECT_EQ(unused(*picked), std::vector<std::string>());
      if (isSound) // what names nothing in the source is not named in the file
        expectUsedRecords(*picked, *source);
      expectSound(*picked);
    }
    EXPECT_EQ(unused(*whole), std::vector<std::string>());
    expectUsedRecords(*source, *whole);
    EXPECT_TRUE(!isSound || drawing::auditDrawing(*whole).issues().empty());
    EXPECT_EQ(firstDifference(before, drawing::canonicalDump(*source)), "");
  });
}

// By one command; the samples hold the same in every version.
TEST(Wblock, TheRichSampleIsWrittenBlockByBlock) {
  for (const char* version : {"AC1009_ascii", "AC1015_ascii", "AC1021_ascii", "AC1032_ascii", "AC1032_binary"}) {
    const std::string sample = corpus::folder() + "sample-versions/sample_" + version + ".dxf";
    SCOPED_TRACE(sample);
    const ScratchFolder scratch;
    const std::string folder = scratch.at("blocks");
    const Outcome run = runMorvane({"wblock", sample, "--every-block", folder, "--json"});
    const Json blocks = Json::parse(run.results)["results"]["blocks"];
    const OdDbDatabasePtr source = drawing::readDrawing(sample).database;
    ASSERT_EQ(blocks.size(), definitionsOf(*source).size());
    for (const Json& row : blocks) {
      SCOPED_TRACE(row["block"]);
      const OdDbObjectId block = source->objectIdOf(std::stoull(row["handle"].get<std::string>(), nullptr, 16));
      const drawing::ReadResult file = drawing::readDrawing(folder + "/" + row["file"].get<std::string>());
      ASSERT_FALSE(file.database.isNull());
      EXPECT_EQ(file.report.outcome(), drawing::Outcome::kWhole);
      expectSound(*file.database);
      EXPECT_EQ(entitiesOf(file.database->getModelSpaceId()).isEmpty(), row["objects"] == 0);
      const OdDbDatabasePtr into = OdDbDatabase::create();
      EXPECT_TRUE(drawing::sameDefinition(block, into->insert(L"inserted", file.database.get())));
      EXPECT_GT(std::filesystem::file_size(folder + "/" + row["preview"].get<std::string>()), 100U);
    }
  }
}

} // namespace
