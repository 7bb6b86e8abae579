// A file of an earlier version holds what that version can hold, and everything else is told.
#include "DbAttribute.h"
#include "DbCurves.h"
#include "DbMText.h"
#include "DbPolyline.h"
#include "drawing/file.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

#include <algorithm>
#include <map>

using namespace tests;
using drawing::ReadResult;

namespace {

struct Written {
  std::string bytes;
  drawing::Report losses;
};

Written writeAs(const OdDbDatabase& database, OdDb::DwgVersion version) {
  drawing::WriteResult result;
  const std::string bytes =
      drawing::writeDrawingToMemory(database, {.form = drawing::WriteOptions::kText, .version = version}, &result);
  return {bytes, result.report};
}

bool hasIssueAt(const drawing::Report& report, const std::string& words, std::uint64_t handle = 0) {
  return std::any_of(report.issues().begin(), report.issues().end(), [&](const drawing::Issue& issue) {
    return drawing::describe(issue).find(words) != std::string::npos && (handle == 0 || issue.handle == handle);
  });
}

OdDbDatabasePtr readOf(const std::string& sections, const std::string& version) {
  return readWell(dxf(sections, version)).database;
}

TEST(Versions, NewerGroupsAreReportedWhereTheVersionLacksThem) {
  const std::string point = "0|POINT\n5|A1\n100|AcDbEntity\n8|0\n%\n100|AcDbPoint\n10|1\n20|2\n";
  const auto pointWith = [&point](const char* group) { return std::string(point).replace(point.find('%'), 1, group); };
  const struct {
    std::string record;
    const char* reported; // part of the line; "": nothing is lost
    OdDb::DwgVersion lost, kept;
    const char* lines; // of the file, in the version that keeps it
  } cases[] = {
      {pointWith("420|255"), "the true color", OdDb::kRelease2000, OdDb::kRelease2004, "420\n255\n"},
      {pointWith("440|33554559"), "the transparency", OdDb::kRelease2000, OdDb::kRelease2004, "440\n33554559\n"},
      {pointWith("440|33554687"), "", OdDb::kRelease2000, OdDb::kRelease2004, "440\n33554687\n"}, // opaque
      {"0|MTEXT\n5|A1\n100|AcDbEntity\n8|0\n100|AcDbMText\n10|0\n20|0\n40|1\n1|x\n90|1\n63|5\n45|1.5\n",
       "the text background", OdDb::kRelease2000, OdDb::kRelease2004, " 63\n5\n"},
      {"0|HATCH\n5|A1\n100|AcDbEntity\n8|0\n100|AcDbHatch\n10|0\n20|0\n30|0\n210|0\n220|0\n230|1\n2|SOLID\n70|1\n71|0\n"
       "91|0\n75|1\n76|1\n98|0\n450|1\n453|2\n463|0\n63|5\n421|255\n470|LINEAR\n",
       "the gradient", OdDb::kRelease2000, OdDb::kRelease2004, "421\n255\n"},
      {"0|GADGET\n5|A1\n100|AcDbEntity\n8|0\n160|2\n310|00FF\n100|MyGadget\n90|7\n", "", OdDb::kRelease2007,
       OdDb::kRelease2010, "160\n2\n310\n00FF\n"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.record);
    const OdDbDatabasePtr database = readOf(section("ENTITIES", row.record), "AC1032");
    const Written lost = writeAs(*database, row.lost), kept = writeAs(*database, row.kept);
    EXPECT_EQ(lost.bytes.find(row.lines), std::string::npos);
    EXPECT_NE(kept.bytes.find(row.lines), std::string::npos);
    const bool isLoss = row.reported[0] != 0;
    EXPECT_EQ(hasIssueAt(lost.losses, row.reported, 0xA1), isLoss);
    EXPECT_EQ(lost.losses.outcome() != drawing::Outcome::kWhole, isLoss);
    EXPECT_EQ(kept.losses.outcome(), drawing::Outcome::kWhole);
  }
}

TEST(Versions, EveryVersionContainsTheSameDrawing) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId block = addBlock(*database, L"\u0434\u0432\u0435\u0440\u044C \u95E8");
  addText(*database, L"inside \u95E8", block);
  addAttribute(addReference(*database, block), L"TAG", L"\u00FC");
  const std::string before = drawing::canonicalDump(*database);
  for (const char* year : {"2000", "2004", "2007", "2010", "2013", "2018"}) {
    const OdDb::DwgVersion version = drawing::versionFromYear(year);
    const ReadResult read = readWell(drawing::writeDrawingToMemory(*database, {.version = version}));
    EXPECT_EQ(read.database->fileInfo().version, version) << year;
    EXPECT_EQ(firstDifference(before, drawing::canonicalDump(*read.database)), "") << year;
  }
}

