// Renaming: whoever holds the name as text is told, nothing else changes, and what must keep its name does.
#include "drawing/names.h"
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
              table("LAYER",
                    "0|LAYER\n5|C1\n100|AcDbSymbolTableRecord\n100|AcDbLayerTableRecord\n2|attic\n70|0\n62|7\n"
                    "6|Continuous\n0|LAYER\n5|C2\n100|AcDbSymbolTableRecord\n100|AcDbLayerTableRecord\n2|plan|roof\n"
                    "70|16\n62|7\n6|Continuous\n",
                    "2") +
                  table("BLOCK_RECORD",
                        blockRecord("D1", "_DOT") + blockRecord("D2", "window") +
                            "1001|AcDbDynamicBlockTrueName\n1000|Window\n1001|OTHER\n1000|window\n" +
                            blockRecord("D3", "*U4"),
                        "1") +
                  table("STYLE",
                        "0|STYLE\n5|D4\n100|AcDbSymbolTableRecord\n100|AcDbTextStyleTableRecord\n2|notes\n70|0\n",
                        "3")) +
      section("ENTITIES",
              "0|LINE\n5|E1\n100|AcDbEntity\n8|attic\n100|AcDbLine\n10|0\n20|0\n30|0\n11|1\n21|1\n31|0\n"
              "1001|ACAD\n1003|ATTIC\n1000|attic\n"
              "0|LINE\n5|E2\n100|AcDbEntity\n8|attic\n100|AcDbLine\n10|wide\n" +
                  insert("E3", "window") +
                  "0|ACAD_TABLE\n5|E4\n100|AcDbEntity\n8|0\n100|AcDbBlockReference\n2|*U4\n10|0\n20|0\n30|0\n"
                  "100|AcDbTable\n7|notes\n1|notes\n");
  std::string lines = text; // a bar would end a line
  lines.replace(lines.find("plan|roof"), 9, "plan\x01roof");
  std::string bytes = dxf(lines, "");
  bytes[bytes.find('\x01')] = '|';
  return drawing::readDrawingFromMemory(bytes).database;
}

// Each step of renaming, a name of the header that follows, and what the file holds and does not hold then. A text is
// only a text; sections that are kept as files hold them have names too.
TEST(Rename, UpdatesEveryTextualReferenceAndNothingElse) {
  const struct {
    OdDb::SymbolTableKind kind;
    std::vector<std::pair<const wchar_t*, const wchar_t*>> steps;
    const char* variable;
    std::vector<std::string> held, gone;
  } cases[] = {
      {OdDb::kLayerTable,
       {{L"ATTIC", L"loft"}},
       "CLAYER",
       {"1003\nloft\n", "1000\nattic\n"},
       {"\nATTIC\n", "\nAttic\n", "  2\nattic\n", "8\nattic\n", "1000\nloft\n"}},
      {OdDb::kTextStyleTable, {{L"Notes", L"remarks"}}, nullptr, {"  7\nremarks\n  1\nnotes\n"}, {"  7\nnotes\n"}},
      {OdDb::kBlockTable, {{L"_dot", L"blob"}}, "DIMBLK", {}, {"1\ndot\n", "_DOT"}},
      {OdDb::kBlockTable, {{L"_dot", L"blob"}}, "DIMBLK1", {}, {}},
      {OdDb::kBlockTable,
       {{L"window", L"Window"}, {L"WINDOW", L"big window"}},
       nullptr,
       {"AcDbDynamicBlockTrueName\n1000\nbig window\n", "OTHER\n1000\nwindow\n"},
       {"  2\nwindow\n"}},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(OdString(row.steps.back().second).toUtf8());
    const OdDbDatabasePtr database = house();
    expectUndoRestores(*database, [&] {
      for (const auto& [from, to] : row.steps)
        EXPECT_EQ(renameRecord(*database, row.kind, from, to), RenameResult::kDone);
    });
    if (row.variable != nullptr) {
      EXPECT_EQ(database->headerText(row.variable), row.steps.back().second);
    }
    const std::string text = drawing::writeDrawingToMemory(*database);
    for (const std::string& part : row.held)
      EXPECT_NE(text.find(part), std::string::npos) << part;
    for (const std::string& part : row.gone)
      EXPECT_EQ(text.find(part), std::string::npos) << part;
    expectSound(*database);
    expectRoundTrip(*database);
  }
}

TEST(Rename, RefusesAndChangesNothing) {
  const struct {
    OdDb::SymbolTableKind kind;
    const wchar_t* from;
    const wchar_t* to;
    RenameResult result;
  } cases[] = {
      {OdDb::kLayerTable, L"cellar", L"loft", RenameResult::kUnknown},
      {OdDb::kLayerTable, L"0", L"zero", RenameResult::kFixed},
      {OdDb::kLayerTable, L"plan|roof", L"roof", RenameResult::kExternal},
      {OdDb::kLayerTable, L"attic", L"0", RenameResult::kTaken},
      {OdDb::kLayerTable, L"attic", L"", RenameResult::kIllegal},
      {OdDb::kBlockTable, L"window", L"a|b", RenameResult::kIllegal},
      {OdDb::kBlockTable, L"window", L"_Dot", RenameResult::kTaken},
      {OdDb::kBlockTable, L"*Model_Space", L"space", RenameResult::kSpace},
      {OdDb::kBlockTable, L"*U4", L"chair", RenameResult::kAnonymous},
      {OdDb::kTextStyleTable, L"Standard", L"plain", RenameResult::kFixed},
      {OdDb::kLinetypeTable, L"BYLAYER", L"solid", RenameResult::kFixed},
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
      {L"door", NameFault::kNone, NameFault::kNone},
      {L"door 1", NameFault::kNone, NameFault::kCharacter},
      {L"дверь", NameFault::kNone, NameFault::kCharacter},
      {L" door", NameFault::kSurroundingSpace, NameFault::kCharacter},
      {L"a\tb", NameFault::kCharacter, NameFault::kCharacter},
      {L"a*b", NameFault::kCharacter, NameFault::kCharacter},
      {L"", NameFault::kEmpty, NameFault::kEmpty},
      {OdString(L'x', 31), NameFault::kNone, NameFault::kNone},
      {OdString(L'x', 32), NameFault::kNone, NameFault::kTooLong},
      {OdString(L'x', 256), NameFault::kTooLong, NameFault::kTooLong},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(drawing::nameFault(row.name, OdDb::kRelease2000), row.now) << row.name.toUtf8();
    EXPECT_EQ(drawing::nameFault(row.name, OdDb::kRelease12), row.before2000) << row.name.toUtf8();
  }
}

} // namespace
