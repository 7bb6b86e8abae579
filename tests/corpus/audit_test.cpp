// Real drawings, damaged ones among them, are whole once they were read, mended and written.
#include "DbAudit.h"
#include "DbDxf.h"
#include "DbPurge.h"
#include "tests/support/oracles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace {

std::vector<std::string> drawings() {
  const char* folder = std::getenv("BLOCKCOMMON_CORPUS");
  std::vector<std::string> paths;
  if (folder == nullptr)
    return paths;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.path().extension() == ".dxf")
      paths.push_back(entry.path().string());
  }
  std::sort(paths.begin(), paths.end());
  return paths;
}

TEST(Audit, MendedDrawingsAreWhole) {
  const std::vector<std::string> paths = drawings();
  ASSERT_GT(paths.size(), 300u) << "BLOCKCOMMON_CORPUS";
  for (const std::string& path : paths) {
    SCOPED_TRACE(path);
    const drawing::ReadResult read = drawing::readDrawing(path);
    if (read.database.isNull())
      continue; // why is another test's matter
    drawing::auditDrawing(*read.database, true);
    tests::expectSound(*read.database);
    const OdDbDatabasePtr again = tests::expectRoundTrip(*read.database);
    if (!again.isNull())
      tests::expectSound(*again);
  }
}

TEST(Purge, IsStableAndLeavesAWholeDrawing) {
  for (const std::string& path : drawings()) {
    SCOPED_TRACE(path);
    const drawing::ReadResult read = drawing::readDrawing(path);
    if (read.database.isNull())
      continue;
    drawing::auditDrawing(*read.database, true);
    const drawing::PurgePlan plan(*read.database);
    for (OdDbObjectId id : plan.purgeable())
      id.safeOpenObject(OdDb::kForWrite)->erase();
    EXPECT_TRUE(drawing::PurgePlan(*read.database).purgeable().isEmpty());
    tests::expectSound(*read.database);
    const OdDbDatabasePtr again = tests::expectRoundTrip(*read.database);
    EXPECT_TRUE(again.isNull() || drawing::PurgePlan(*again).purgeable().isEmpty());
  }
}

} // namespace