// A drawing of an early version that holds such groups all the same means them.
TEST(Versions, ADrawingsOwnVersionKeepsWhatCameInIt) {
  const OdDbDatabasePtr database =
      readOf(section("ENTITIES", "0|POINT\n5|A1\n100|AcDbEntity\n8|0\n420|255\n100|AcDbPoint\n10|1\n20|2\n"), "AC1015");
  const Written own = writeAs(*database, OdDb::kVersionUnknown);
  EXPECT_NE(own.bytes.find("420\n255\n"), std::string::npos);
  EXPECT_TRUE(own.losses.issues().empty());
}

TEST(Versions, BodiesThatAVersionLacksAreOmittedWithTheirDependents) {
  const OdDbDatabasePtr database = readOf(
      section("ENTITIES",
              "0|3DSOLID\n5|A1\n102|{ACAD_XDICTIONARY\n360|A2\n102|}\n100|AcDbEntity\n8|0\n"
              "100|AcDbModelerGeometry\n290|1\n2|{00000000-0000-0000-0000-000000000001}\n100|AcDb3dSolid\n"
              "350|0\n0|POINT\n5|A4\n100|AcDbEntity\n8|0\n100|AcDbPoint\n10|1\n20|2\n1001|ACAD\n1005|A1\n") +
          section("OBJECTS", "0|DICTIONARY\n5|C\n330|0\n100|AcDbDictionary\n281|1\n0|DICTIONARY\n5|A2\n330|A1\n"
                             "100|AcDbDictionary\n3|more\n360|A3\n0|XRECORD\n5|A3\n330|A2\n100|AcDbXrecord\n280|1\n") +
          section("ACDSDATA", "70|2\n0|ACDSRECORD\n90|1\n2|AcDbDs::ID\n280|10\n320|A1\n"),
      "AC1027");
  const Written written = writeAs(*database, OdDb::kRelease2010);
  EXPECT_TRUE(hasIssueAt(written.losses, "the format of its body", 0xA1));
  for (const char* gone : {"3DSOLID", "ACDSDATA", "  5\nA2\n", "  5\nA3\n"})
    EXPECT_EQ(written.bytes.find(gone), std::string::npos) << gone;
  EXPECT_NE(written.bytes.find("1005\n0\n"), std::string::npos); // refers to nothing now
  EXPECT_TRUE(writeAs(*database, OdDb::kRelease2018).losses.issues().empty());
}

TEST(Versions, UnitsOfBlocksAreInExtendedDataBefore2007) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  forWrite<OdDbBlockTableRecord>(addBlock(*database, L"door"))->setBlockInsertUnits(OdDb::kUnitsFeet);
  const Written written = writeAs(*database, OdDb::kRelease2004);
  EXPECT_NE(written.bytes.find("DesignCenter Data"), std::string::npos);
  EXPECT_FALSE(hasIssueAt(written.losses, "AcDbBlockTableRecord"));
  const ReadResult again = drawing::readDrawingFromMemory(written.bytes);
  const auto read = forRead<OdDbBlockTableRecord>(again.database->symbol(OdDb::kBlockTable, L"door"));
  EXPECT_EQ(read->blockInsertUnits(), OdDb::kUnitsFeet);
  EXPECT_EQ(read->xDataGroups() == nullptr || read->xDataGroups()->empty(), true);
}

