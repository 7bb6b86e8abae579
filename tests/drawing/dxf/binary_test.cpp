// Binary files: both widths of codes, values that text files can hold and these cannot, damage with its byte offset.
#include "drawing/file.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

#include <array>
#include <bit>
#include <limits>

using namespace tests;
using drawing::ReadResult;

namespace {

std::string asBinary(const OdDbDatabase& database, drawing::WriteResult* result = nullptr) {
  return drawing::writeDrawingToMemory(database, {.form = drawing::WriteOptions::kBinary}, result);
}

// A file of early versions: codes of one byte, 255 in front of those that need two.
std::string r12File(const std::string& groups) {
  const std::string sentence = asBinary(*OdDbDatabase::create()).substr(0, 22);
  const auto text = [](char code, const std::string& value) { return code + value + '\0'; };
  return sentence + text(0, "SECTION") + text(2, "HEADER") + text(9, "$ACADVER") + text(1, "AC1009") +
         text(0, "ENDSEC") + text(0, "SECTION") + text(2, "ENTITIES") + groups + text(0, "ENDSEC") + text(0, "EOF");
}

std::string real(double value) {
  const auto bytes = std::bit_cast<std::array<char, 8>>(value);
  return {bytes.begin(), bytes.end()};
}

TEST(BinaryForm, R12FilesHaveCodesOfOneByte) {
  const std::string point = std::string("\0POINT\0\5A1\0\10wall\0", 17) + "\12" + real(1.5) + "\24" + real(-2) + "\76" +
                            std::string("\3\0", 2) + // colour
                            std::string("\377\351\3ACAD\0", 8) + std::string("\377\57\4\377\377\377\377", 7);
  const ReadResult read = readWell(r12File(point));
  EXPECT_TRUE(read.database->fileInfo().binary);
  EXPECT_EQ(read.database->fileInfo().version, OdDb::kRelease12);
  const OdDbEntityPtr entity(read.database->objectIdOf(0xA1).safeOpenObject());
  EXPECT_EQ(entity->layer(), OdString(L"wall"));
  EXPECT_EQ(entity->colorIndex(), 3);
  const std::string dump = drawing::canonicalDump(*read.database);
  EXPECT_NE(dump.find(" 10 1.5\n"), std::string::npos);
  EXPECT_NE(dump.find("1071 -1\n"), std::string::npos);
}

// What a text file holds and a number cannot, is told and nothing else is harmed.
TEST(BinaryForm, ValuesThatDoNotFitTheirCodeAreReported) {
  const struct {
    const char* group;
    bool fits;
  } cases[] = {{"1070|70000\n", false}, {"1070|65535\n", true},      {"1070|x\n", false}, {"1040|nan\n", true},
               {"1040|1e999\n", false}, {"1071|4294967295\n", true}, {"1005|zz\n", true}, {"1004|0\n", false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.group);
    const std::string point = "0|POINT\n5|A1\n8|0\n10|1\n20|2\n1001|ACAD\n";
    const ReadResult read = readWell(dxf(section("ENTITIES", point + c.group + "1000|end\n")));
    drawing::WriteResult result;
    const ReadResult again = readWell(asBinary(*read.database, &result));
    EXPECT_EQ(result.report.has("dxf.value-not-in-binary"), !c.fits);
    if (!c.fits) {
      EXPECT_EQ(result.report.issues().at(0).handle, 0xA1u);
    }
    EXPECT_NE(drawing::canonicalDump(*again.database).find("1000 end"), std::string::npos);
  }
}

TEST(BinaryForm, TextsKeepZerosAndLineBreaks) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  addText(*database, OdString(L"a\0b", 3));
  addText(*database, L"up^Jdown");
  expectRoundTrip(*database);
  std::string bytes = asBinary(*database);
  bytes.replace(bytes.find("up^J"), 4, "up\r\n"); // as other programs write it
  const ReadResult read = readWell(bytes);
  EXPECT_NE(drawing::canonicalDump(*read.database).find("  1 up^M^Jdown\n"), std::string::npos);
}

TEST(BinaryForm, NumbersThatAreNotFiniteLeaveTheirRecordUnparsed) {
  const ReadResult read =
      readWell(r12File(std::string("\0POINT\0\5A1\0", 11) + "\12" + real(std::numeric_limits<double>::quiet_NaN())));
  EXPECT_EQ(read.report.counts.unparsed, 1u);
  expectRoundTrip(*read.database);
}

TEST(BinaryForm, AReadingOutOfStepEndsWithItsPlace) {
  std::string bytes = asBinary(*OdDbDatabase::create());
  const std::size_t at = bytes.find(std::string("\0\0TABLE\0", 8));
  bytes.insert(at, 1, '\x77');
  const ReadResult read = readWell(bytes);
  ASSERT_TRUE(read.report.has("dxf.cut-off") || read.report.has("dxf.binary-out-of-step"));
  EXPECT_GE(read.report.issues().at(0).line, at);
  EXPECT_EQ(drawing::describe(read.report.issues().at(0)).rfind("byte ", 0), 0u);
}

} // namespace
