#include "tests/support/oracles.h"

#include "drawing/audit.h"
#include "drawing/file.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tests {

namespace {

std::string_view takeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find('\n'), text.size());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return line;
}

} // namespace

std::string firstDifference(const std::string& before, const std::string& after) {
  std::string_view a = before, b = after;
  std::string record;
  while (!a.empty() || !b.empty()) {
    const std::string_view lineA = takeLine(a), lineB = takeLine(b);
    if (lineA != lineB)
      return "in \"" + record + "\": \"" + std::string(lineA) + "\" against \"" + std::string(lineB) + "\"";
    if (!lineA.empty() && lineA[0] != ' ')
      record = lineA;
  }
  return {};
}

void expectUndoRestores(OdDbDatabase& database, const std::function<void()>& change) {
  database.startUndoRecord();
  const std::string before = drawing::canonicalDump(database);
  change();
  const std::string after = drawing::canonicalDump(database);
  EXPECT_NE(before, after) << "the change changed nothing";
  ASSERT_EQ(database.undo(), eOk);
  EXPECT_EQ(firstDifference(before, drawing::canonicalDump(database)), "") << "undone";
  ASSERT_EQ(database.redo(), eOk);
  EXPECT_EQ(firstDifference(after, drawing::canonicalDump(database)), "") << "redone";
}

static OdDbDatabasePtr readBack(const OdDbDatabase& database, drawing::WriteOptions::Form form) {
  SCOPED_TRACE(form == drawing::WriteOptions::kBinary ? "binary" : "text");
  // What came earlier than 2000 has no objects to keep.
  const drawing::WriteOptions options{.form = form,
                                      .version = std::max(database.fileInfo().version, OdDb::kRelease2000)};
  drawing::WriteResult written;
  drawing::ReadResult read = drawing::readDrawingFromMemory(drawing::writeDrawingToMemory(database, options, &written));
  if (written.report.has("dxf.value-not-in-binary"))
    return read.database; // text that should be a number: only text files can hold it
  EXPECT_FALSE(read.database.isNull()) << read.message;
  if (read.database.isNull())
    return nullptr;
  for (const drawing::Issue& issue : read.report.issues()) {
    const bool isUnparsed = issue.code == "dxf.value-unreadable"; // it was written as it stood
    EXPECT_TRUE(isUnparsed || issue.severity == drawing::Severity::kNote) << drawing::describe(issue);
  }
  EXPECT_EQ(firstDifference(drawing::canonicalDump(database), drawing::canonicalDump(*read.database)), "");
  return read.database;
}

OdDbDatabasePtr expectRoundTrip(const OdDbDatabase& database) {
  if (OdDbDatabasePtr again = readBack(database, drawing::WriteOptions::kBinary); !again.isNull())
    expectEqualClone(std::move(again));
  return readBack(database, drawing::WriteOptions::kText);
}

void expectEqualClone(OdDbDatabasePtr database) {
  const drawing::WriteOptions text{.form = drawing::WriteOptions::kText};
  const std::string dump = drawing::canonicalDump(*database), bytes = drawing::writeDrawingToMemory(*database, text);
  const OdDbDatabasePtr copy = database->clone();
  database = OdDbDatabasePtr(); // an id that still is one of the source names nothing now
  EXPECT_EQ(firstDifference(dump, drawing::canonicalDump(*copy)), "");
  EXPECT_TRUE(bytes == drawing::writeDrawingToMemory(*copy, text)) << "the files differ";
}

void expectSound(OdDbDatabase& database) {
  const drawing::Report report = drawing::auditDrawing(database);
  for (const drawing::Issue& issue : report.issues())
    ADD_FAILURE() << describe(issue);
}

void skewHandles(OdDbDatabase& database) {
  database.setHandseed(database.handseed() + 0x1000);
}

} // namespace tests