// Both forms give the same text, whichever way the drawing goes.
TEST(Versions, MultiLineAttributesAreStoredAsTheVersionHasThem) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId id = addAttribute(addReference(*database, addBlock(*database, L"sign")), L"NOTE", L"x");
  OdDbMText lines;
  lines.setContents(L"{\\C1;first}\\Psecond");
  lines.setTextHeight(2.5);
  forWrite<OdDbAttribute>(id)->setMTextAttribute(&lines);
  const std::string before = drawing::canonicalDump(*database);

  const Written r12 = writeAs(*database, OdDb::kRelease2007);
  EXPECT_EQ(r12.bytes.find("101\nEmbedded Object"), std::string::npos);
  EXPECT_NE(r12.bytes.find("ACAD_MLATT"), std::string::npos);
  EXPECT_EQ(drawing::canonicalDump(*database), before); // the drawing itself stays
  const ReadResult read = drawing::readDrawingFromMemory(r12.bytes);
  expectRoundTrip(*read.database);

  const Written late = writeAs(*read.database, OdDb::kRelease2018);
  EXPECT_NE(late.bytes.find("101\nEmbedded Object"), std::string::npos);
  EXPECT_EQ(late.bytes.find("ACAD_MLATT"), std::string::npos);
  for (const std::string& bytes : {r12.bytes, late.bytes}) {
    const ReadResult again = drawing::readDrawingFromMemory(bytes);
    const auto attribute = forRead<OdDbAttribute>(again.database->objectIdOf(id.getHandle()));
    ASSERT_TRUE(attribute->isMTextAttribute());
    EXPECT_EQ(attribute->getMTextAttribute()->contents(), OdString(L"{\\C1;first}\\Psecond"));
    EXPECT_EQ(attribute->getMTextAttribute()->textHeight(), 2.5);
    const Written oldest = writeAs(*again.database, OdDb::kRelease12); // has one line, and no formatting
    EXPECT_NE(oldest.bytes.find("\n  1\nfirst second\n"), std::string::npos) << oldest.bytes;
    EXPECT_TRUE(hasIssueAt(oldest.losses, "the lines of the value", id.getHandle()));
  }
}

TEST(Versions, LostColumnsAreReportedAndTheTextStays) {
  const char* text = "0|MTEXT\n5|A1\n100|AcDbEntity\n8|0\n100|AcDbMText\n10|0\n20|0\n40|1\n1|long\n"
                     "101|Embedded Object\n70|1\n10|1\n20|0\n30|0\n71|%\n72|2\n44|5\n1001|ACAD\n1070|7\n";
  for (const char columns : {'0', '2'}) {
    std::string record = text;
    record[record.find('%')] = columns;
    const Written written = writeAs(*readOf(section("ENTITIES", record), "AC1032"), OdDb::kRelease2013);
    EXPECT_EQ(written.bytes.find("Embedded Object"), std::string::npos);
    EXPECT_NE(written.bytes.find("1070\n7\n"), std::string::npos);
    EXPECT_EQ(hasIssueAt(written.losses, "cannot store text columns", 0xA1), columns == '2');
  }
}

// The same loss of many is one line that says how many; what is left out is told one by one.
TEST(Versions, LossesOfManyAreCounted) {
  std::string points;
  for (unsigned i = 0; i < 30; ++i)
    points +=
        "0|POINT\n5|" + OdDbHandle(0x100 + i).ascii() + "\n100|AcDbEntity\n8|0\n420|255\n100|AcDbPoint\n10|1\n20|2\n";
  const Written written = writeAs(*readOf(section("ENTITIES", points), "AC1032"), OdDb::kRelease2000);
  EXPECT_EQ(written.losses.count("dxf.group-not-in-version"), 1u);
  EXPECT_TRUE(hasIssueAt(written.losses, "here and in 29 more", 0x100));
}

// -- R12 --

ReadResult throughR12(const OdDbDatabase& database, drawing::Report* losses = nullptr) {
  const Written written = writeAs(database, OdDb::kRelease12);
  if (losses != nullptr)
    *losses = written.losses;
  EXPECT_EQ(written.bytes.find("AcDb"), std::string::npos);
  ReadResult read = readWell(written.bytes);
  for (const drawing::Issue& issue : read.report.issues())
    EXPECT_EQ(issue.severity, drawing::Severity::kNote) << drawing::describe(issue);
  return read;
}

// "KIND count " of each, by their names.
std::string kindsIn(const OdDbDatabase& database) {
  std::map<std::string, int> kinds;
  for (const OdDbObjectId& id : entitiesOf(database.getModelSpaceId()))
    ++kinds[forRead<OdDbEntity>(id)->dxfName()];
  std::string text;
  for (const auto& [kind, count] : kinds)
    text += kind + " " + std::to_string(count) + " ";
  return text;
}

