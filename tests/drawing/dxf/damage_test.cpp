// Damaged files: whatever is wrong stays where it is. Reading never crashes, says what it found, and what it keeps
// comes back from the next file as it was.
#include "DbDictionary.h"
#include "drawing/audit.h"
#include "drawing/file.h"
#include "drawing/opaque_objects.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

#include <algorithm>

using namespace tests;
using drawing::ReadResult;

namespace {

// Behind the handle and the layer more groups may stand.
std::string line(const std::string& more, const std::string& handle = "A1", const std::string& layer = "0") {
  return "0|LINE\n5|" + handle + "\n100|AcDbEntity\n8|" + layer +
         "\n100|AcDbLine\n10|1\n20|2\n30|3\n11|4\n21|5\n31|6\n" + more;
}
// The lines end so in turn.
std::string endingIn(const std::string& text, const std::vector<std::string>& ends) {
  std::string changed;
  std::size_t line = 0;
  for (const char ch : text)
    changed += ch == '\n' ? ends[line++ % ends.size()] : std::string(1, ch);
  return changed;
}
std::string drawn(const std::string& entities, const std::string& version = "AC1015") {
  return dxf(section("ENTITIES", entities), version);
}
std::string tableText(const std::string& name, const std::string& records) {
  return tests::table(name, records, name == "BLOCK_RECORD" ? "1" : "2");
}
std::string blocks(const std::string& records, const std::string& definitions) {
  return section("TABLES", tableText("BLOCK_RECORD", records)) + section("BLOCKS", definitions);
}

std::size_t countInModelSpace(const OdDbDatabase& database) {
  return entitiesOf(database.getModelSpaceId()).size();
}

const drawing::Issue& issueOf(const ReadResult& read, const std::string& code) {
  for (const drawing::Issue& issue : read.report.issues()) {
    if (issue.code == code)
      return issue;
  }
  throw std::runtime_error(code + " was not told");
}

struct Oddity {
  const char* what;
  std::string text;
  const char* issue;    // "" for none
  std::size_t entities; // in model space
};

// Reads it, with the issue told, and writes it: what was mended stays mended.
ReadResult readOdd(const Oddity& row) {
  SCOPED_TRACE(row.what);
  ReadResult read = readWell(row.text);
  EXPECT_TRUE(row.issue[0] == 0 || read.report.has(row.issue));
  EXPECT_EQ(countInModelSpace(*read.database), row.entities);
  expectRoundTrip(*read.database);
  return read;
}

TEST(Damage, IsReportedAndRepaired) {
  const std::string aLine = section("ENTITIES", line("")), aDoor = section("ENTITIES", insert("A1", "door"));
  const Oddity cases[] = {
      {"handle used twice", drawn(line("") + line("")), "dxf.duplicate-handle", 2},
      {"block name used twice",
       dxf(blocks(blockRecord("B1", "door") + blockRecord("B2", "DOOR"), block("B1", "door") + block("B2", "DOOR"))),
       "dxf.duplicate-name", 0},
      {"block without record", dxf(blocks("", block("B1", "door")) + aDoor), "dxf.block-without-record", 1},
      {"block without name", dxf(blocks("", block("B1", ""))), "dxf.block-without-record", 0},
      {"layer that nobody defines", drawn(line("", "A1", "ghost")), "dxf.name-undefined", 1},
      {"block that nobody defines", drawn(insert("A1", "ghost")), "dxf.name-undefined", 1},
      {"number that is none", drawn(line("39|wide\n")), "dxf.value-unreadable", 1},
      {"not a number", drawn(line("39|nan\n")), "dxf.value-unreadable", 1},
      {"infinite", drawn(line("39|-inf\n")), "dxf.value-unreadable", 1},
      {"whole number out of range", drawn(line("", "A1", "0\n62|65792")), "dxf.value-unreadable", 1},
      {"too large", drawn(line("39|1e999\n")), "dxf.value-unreadable", 1},
      {"handle that is none", drawn(line("90|1\n", "XYZ")), "dxf.value-unreadable", 1},
      {"record outside sections", dxf(line("") + section("ENTITIES", line("", "A2"))), "dxf.outside-section", 1},
      {"record outside tables", dxf(section("TABLES", line(""))), "dxf.record-outside-table", 0},
      {"wrong record in a table", dxf(section("TABLES", tableText("LAYER", line("")))), "dxf.wrong-record-in-table", 0},
      {"unknown table", dxf(section("TABLES", tableText("CHAIRS", ""))), "dxf.unknown-table", 0},
      {"record outside blocks", dxf(section("BLOCKS", line(""))), "dxf.outside-block", 0},
      {"end of a sequence alone", drawn("0|SEQEND\n5|A1\n8|0\n" + line("", "A2")), "dxf.stray-sequence-end", 1},
      {"stray lines", drawn("rubbish\n" + line("")), "dxf.group-code-expected", 1},
      {"section without end", dxf("0|SECTION\n2|BLOCKS\n" + aLine), "dxf.end-missing", 1},
      {"table without end", dxf(section("TABLES", "0|TABLE\n2|LAYER\n5|2\n" + tableText("APPID", "")) + aLine),
       "dxf.end-missing", 1},
      {"block without end",
       dxf(section("BLOCKS", "0|BLOCK\n5|B1\n8|0\n2|a\n70|0\n10|0\n20|0\n" + line("", "A2") + block("B2", "b", "")) +
           aLine),
       "dxf.end-missing", 1},
      {"end of a section alone", dxf(aLine + "0|ENDSEC\n"), "dxf.stray-section-end", 1},
      {"groups behind the end of a section", dxf(section("BLOCKS", "") + "5|7\n" + aLine), "dxf.stray-group", 1},
      {"groups among the reactors", drawn(line("", "A1\n102|{ACAD_REACTORS\n330|DEAD\n1|x\n102|}")), "dxf.stray-group",
       1},
      {"two extension dictionaries", drawn(line("", "A1\n102|{ACAD_XDICTIONARY\n360|DEAD\n360|BEAD\n102|}")),
       "dxf.stray-group", 1},
      {"table record without block", dxf(blocks(blockRecord("B1", "door"), "") + aDoor), "dxf.record-without-block", 1},
      {"vertices without end", drawn("0|POLYLINE\n5|A1\n8|0\n66|1\n0|VERTEX\n5|A2\n8|0\n10|1\n20|1\n" + line("", "A3")),
       "dxf.sequence-without-end", 2},
      {"attributes cut off in a block",
       dxf(blocks(blockRecord("B1", "a") + blockRecord("B2", "b"),
                  block("B1", "a") +
                      block("B2", "b",
                            insert("A1", "a") + "0|ATTRIB\n5|A2\n100|AcDbEntity\n8|0\n100|AcDbText\n1|x\n"
                                                "100|AcDbAttribute\n2|TAG\n70|0\n"))),
       "dxf.sequence-without-end", 0},
      {"layout without block",
       dxf(section("OBJECTS", "0|DICTIONARY\n5|C\n330|0\n100|AcDbDictionary\n281|1\n3|ACAD_LAYOUT\n350|C1\n"
                              "0|DICTIONARY\n5|C1\n330|C\n100|AcDbDictionary\n281|1\n3|Model\n350|C2\n"
                              "0|LAYOUT\n5|C2\n330|C1\n100|AcDbPlotSettings\n1|\n100|AcDbLayout\n1|Model\n70|1\n71|0\n"
                              "330|DEAD\n")),
       "dxf.layout-without-block", 0},
      {"sheet without layout", dxf(blocks(blockRecord("B1", "*Paper_Space0"), block("B1", "*Paper_Space0", line("")))),
       "dxf.space-without-layout", 0},
      {"something behind the end", drawn(line("")) + "\x1a\nthe rest of the disk\n", "dxf.behind-end", 1},
      {"no end", drawn(line("")).substr(0, drawn(line("")).size() - 6), "dxf.no-end-of-file", 1},
  };
  for (const Oddity& row : cases)
    EXPECT_EQ(readOdd(row).report.outcome(), drawing::Outcome::kRepaired) << row.what;
}

// What is not as usual and loses nothing is told as a note, if at all.
TEST(Damage, OddFilesAreReadWhole) {
  const std::string plain = drawn(line("") + line("", "A2"));
  const std::string layers =
      tableText("LAYER", "0|LAYER\n5|F1\n100|AcDbSymbolTableRecord\n100|AcDbLayerTableRecord\n2|0\n70|0\n62|3\n");
  const std::string records = tableText("BLOCK_RECORD", blockRecord("1F", "*Model_Space") + blockRecord("B1", "door"));
  const std::string definitions = section("BLOCKS", block("1F", "*Model_Space") + block("B1", "door", line("", "A9")));
  const std::string entities = section("ENTITIES", line("330|1F\n") + insert("A2", "door"));
  const Oddity cases[] = {
      {"byte order mark", "\xEF\xBB\xBF" + plain, "", 2},
      {"ends of all kinds", endingIn(plain, {"\n", "\r\n", "\r"}), "dxf.mixed-line-ends", 2},
      {"returns alone", endingIn(plain, {"\r"}), "", 2},
      {"returns doubled", endingIn(plain, {"\r\r\n"}), "", 2},
      {"zeros behind the end", plain + std::string(1000, '\0'), "", 2},
      {"section twice", plain.substr(0, plain.size() - 6) + dxf(section("ENTITIES", line("", "A3")), ""),
       "dxf.section-repeated", 3},
      {"no handles", drawn("0|LINE\n100|AcDbEntity\n8|0\n100|AcDbLine\n10|0\n20|0\n11|1\n21|1\n"), "dxf.handle-missing",
       1},
      {"link to nothing", drawn(line("340|DEAD\n")), "dxf.broken-link", 1},
      {"vertex without a polyline", drawn("0|VERTEX\n5|A1\n8|0\n10|1\n20|1\n30|0\n70|0\n"), "dxf.stray-vertex", 1},
      {"version older than all", drawn(line(""), "AC1002"), "dxf.version-unknown", 1},
      {"version newer than all", drawn(line(""), "AC1050"), "dxf.version-unknown", 1},
      {"unknown code page", dxf(section("ENTITIES", line("")), "AC1015", "KLINGON"), "dxf.code-page-unknown", 1},
      {"entities before tables", dxf(entities + section("TABLES", layers + records) + definitions), "dxf.section-order",
       2},
      {"blocks before tables", dxf(definitions + section("TABLES", layers + records) + entities), "dxf.section-order",
       2},
      {"table twice", dxf(section("TABLES", layers + tableText("LAYER", "")) + section("ENTITIES", line(""))),
       "dxf.table-repeated", 1},
      {"very long line", drawn(line("1001|ACAD\n1000|" + std::string(3'000'000, 'x') + "\n")), "dxf.long-line", 1},
  };
  for (const Oddity& row : cases) {
    const ReadResult read = readOdd(row);
    for (const drawing::Issue& issue : read.report.issues())
      EXPECT_EQ(issue.severity, drawing::Severity::kNote) << row.what << describe(issue);
    EXPECT_EQ(read.report.counts.dropped, 0u) << row.what;
    EXPECT_TRUE(read.database->symbol(OdDb::kBlockTable, L"*Model_Space-2").isNull()) << row.what;
  }
  EXPECT_EQ(readWell(drawn(line(""), "AC1050")).database->fileInfo().version, OdDb::kRelease2018);
}

TEST(Damage, NamesWithoutObjectsArePreserved) {
  const ReadResult read = readWell(dxf(
      section("OBJECTS", "0|DICTIONARY\n5|C\n330|0\n100|AcDbDictionary\n281|1\n3|first\n3|\n3|second\n350|C1\n3|last\n"
                         "0|DICTIONARY\n5|C1\n330|C\n100|AcDbDictionary\n281|1\n")));
  EXPECT_EQ(read.report.outcome(), drawing::Outcome::kWhole);
  const auto root = forRead<OdDbDictionary>(read.database->getNamedObjectsDictionaryId());
  EXPECT_TRUE(root->getAt(L"first").isNull());
  EXPECT_EQ(root->getAt(L"second").getHandle(), OdDbHandle(0xC1));
  const std::string written = drawing::writeDrawingToMemory(*read.database, {});
  EXPECT_NE(written.find("\nfirst\n"), std::string::npos);
  EXPECT_NE(written.find("\nlast\n"), std::string::npos);
  expectRoundTrip(*read.database);
}

TEST(Damage, IsReportedWithItsLocationAndWrittenBackByteForByte) {
  const std::string text = drawn(line(" 39\nwide as  a door \n 62\n   007\n", "AB"));
  const ReadResult read = readWell(text);
  const drawing::Issue& found = issueOf(read, "dxf.value-unreadable");
  const std::string before = text.substr(0, text.find("wide"));
  EXPECT_EQ(found.line, static_cast<std::uint64_t>(std::count(before.begin(), before.end(), '\n')) + 1);
  EXPECT_EQ(found.groupCode, 39);
  EXPECT_EQ(found.handle, 0xABu);
  EXPECT_EQ(found.section + " " + found.kind, "ENTITIES LINE");
  EXPECT_TRUE(forRead<OdDbOpaqueEntity>(read.database->objectIdOf(0xAB))->isUnparsed());
  EXPECT_EQ(read.report.counts.unparsed, 1u);
  const std::string written = drawing::writeDrawingToMemory(*read.database);
  EXPECT_NE(written.find(" 39\nwide as  a door \n"), std::string::npos);
  EXPECT_NE(written.find("\nAcDbLine\n"), std::string::npos);
}

// What closes a circle is kept as data when the drawing is read, and gone when it was mended.
TEST(Damage, CyclesOfDefinitionsAreBrokenPermanently) {
  const std::string text =
      dxf(blocks(blockRecord("B1", "a") + blockRecord("B2", "b") + blockRecord("B3", "c"),
                 block("B1", "a", insert("A1", "b")) + block("B2", "b", insert("A2", "a") + insert("A3", "c")) +
                     block("B3", "c", insert("A4", "c"))) +
          section("ENTITIES", insert("A5", "a")));
  const ReadResult read = readWell(text);
  EXPECT_EQ(read.report.count("dxf.block-cycle"), 2u);
  EXPECT_GT(issueOf(read, "dxf.block-cycle").line, 0u); // found when all was read, and still with its place
  std::string cut;
  for (const OdDbHandle handle : {0xA1, 0xA2, 0xA3, 0xA4, 0xA5}) {
    const OdDbObjectPtr object = read.database->objectIdOf(handle).safeOpenObject();
    cut += object->isKindOf(OdDbBlockReference::desc()) ? "" : handle.ascii();
  }
  EXPECT_TRUE(cut == "A1A4" || cut == "A2A4") << cut;
  EXPECT_EQ(drawing::auditDrawing(*read.database, true).count("audit.block-cycle"), 2u);
  const ReadResult again = readWell(drawing::writeDrawingToMemory(*read.database));
  EXPECT_FALSE(again.report.has("dxf.block-cycle"));
  expectSound(*again.database);
}

TEST(Damage, WhatIsNoDrawingIsRefusedWithAReason) {
  const std::pair<std::string, OdResult> cases[] = {
      {"", eNotADrawing},
      {"\n\n \n", eNotADrawing},
      {"Dear reader,\nthis is a letter.\n", eNotADrawing},
      {"  0\nEOF\n", eNotADrawing},
      {std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16), eNotADrawing},
      {std::string("AC1032\0\0\0\0", 10), eUnsupportedFileFormat},
  };
  for (const auto& [text, result] : cases) {
    const ReadResult read = drawing::readDrawingFromMemory(text, "plan.dxf");
    EXPECT_TRUE(read.database.isNull()) << text;
    EXPECT_EQ(read.result, result) << text;
    EXPECT_EQ(read.message.rfind("plan.dxf", 0), 0u) << text << ": " << read.message;
    EXPECT_EQ(read.report.outcome(), drawing::Outcome::kRefused) << text;
  }
}

