// Real drawings, damaged ones among them, are whole once they were read, mended and written.
#include "DbAudit.h"
#include "DbDxf.h"
#include "DbPurge.h"
#include "tests/corpus/drawings.h"
#include "tests/support/oracles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>

namespace {

// Those that can be read at all.
std::vector<std::string> drawings() {
  std::vector<std::string> all = corpus::paths();
  std::erase_if(all, [](const std::string& path) { return path.substr(path.size() - 4) != ".dxf"; });
  return all;
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

// The records of a text file as anyone would count them: starts that are no brackets around others.
std::size_t recordsOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::size_t records = 0;
  for (std::string code, value; std::getline(in, code) && std::getline(in, value);) {
    if (code.find_first_not_of(" \t\r0") != std::string::npos || code.find('0') == std::string::npos)
      continue;
    value.erase(value.find_last_not_of('\r') + 1);
    if (value == "EOF")
      break;
    const bool isBracket = value == "SECTION" || value == "ENDSEC" || value == "TABLE" || value == "ENDTAB";
    records += isBracket ? 0 : 1;
  }
  return records;
}

TEST(Reading, AccountsForEveryRecord) {
  for (const std::string& path : drawings()) {
    SCOPED_TRACE(path);
    const drawing::ReadResult read = drawing::readDrawing(path);
    const bool countable =
        !read.database.isNull() && !read.database->facts().binary && !read.report.has("dxf.group-code-expected");
    if (!countable)
      continue;
    const auto& account = read.report.account;
    EXPECT_EQ(account.read + account.kept + account.keptUnread + account.dropped, recordsOf(path));
    EXPECT_EQ(account.dropped != 0,
              read.report.has("dxf.outside-section") || read.report.has("dxf.outside-block") ||
                  read.report.has("dxf.record-in-header") || read.report.has("dxf.record-outside-table") ||
                  read.report.has("dxf.wrong-record-in-table") || read.report.has("dxf.stray-sequence-end"));
  }
}

} // namespace