const struct {
  const char *kind, *groups, *becomes, *reported;
} kSubstitutes[] = {
    {"LWPOLYLINE", "100|AcDbPolyline\n90|3\n70|1\n10|0\n20|0\n42|1\n10|2\n20|0\n10|2\n20|2\n", "POLYLINE 1 ",
     "it is written as a POLYLINE"},
    {"ELLIPSE", "100|AcDbEllipse\n10|0\n20|0\n30|0\n11|2\n21|0\n31|0\n40|0.5\n41|0\n42|6.283185307179586\n",
     "POLYLINE 1 ", "a polyline of 72 points"},
    {"SPLINE",
     "100|AcDbSpline\n70|8\n71|3\n72|8\n73|4\n40|0\n40|0\n40|0\n40|0\n40|1\n40|1\n40|1\n40|1\n"
     "10|0\n20|0\n30|0\n10|1\n20|1\n30|0\n10|2\n20|1\n30|0\n10|3\n20|0\n30|0\n",
     "POLYLINE 1 ", "a polyline of 17 points"},
    {"MTEXT", "100|AcDbMText\n10|0\n20|0\n30|0\n40|1\n41|0\n71|1\n1|one\\P\\H2;two\\P\\Pfour\n", "TEXT 3 ", "3 texts"},
    {"RAY", "100|AcDbRay\n10|0\n20|0\n30|0\n11|1\n21|0\n31|0\n", "LINE 1 ", "extends past"},
    {"HATCH",
     "100|AcDbHatch\n10|0\n20|0\n30|0\n210|0\n220|0\n230|1\n2|SOLID\n70|1\n71|0\n91|1\n92|3\n72|0\n73|1\n"
     "93|4\n10|0\n20|0\n10|4\n20|0\n10|4\n20|4\n10|0\n20|4\n97|0\n75|1\n76|1\n98|0\n",
     "SOLID 1 ", "1 solids"},
    {"HATCH",
     "100|AcDbHatch\n10|0\n20|0\n30|0\n210|0\n220|0\n230|1\n2|LINES\n70|0\n71|0\n91|1\n92|3\n72|0\n73|1\n"
     "93|4\n10|0\n20|0.5\n10|4\n20|0.5\n10|4\n20|4.5\n10|0\n20|4.5\n97|0\n75|1\n76|1\n52|0\n41|1\n77|0\n78|1\n53|0\n"
     "43|0\n44|0\n45|0\n46|1\n79|0\n98|0\n",
     "LINE 4 ", "4 lines"},
    // Group 70 of a polygon is a version, and its loops are polylines without a flag that says so.
    {"MPOLYGON",
     "100|AcDbMPolygon\n70|1\n10|0\n20|0\n30|0\n210|0\n220|0\n230|1\n2|LINES\n71|0\n91|1\n92|0\n72|0\n73|1\n"
     "93|4\n10|0\n20|0.5\n10|4\n20|0.5\n10|4\n20|4.5\n10|0\n20|4.5\n76|1\n52|0\n41|1\n77|0\n78|1\n53|0\n"
     "43|0\n44|0\n45|0\n46|1\n79|0\n63|1\n11|0\n21|0\n99|0\n",
     "LINE 4 POLYLINE 1 ", "1 polylines; its pattern is written as 4 lines"},
    {"MPOLYGON",
     "100|AcDbMPolygon\n70|1\n10|0\n20|0\n30|0\n210|0\n220|0\n230|1\n2|SOLID\n71|1\n91|1\n92|0\n72|0\n73|1\n"
     "93|4\n10|0\n20|0\n10|4\n20|0\n10|4\n20|4\n10|0\n20|4\n76|1\n63|1\n11|0\n21|0\n99|0\n",
     "POLYLINE 1 SOLID 1 ", "1 polylines; its fill is written as 1 solids"},
    {"3DSOLID", "100|AcDbModelerGeometry\n70|1\n1|x\n", "", "it is omitted"},
    {"GADGET", "100|MyGadget\n90|7\n", "", "it is omitted"},
};

OdDbDatabasePtr drawingOfKind(const std::string& kind, const std::string& groups) {
  return readOf(section("ENTITIES", "0|" + kind + "\n5|A1\n100|AcDbEntity\n8|walls\n" + groups), "AC1032");
}

TEST(R12, DrawsWithWhatTheVersionHas) {
  for (const auto& one : kSubstitutes) {
    SCOPED_TRACE(one.groups);
    drawing::Report losses;
    const ReadResult read = throughR12(*drawingOfKind(one.kind, one.groups), &losses);
    EXPECT_EQ(kindsIn(*read.database), one.becomes);
    EXPECT_TRUE(hasIssueAt(losses, one.reported, 0xA1));
    if (one.becomes[0] != 0) { // the first has the handle, all have the layer
      EXPECT_EQ(forRead<OdDbEntity>(read.database->objectIdOf(0xA1))->layer(), OdString(L"walls"));
    }
  }
}