ReadResult readWithin(const drawing::Budget& budget, const std::string& text) {
  return drawing::readDrawingFromMemory(text, "x.dxf", {.budget = budget, .encoding = {}});
}

TEST(Damage, BudgetsEndTheReading) {
  std::string entities;
  for (unsigned i = 0; i < 200; ++i)
    entities += line("", OdDbHandle(0x1000 + i).ascii());
  const std::string text = drawn(entities);
  EXPECT_EQ(readWithin({.objects = 100}, text).result, eBudgetExceeded);
  EXPECT_EQ(readWithin({.bytes = 1000}, text).result, eBudgetExceeded);
  const ReadResult tooMuch = readWithin({.bytes = text.size() * 4}, text);
  EXPECT_EQ(tooMuch.result, eBudgetExceeded);
  EXPECT_EQ(tooMuch.message.rfind("x.dxf, line ", 0), 0u) << tooMuch.message;
  EXPECT_NE(tooMuch.message.find(std::to_string(text.size() * 4) + " bytes"), std::string::npos) << tooMuch.message;
  const ReadResult read = readWithin({.messages = 3}, dxf(section("BLOCKS", entities)));
  EXPECT_EQ(read.report.issues().size(), 3u);
  EXPECT_GE(read.report.suppressed(), 197u);
  std::string groups; // one huge record is given up in time: its groups are counted while they come
  for (int i = 0; i < 200'000; ++i)
    groups += "90|1\n";
  EXPECT_EQ(readWithin({.bytes = 2'000'000}, drawn(line(groups))).result, eBudgetExceeded);
}

TEST(Damage, DeepDefinitionsAreRefusedAndNotFollowed) {
  constexpr unsigned kDeep = 20'000;
  std::string records, definitions, inner;
  for (unsigned i = 0; i < kDeep; ++i) {
    const std::string name = "b" + std::to_string(i), handle = OdDbHandle(0x1000 + i).ascii();
    records += blockRecord(handle, name);
    definitions += block(handle, name, inner);
    inner = insert(OdDbHandle(0x10000 + i).ascii(), name);
  }
  const std::string text = dxf(blocks(records, definitions) + section("ENTITIES", inner));
  EXPECT_FALSE(readWithin({.depth = kDeep}, text).database.isNull());
  const ReadResult read = readWithin({.depth = kDeep - 1}, text);
  EXPECT_EQ(read.result, eBudgetExceeded);
  EXPECT_NE(read.message.find("19999 levels"), std::string::npos) << read.message;
}

// A drawing with every structure that reading has to close by itself.
std::string smallDrawing(drawing::WriteOptions::Form form = drawing::WriteOptions::kText) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId door = addBlock(*database, L"door");
  addText(*database, L"inside", door);
  addAttribute(addReference(*database, door), L"TAG", L"value");
  forWrite<OdDbText>(addText(*database, L"x"))->createExtensionDictionary();
  return drawing::writeDrawingToMemory(*database, {.form = form});
}

