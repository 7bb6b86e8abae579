// What a file holds and the SDK does not know is kept, in every code page, and written as it stood.
#include "DbCarried.h"
#include "DbDxf.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

using namespace tests;
using drawing::ReadResult;

namespace {

TEST(Keeping, UnknownObjectsEntitiesAndSectionsComeBack) {
  const std::string text =
      dxf(section("CLASSES", "0|CLASS\n1|GADGET\n2|MyGadget\n3|MyApp\n90|0\n280|0\n281|0\n") +
          section("ENTITIES", "0|GADGET\n5|A1\n102|{MYAPP\n330|A2\n1|x\n102|}\n330|1F\n100|AcDbEntity\n8|walls\n62|3\n"
                              "100|MyGadget\n10|1.5\n20|2.5\n30|0\n330|A2\n90|7\n90|8\n1001|MYAPP\n1005|A2\n") +
          section("OBJECTS", "0|DICTIONARY\n5|C\n330|0\n100|AcDbDictionary\n281|1\n3|THINGS\n350|A2\n"
                             "0|THING\n5|A2\n330|C\n100|AcThing\n290|1\n310|00FF10\n320|A1\n") +
          section("CHAIRS", "0|CHAIR\n5|99\n1|red\n"));
  const ReadResult read = readWell(text);
  EXPECT_EQ(read.report.account.kept, 4u); // with the records of the two sections
  EXPECT_EQ(read.report.account.dropped, 0u);
  const OdSmartPtr<OdDbCarriedEntity> gadget(read.database->getOdDbObjectId(0xA1).safeOpenObject());
  EXPECT_EQ(gadget->dxfName(), "GADGET");
  EXPECT_EQ(gadget->layer(), OdString(L"walls"));
  EXPECT_EQ(gadget->colorIndex(), 3);
  expectRoundTrip(*read.database);
  const std::string written = drawing::writeDrawingToMemory(*read.database);
  for (const char* part : {"102\n{MYAPP\n330\nA2\n  1\nx\n102\n}\n",
                           "100\nMyGadget\n 10\n1.5\n 20\n2.5\n 30\n0.0\n330\nA2\n 90\n7\n 90\n8\n",
                           "1001\nMYAPP\n1005\nA2\n", "100\nAcThing\n290\n1\n310\n00FF10\n320\nA1\n",
                           "  2\nCHAIRS\n  0\nCHAIR\n  5\n99\n  1\nred\n  0\nENDSEC\n", "  0\nCLASS\n  1\nGADGET\n"})
    EXPECT_NE(written.find(part), std::string::npos) << part;
}

// A code that a field has taken may come again with another meaning.
TEST(Keeping, CodesThatComeAgainInTheSameSectionAreKept) {
  const std::string text = dxf(section(
      "TABLES", "0|TABLE\n2|DIMSTYLE\n5|D\n100|AcDbSymbolTable\n70|1\n100|AcDbDimStyleTable\n71|0\n"
                "0|DIMSTYLE\n105|D1\n100|AcDbSymbolTableRecord\n100|AcDbDimStyleTableRecord\n2|filled\n70|0\n69|2\n"
                "70|97\n0|ENDTAB\n"));
  const ReadResult read = readWell(text);
  EXPECT_EQ(forRead<OdDbDimStyleTableRecord>(read.database->getOdDbObjectId(0xD1))->flags(), 0);
  const std::string written = drawing::writeDrawingToMemory(*read.database);
  EXPECT_NE(written.find(" 69\n2\n 70\n97\n"), std::string::npos);
  expectRoundTrip(*read.database);
}

TEST(Keeping, DimensionStylesThatNameTheirTextStyleAreUnderstood) {
  const std::string text = dxf(section(
      "TABLES", "0|TABLE\n2|STYLE\n5|3\n100|AcDbSymbolTable\n70|1\n0|STYLE\n5|E1\n100|AcDbSymbolTableRecord\n"
                "100|AcDbTextStyleTableRecord\n2|Notes\n70|0\n3|txt\n0|ENDTAB\n"
                "0|TABLE\n2|DIMSTYLE\n5|D\n100|AcDbSymbolTable\n70|1\n0|DIMSTYLE\n105|D1\n"
                "100|AcDbSymbolTableRecord\n100|AcDbDimStyleTableRecord\n2|a\n70|0\n340|NOTES\n341|\n0|ENDTAB\n"));
  const ReadResult read = readWell(text);
  EXPECT_EQ(read.report.outcome(), drawing::Outcome::Whole);
  EXPECT_EQ(forRead<OdDbDimStyleTableRecord>(read.database->getOdDbObjectId(0xD1))->dimtxsty().getHandle(),
            OdDbHandle(0xE1));
}

TEST(Keeping, TextIsReadInTheFilesCodePageAndWrittenInIt) {
  struct Case {
    const char* version;
    const char* page;
    const char* bytes;
    const wchar_t* text;
  };
  for (const Case& row :
       {Case{"AC1015", "ANSI_1251", "\xC4\xE2\xE5\xF0\xFC", L"\u0414\u0432\u0435\u0440\u044C"},
        Case{"AC1015", "ANSI_936", "\xC3\xC5\xB4\xB0", L"\u95E8\u7A97"},
        Case{"AC1015", "ANSI_932", "\x94\xE0\x5C", L"\u6249\\"}, Case{"AC1015", "ANSI_1252", "T\xFCr", L"T\u00FCr"},
        Case{"AC1015", "", "T\xFCr", L"T\u00FCr"}, Case{"AC1021", "ANSI_1251", "\xD0\x94\xE9\x97\xA8", L"\u0414\u95E8"},
        Case{"AC1032", "", "\xF0\x9F\x9A\xAA", L"\U0001F6AA"}}) {
    SCOPED_TRACE(std::string(row.version) + " " + row.page);
    const std::string entity = "0|TEXT\n5|A1\n100|AcDbEntity\n8|0\n100|AcDbText\n10|0\n20|0\n30|0\n40|1\n1|" +
                               std::string(row.bytes) + "\n100|AcDbText\n";
    const ReadResult read = readWell(dxf(section("ENTITIES", entity), row.version, row.page));
    EXPECT_EQ(forRead<OdDbText>(read.database->getOdDbObjectId(0xA1))->textString(), OdString(row.text));
    EXPECT_NE(drawing::writeDrawingToMemory(*read.database).find("\n" + std::string(row.bytes) + "\n"),
              std::string::npos);
    expectRoundTrip(*read.database);
  }
}

TEST(Keeping, EveryVersionHoldsTheSameDrawing) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId block = addBlock(*database, L"\u0434\u0432\u0435\u0440\u044C \u95E8");
  addText(*database, L"inside \u95E8", block);
  addAttribute(addReference(*database, block), L"TAG", L"\u00FC");
  const std::string before = drawing::canonicalDump(*database);
  for (const char* year : {"2000", "2004", "2007", "2010", "2013", "2018"}) {
    drawing::WriteOptions options;
    options.version = drawing::versionFromYear(year);
    const ReadResult read = readWell(drawing::writeDrawingToMemory(*database, options));
    EXPECT_EQ(read.database->facts().version, options.version) << year;
    EXPECT_EQ(firstDifference(before, drawing::canonicalDump(*read.database)), "") << year;
  }
}

} // namespace