TEST(R12, KeepsTheShapeOfWhatItRedraws) {
  const OdDbDatabasePtr image =
      drawingOfKind("IMAGE", "100|AcDbRasterImage\n10|-7\n20|3\n11|0.5\n21|0\n12|0\n22|0.25\n13|40\n23|60\n");
  for (const OdDbDatabasePtr& database : {drawingOfKind(kSubstitutes[0].kind, kSubstitutes[0].groups),
                                          drawingOfKind(kSubstitutes[1].kind, kSubstitutes[1].groups), image}) {
    OdGeExtents3d before, after;
    forRead<OdDbBlockTableRecord>(database->getModelSpaceId())->getGeomExtents(before);
    forRead<OdDbBlockTableRecord>(throughR12(*database).database->getModelSpaceId())->getGeomExtents(after);
    EXPECT_TRUE(before.isEqualTo(after, OdGeTol(0.01)));
  }
}

TEST(R12, InvalidNamesAreChangedEverywhereAndReported) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId layer = addLayer(*database, L"load bearing walls");
  addLayer(*database, L"load_bearing_walls");
  const OdDbObjectId block = addBlock(*database, L"\u95E8 of a name that is far too long for it");
  addText(*database, L"x", block);
  const OdDbObjectId reference = addReference(*database, block);
  forWrite<OdDbEntity>(reference)->setLayer(layer);
  database->setHeaderText("CLAYER", 8, L"load bearing walls");
  drawing::Report losses;
  const ReadResult read = throughR12(*database, &losses);
  EXPECT_EQ(losses.count("dxf.name-not-in-version"), 2u);
  const auto insert = forRead<OdDbBlockReference>(read.database->objectIdOf(reference.getHandle()));
  EXPECT_EQ(insert->layer(), OdString(L"load_bearing_walls-2"));
  EXPECT_EQ(read.database->headerText("CLAYER"), OdString(L"load_bearing_walls-2"));
  const auto definition = forRead<OdDbBlockTableRecord>(insert->blockTableRecord());
  EXPECT_EQ(definition->getName(), OdString(L"__of_a_name_that_is_far_too_lo").left(31) + L"n");
  EXPECT_EQ(definition->numMembers(), 1u);
}

TEST(R12, HandlesOfSubstitutesAreUnique) {
  const OdDbDatabasePtr database = drawingOfKind(kSubstitutes[3].kind, kSubstitutes[3].groups);
  const Written written = writeAs(*database, OdDb::kRelease12);
  const auto seed = written.bytes.find("$HANDSEED\n  5\n") + 14;
  const OdDbHandle first(std::stoull(written.bytes.substr(seed, 16), nullptr, 16));
  EXPECT_EQ(std::uint64_t{first}, std::uint64_t{database->handseed()} + 2); // three texts, one has the old handle
}

// What a viewport looks at stands in extended data there, and comes back.
TEST(R12, ViewportsKeepTheirView) {
  const std::string view = "12|7\n22|8\n13|0\n23|0\n14|0.5\n24|0.5\n15|1\n25|1\n16|0\n26|0\n36|1\n17|1\n27|2\n37|3\n"
                           "42|50\n43|0\n44|0\n45|12.5\n50|0\n51|90\n72|100\n331|2A\n90|32800\n";
  const OdDbDatabasePtr database = readOf(
      section("TABLES", table("LAYER",
                              "0|LAYER\n5|2A\n100|AcDbSymbolTableRecord\n100|AcDbLayerTableRecord\n2|attic\n"
                              "70|0\n62|7\n6|Continuous\n",
                              "2")) +
          section("ENTITIES", "0|VIEWPORT\n5|A1\n67|1\n100|AcDbEntity\n67|1\n8|0\n100|AcDbViewport\n10|5\n20|5\n30|0\n"
                              "40|10\n41|8\n68|2\n69|2\n" +
                                  view),
      "AC1015");
  const ReadResult r12 = throughR12(*database);
  const std::string again = writeAs(*r12.database, OdDb::kRelease2000).bytes;
  for (const char* part : {" 12\n7.0\n 22\n8.0\n", " 17\n1.0\n 27\n2.0\n 37\n3.0\n", " 45\n12.5\n", " 51\n90.0\n",
                           " 72\n100\n331\n", " 90\n32\n"})
    EXPECT_NE(again.find(part), std::string::npos) << part;
  EXPECT_EQ(drawing::canonicalDump(*r12.database, drawing::DumpForm::kWithoutHandles),
            drawing::canonicalDump(*throughR12(*r12.database).database, drawing::DumpForm::kWithoutHandles));
}

} // namespace
