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

TEST(Keeping, EveryVersionHoldsTheSameDrawing) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId block = addBlock(*database, L"\u0434\u0432\u0435\u0440\u044C \u95E8");
  addText(*database, L"inside \u95E8", block);
  addAttribute(addReference(*database, block), L"TAG", L"\u00FC");
  const std::string before = drawing::canonicalDump(*database);
  for (const char* year : {"2000", "2004", "2007", "2010", "2013", "2018"}) {
    const OdDb::DwgVersion version = drawing::versionFromYear(year);
    const ReadResult read = readWell(drawing::writeDrawingToMemory(*database, {.version = version}));
    EXPECT_EQ(read.database->facts().version, version) << year;
    EXPECT_EQ(firstDifference(before, drawing::canonicalDump(*read.database)), "") << year;
  }
}

} // namespace
