// Renaming: whoever holds the name as text is told, nothing else changes, and what must keep its name does.
#include "DbNames.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

using namespace tests;
using drawing::NameFault;
using drawing::renameRecord;
using drawing::RenameResult;

namespace {

OdDbDatabasePtr house() {
  const std::string text =
      section("HEADER", "9|$ACADVER\n1|AC1015\n9|$CLAYER\n8|Attic\n9|$DIMBLK\n1|_dot\n9|$DIMBLK1\n1|dot\n") +
      section("TABLES",
              "0|TABLE\n2|LAYER\n5|2\n100|AcDbSymbolTable\n70|2\n"
              "0|LAYER\n5|C1\n100|AcDbSymbolTableRecord\n100|AcDbLayerTableRecord\n2|attic\n70|0\n62|7\n6|Continuous\n"
              "0|LAYER\n5|C2\n100|AcDbSymbolTableRecord\n100|AcDbLayerTableRecord\n2|plan|roof\n70|16\n62|7\n"
              "6|Continuous\n0|ENDTAB\n0|TABLE\n2|BLOCK_RECORD\n5|1\n100|AcDbSymbolTable\n70|2\n"
              "0|BLOCK_RECORD\n5|D1\n100|AcDbSymbolTableRecord\n100|AcDbBlockTableRecord\n2|_DOT\n"
              "0|BLOCK_RECORD\n5|D2\n100|AcDbSymbolTableRecord\n100|AcDbBlockTableRecord\n2|window\n"
              "1001|AcDbDynamicBlockTrueName\n1000|Window\n1001|OTHER\n1000|window\n"
              "0|BLOCK_RECORD\n5|D3\n100|AcDbSymbolTableRecord\n100|AcDbBlockTableRecord\n2|*U4\n0|ENDTAB\n") +
      section("ENTITIES", "0|LINE\n5|E1\n100|AcDbEntity\n8|attic\n100|AcDbLine\n10|0\n20|0\n30|0\n11|1\n21|1\n31|0\n"
                          "1001|ACAD\n1003|ATTIC\n1000|attic\n"
                          "0|LINE\n5|E2\n100|AcDbEntity\n8|attic\n100|AcDbLine\n10|wide\n"
                          "0|INSERT\n5|E3\n100|AcDbEntity\n8|0\n100|AcDbBlockReference\n2|window\n10|0\n20|0\n30|0\n");
  std::string lines = text; // a bar would end a line
  lines.replace(lines.find("plan|roof"), 9, "plan\x01roof");
  std::string bytes = dxf(lines, "");
  bytes[bytes.find('\x01')] = '|';
  return drawing::readDrawingFromMemory(bytes).database;
}

std::string written(const OdDbDatabase& database) {
  return drawing::writeDrawingToMemory(database);
}

std::size_t occurrences(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
    ++count;
  return count;
}

TEST(Rename, LayersInPropertiesHeaderAndData) {
  const OdDbDatabasePtr database = house();
  expectUndoRestores(
      *database, [&] { EXPECT_EQ(renameRecord(*database, OdDb::kLayerTable, L"ATTIC", L"loft"), RenameResult::Done); });
  EXPECT_EQ(database->headerText("CLAYER"), L"loft");
  const std::string text = written(*database);
  EXPECT_EQ(occurrences(text, "\nATTIC\n") + occurrences(text, "\nAttic\n"), 0u);
  EXPECT_EQ(occurrences(text, "1003\nloft\n"), 1u);
  EXPECT_EQ(occurrences(text, "1000\nattic\n"), 1u); // a text is only a text
  EXPECT_TRUE(drawing::readDrawingFromMemory(text).database->symbol(OdDb::kLayerTable, L"attic").isNull());
  expectSound(*database);
}

TEST(Rename, NamesInSectionsThatAreKeptAsFilesHoldThem) {
  const OdDbDatabasePtr database =
      drawing::readDrawingFromMemory(
          dxf(section("TABLES", "0|TABLE\n2|STYLE\n5|3\n100|AcDbSymbolTable\n70|1\n0|STYLE\n5|D4\n"
                                "100|AcDbSymbolTableRecord\n100|AcDbTextStyleTableRecord\n2|notes\n70|0\n0|ENDTAB\n") +
              section("ENTITIES", "0|ACAD_TABLE\n5|E1\n100|AcDbEntity\n8|0\n100|AcDbBlockReference\n10|0\n20|0\n30|0\n"
                                  "100|AcDbTable\n7|notes\n1|notes\n")))
          .database;
  expectUndoRestores(*database, [&] {
    EXPECT_EQ(renameRecord(*database, OdDb::kTextStyleTable, L"Notes", L"remarks"), RenameResult::Done);
  });
  const std::string text = written(*database);
  EXPECT_NE(text.find("  7\nremarks\n  1\nnotes\n"), std::string::npos);
}

TEST(Rename, BlocksWithTheirTrueNameAndArrows) {
  const OdDbDatabasePtr database = house();
  expectUndoRestores(*database, [&] {
    EXPECT_EQ(renameRecord(*database, OdDb::kBlockTable, L"window", L"Window"), RenameResult::Done);
    EXPECT_EQ(renameRecord(*database, OdDb::kBlockTable, L"WINDOW", L"big window"), RenameResult::Done);
    EXPECT_EQ(renameRecord(*database, OdDb::kBlockTable, L"_dot", L"blob"), RenameResult::Done);
  });
  EXPECT_EQ(database->headerText("DIMBLK"), L"blob");
  EXPECT_EQ(database->headerText("DIMBLK1"), L"blob");
  const std::string text = written(*database);
  EXPECT_NE(text.find("AcDbDynamicBlockTrueName\n1000\nbig window\n"), std::string::npos);
  EXPECT_NE(text.find("OTHER\n1000\nwindow\n"), std::string::npos);
  expectRoundTrip(*database);
}

TEST(Rename, RefusesAndChangesNothing) {
  const struct {
    OdDb::SymbolTableKind kind;
    const wchar_t* from;
    const wchar_t* to;
    RenameResult result;
  } cases[] = {
      {OdDb::kLayerTable, L"cellar", L"loft", RenameResult::Unknown},
      {OdDb::kLayerTable, L"0", L"zero", RenameResult::Fixed},
      {OdDb::kLayerTable, L"plan|roof", L"roof", RenameResult::External},
      {OdDb::kLayerTable, L"attic", L"0", RenameResult::Taken},
      {OdDb::kLayerTable, L"attic", L"", RenameResult::Illegal},
      {OdDb::kBlockTable, L"window", L"a|b", RenameResult::Illegal},
      {OdDb::kBlockTable, L"window", L"_Dot", RenameResult::Taken},
      {OdDb::kBlockTable, L"*Model_Space", L"space", RenameResult::Space},
      {OdDb::kBlockTable, L"*U4", L"chair", RenameResult::Anonymous},
      {OdDb::kTextStyleTable, L"Standard", L"plain", RenameResult::Fixed},
      {OdDb::kLinetypeTable, L"BYLAYER", L"solid", RenameResult::Fixed},
  };
  const OdDbDatabasePtr database = house();
  const std::string before = drawing::canonicalDump(*database);
  for (const auto& row : cases)
    EXPECT_EQ(renameRecord(*database, row.kind, row.from, row.to), row.result) << OdString(row.from).toUtf8();
  EXPECT_EQ(firstDifference(before, drawing::canonicalDump(*database)), "");
}

TEST(NameRules, DependOnTheVersion) {
  const struct {
    OdString name;
    NameFault now, before2000;
  } cases[] = {
      {L"door", NameFault::None, NameFault::None},
      {L"door 1", NameFault::None, NameFault::Character},
      {L"дверь", NameFault::None, NameFault::Character},
      {L" door", NameFault::Blank, NameFault::Character},
      {L"a\tb", NameFault::Character, NameFault::Character},
      {L"a*b", NameFault::Character, NameFault::Character},
      {L"", NameFault::Empty, NameFault::Empty},
      {OdString(L'x', 31), NameFault::None, NameFault::None},
      {OdString(L'x', 32), NameFault::None, NameFault::TooLong},
      {OdString(L'x', 256), NameFault::TooLong, NameFault::TooLong},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(drawing::nameFault(row.name, OdDb::kRelease2000), row.now) << row.name.toUtf8();
    EXPECT_EQ(drawing::nameFault(row.name, OdDb::kRelease12), row.before2000) << row.name.toUtf8();
  }
}

} // namespace
