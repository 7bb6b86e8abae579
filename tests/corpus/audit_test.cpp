// Real drawings, damaged ones among them, are whole once they were read, repaired and written.
#include "drawing/audit.h"
#include "drawing/purge.h"
#include "tests/corpus/drawings.h"
#include "tests/corpus/groups.h"
#include "tests/support/oracles.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

TEST(Audit, RepairedDrawingsAreSoundAndPurgingThemIsStable) {
  std::size_t repaired = 0;
  corpus::forEachDrawing([&](const std::string&, const drawing::ReadResult& read) {
    drawing::auditDrawing(*read.database, true);
    tests::expectSound(*read.database);
    OdDbDatabasePtr again = tests::expectRoundTrip(*read.database);
    if (!again.isNull())
      tests::expectSound(*again);
    const drawing::PurgePlan plan(*read.database);
    for (OdDbObjectId id : plan.purgeable())
      id.safeOpenObject(OdDb::kForWrite)->erase();
    EXPECT_TRUE(drawing::PurgePlan(*read.database).purgeable().isEmpty());
    tests::expectSound(*read.database);
    again = tests::expectRoundTrip(*read.database);
    EXPECT_TRUE(again.isNull() || drawing::PurgePlan(*again).purgeable().isEmpty());
    ++repaired;
  });
  EXPECT_GT(repaired, 300u);
}

TEST(Reading, CountsEveryRecord) {
  const std::initializer_list<const char*> drops = {"dxf.outside-section",       "dxf.outside-block",
                                                    "dxf.record-in-header",      "dxf.record-outside-table",
                                                    "dxf.wrong-record-in-table", "dxf.stray-sequence-end"};
  corpus::forEachDrawing([&](const std::string& path, const drawing::ReadResult& read) {
    if (read.database->fileInfo().binary || read.report.has("dxf.group-code-expected"))
      return; // there is nothing to count by
    const auto& counts = read.report.counts;
    EXPECT_EQ(counts.read + counts.opaque + counts.unparsed + counts.dropped,
              corpus::contentsOf(corpus::textOf(path)).starts);
    EXPECT_EQ(counts.dropped != 0,
              std::any_of(drops.begin(), drops.end(), [&](const char* code) { return read.report.has(code); }));
  });
}

} // namespace