TEST(Damage, CutOffAnywhereItIsReadOrRefusedNeverSilently) {
  for (const auto form : {drawing::WriteOptions::kText, drawing::WriteOptions::kBinary}) {
    const bool isText = form == drawing::WriteOptions::kText;
    const std::string whole = smallDrawing(form);
    ASSERT_EQ(drawing::readDrawingFromMemory(whole).report.outcome(), drawing::Outcome::kWhole);
    const std::size_t end = isText ? whole.rfind("  0\nEOF") + 1 : whole.size() - 7;
    for (std::size_t at = 0; at < end; at = isText ? whole.find('\n', at) + 1 : at + 97) {
      const ReadResult read = drawing::readDrawingFromMemory(std::string_view(whole).substr(0, at), "cut");
      SCOPED_TRACE("cut at " + std::to_string(at));
      if (read.database.isNull()) {
        EXPECT_NE(read.result, eOk);
        EXPECT_EQ(read.message.rfind("cut", 0), 0u) << read.message;
        continue;
      }
      EXPECT_EQ(read.report.outcome(), drawing::Outcome::kRepaired);
      EXPECT_TRUE(read.report.has("dxf.no-end-of-file"));
      if (at % 16 == 0)
        expectRoundTrip(*read.database);
    }
  }
}

TEST(Damage, WithAnyLineMissingOrChangedItIsReadOrRefused) {
  const std::string whole = smallDrawing();
  for (std::size_t at = 0; at < whole.size(); at = whole.find('\n', at) + 1) {
    const std::size_t behind = whole.find('\n', at) + 1;
    for (const char* instead : {"", "0\n", "-1\n", "\xFF\xFE\n", "99999999999999999999\n"}) {
      std::string text = whole;
      text.replace(at, behind - at, instead);
      const ReadResult read = drawing::readDrawingFromMemory(text);
      EXPECT_EQ(read.database.isNull(), read.result != eOk) << "changed at " << at;
      if (!read.database.isNull())
        drawing::writeDrawingToMemory(*read.database);
    }
  }
}

} // namespace
