// Programs lay out their records in their own ways. What they mean is understood, and written so that the strictest
// reader takes it; what the SDK does not know is kept and written as it stood.
#include "DbBlockReference.h"
#include "DbIdMapping.h"
#include "drawing/file.h"
#include "drawing/opaque_objects.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

using namespace tests;
using drawing::ReadResult;

namespace {

OdDbDatabasePtr readWhole(const std::string& text) {
  const ReadResult read = readWell(text);
  EXPECT_EQ(read.report.outcome(), drawing::Outcome::kWhole);
  return read.database;
}

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(OtherLayouts, AreUnderstoodAndWrittenInOne) {
  const std::string layers =
      table("LAYER", "0|LAYER\n5|B1\n100|AcDbSymbolTableRecord\n100|AcDbLayerTableRecord\n2|walls\n70|0\n62|7\n", "2");
  const std::string styles = table(
      "STYLE", "0|STYLE\n5|E1\n100|AcDbSymbolTableRecord\n100|AcDbTextStyleTableRecord\n2|Notes\n70|0\n3|txt\n", "3");
  const std::string text = "0|TEXT\n5|A1\n100|AcDbEntity\n8|0\n100|AcDbText\n10|-1\n20|-2\n30|0\n40|2.5\n1|x\n";
  const char* const origin = " 11\n0.0\n 21\n0.0\n 31\n0.0\n";
  const auto dimStyle = [&styles](const std::string& groups) {
    const char* head = "0|DIMSTYLE\n105|D1\n100|AcDbSymbolTableRecord\n100|AcDbDimStyleTableRecord\n2|a\n70|0\n";
    return section("TABLES", styles + table("DIMSTYLE", head + groups, "D"));
  };
  const auto array = [](const std::string& between) {
    return section("TABLES", table("BLOCK_RECORD", blockRecord("B1", "chair"), "1")) +
           section("BLOCKS", block("B1", "chair")) +
           section("ENTITIES",
                   "0|INSERT\n5|A1\n100|AcDbEntity\n8|0\n100|AcDbBlockReference\n2|chair\n10|7\n20|8\n30|0\n41|2\n" +
                       between + "70|3\n71|4\n44|1.5\n45|2.5\n");
  };
  const struct {
    const char* what;
    std::string text;
    std::vector<const char*> written;
    const char* notWritten = nullptr;
  } cases[] = {
      {"common groups behind a later marker",
       section("TABLES", layers) + section("ENTITIES", "0|LINE\n5|A1\n100|AcDbEntity\n100|AcDbLine\n8|walls\n62|3\n"
                                                       "370|25\n10|1\n20|2\n30|3\n11|4\n21|5\n31|6\n"),
       {"100\nAcDbEntity\n  8\nwalls\n 62\n3\n370\n25\n100\nAcDbLine\n 10\n1.0\n"}},
      {"no layer",
       section("ENTITIES", "0|LINE\n5|A1\n100|AcDbEntity\n100|AcDbLine\n10|1\n20|2\n30|3\n11|4\n21|5\n31|6\n"),
       {"100\nAcDbEntity\n  8\n0\n100\nAcDbLine\n"}},
      {"an array behind the marker of a reference",
       array(""),
       {"100\nAcDbMInsertBlock\n  2\nchair\n 10\n7.0\n", " 70\n3\n 71\n4\n 44\n1.5\n 45\n2.5\n"},
       "AcDbBlockReference"},
      {"an array behind both markers",
       array("100|AcDbMInsertBlock\n"),
       {"100\nAcDbMInsertBlock\n  2\nchair\n 10\n7.0\n", " 70\n3\n 71\n4\n 44\n1.5\n 45\n2.5\n"},
       "AcDbMInsertBlock\n 70\n"},
      {"a second point at the origin", section("ENTITIES", text + "72|1\n11|0\n21|0\n31|0\n100|AcDbText\n"), {origin}},
      {"an alignment without second point", section("ENTITIES", text + "100|AcDbText\n73|2\n"), {origin}},
      {"no alignment", section("ENTITIES", text + "100|AcDbText\n"), {}, origin},
      // A reader may measure what is left out by the drawing's units.
      {"sizes that are the default's", dimStyle("41|0.18\n140|0.18\n"), {" 41\n0.18\n140\n0.18\n"}},
      // A code that a field has taken may come again with another meaning.
      {"a code that comes again", dimStyle("69|2\n70|97\n"), {"  2\na\n 70\n0\n", " 69\n2\n 70\n97\n"}},
      {"objects that name no owner belong to who lists them",
       section("OBJECTS", "0|DICTIONARY\n5|C\n100|AcDbDictionary\n281|1\n3|THINGS\n350|A1\n"
                          "0|DICTIONARY\n5|A1\n100|AcDbDictionary\n281|1\n3|one\n350|A2\n"
                          "0|THING\n5|A2\n100|AcThing\n70|1\n"),
       {"  5\nC\n330\n0\n", "  5\nA1\n330\nC\n", "  5\nA2\n330\nA1\n"}},
      {"a text style by its name", dimStyle("340|NOTES\n341|\n"), {"340\nE1\n"}},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.what);
    const OdDbDatabasePtr database = readWhole(dxf(row.text));
    const std::string file = drawing::writeDrawingToMemory(*database);
    for (const char* part : row.written)
      EXPECT_TRUE(contains(file, part)) << part;
    EXPECT_FALSE(row.notWritten != nullptr && contains(file, row.notWritten)) << row.notWritten;
    expectRoundTrip(*database);
  }
}

TEST(OtherLayouts, UnknownObjectsEntitiesAndSectionsRoundTrip) {
  const std::string text =
      dxf(section("CLASSES", "0|CLASS\n1|GADGET\n2|MyGadget\n3|MyApp\n90|0\n280|0\n281|0\n") +
          section("ENTITIES", "0|GADGET\n5|A1\n102|{MYAPP\n330|A2\n1|x\n102|}\n330|1F\n100|AcDbEntity\n8|walls\n62|3\n"
                              "100|MyGadget\n10|1.5\n20|2.5\n30|0\n330|A2\n90|7\n90|8\n1001|MYAPP\n1005|A2\n") +
          section("OBJECTS", "0|DICTIONARY\n5|C\n330|0\n100|AcDbDictionary\n281|1\n3|THINGS\n350|A2\n"
                             "0|THING\n5|A2\n330|C\n100|AcThing\n290|1\n310|00FF10\n320|A1\n") +
          section("CHAIRS", "0|CHAIR\n5|99\n1|red\n"));
  const ReadResult read = readWell(text);
  EXPECT_EQ(read.report.counts.opaque, 4u); // with the records of the two sections
  EXPECT_EQ(read.report.counts.dropped, 0u);
  const OdSmartPtr<OdDbOpaqueEntity> gadget(read.database->objectIdOf(0xA1).safeOpenObject());
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

// Layers may come behind the entities on them, blocks of one name without their owners.
TEST(OtherLayouts, RecordsReplaceTheirPlaceholders) {
  std::string lines, layers, records, blocks;
  for (const char* name : {"c", "a", "b"}) {
    lines += "0|LINE\n100|AcDbEntity\n8|" + std::string(name) + "\n100|AcDbLine\n10|1\n20|2\n11|4\n21|5\n";
    records += "0|BLOCK_RECORD\n100|AcDbSymbolTableRecord\n100|AcDbBlockTableRecord\n2|same\n";
    blocks += "0|BLOCK\n100|AcDbEntity\n8|0\n100|AcDbBlockBegin\n2|same\n70|0\n10|0\n20|0\n4|" + std::string(name) +
              "\n0|ENDBLK\n100|AcDbEntity\n8|0\n100|AcDbBlockEnd\n";
  }
  for (const char* name : {"A", "B", "C"})
    layers += "0|LAYER\n100|AcDbSymbolTableRecord\n100|AcDbLayerTableRecord\n2|" + std::string(name) + "\n70|0\n62|5\n";
  const ReadResult read =
      readWell(dxf(section("ENTITIES", lines) +
                   section("TABLES", table("LAYER", layers, "2") + table("BLOCK_RECORD", records, "1")) +
                   section("BLOCKS", blocks)));
  for (const wchar_t* name : {L"a", L"b", L"c"})
    EXPECT_EQ(forRead<OdDbLayerTableRecord>(read.database->symbol(OdDb::kLayerTable, name))->color().index, 5);
  const std::pair<const wchar_t*, const wchar_t*> kBlocks[] = {{L"same", L"c"}, {L"same-2", L"a"}, {L"same-3", L"b"}};
  for (const auto& [name, comments] : kBlocks)
    EXPECT_EQ(forRead<OdDbBlockTableRecord>(read.database->symbol(OdDb::kBlockTable, name))->comments(),
              OdString(comments));
  expectRoundTrip(*read.database);
}

// Early files have no table of blocks, and what refers to a block may come before it.
TEST(OtherLayouts, BlocksOfR12FilesKeepTheirOrderAndSpacesAreSpaces) {
  const std::string at = "\n70|0\n10|0\n20|0\n30|0\n";
  const auto block = [&at](const std::string& name, const std::string& contents = "") {
    return "0|BLOCK\n8|0\n2|" + name + at + "3|" + name + "\n" + contents + "0|ENDBLK\n";
  };
  const auto insert = [&at](const std::string& name) { return "0|INSERT\n8|0\n2|" + name + at; };
  const std::string blocks = block("$MODEL_SPACE") + block("$PAPER_SPACE") +
                             block("table", insert("lamp") + insert("chair")) + block("chair") +
                             block("lamp", insert("bulb")) + block("bulb");
  const OdDbDatabasePtr database =
      readWhole(dxf(section("BLOCKS", blocks) + section("ENTITIES", insert("table")), "AC1009"));
  std::string names;
  for (const OdString& name : recordNames(*database, OdDb::kBlockTable))
    names += name.toUtf8() + " ";
  EXPECT_EQ(names, "*Model_Space *Paper_Space table chair lamp bulb ");
  EXPECT_EQ(forRead<OdDbBlockTableRecord>(database->getModelSpaceId())->numMembers(), 1u);
  expectRoundTrip(*database);
}

TEST(OtherLayouts, WhatOnlyAnErasedEntityNamesIsNotWritten) {
  const std::string text =
      dxf(section("ENTITIES", "0|IMAGE\n5|A1\n100|AcDbEntity\n8|0\n100|AcDbRasterImage\n90|0\n10|0\n20|0\n30|0\n"
                              "11|1\n21|0\n31|0\n12|0\n22|1\n32|0\n13|4\n23|4\n340|A3\n70|7\n360|A2\n") +
          section("OBJECTS", "0|DICTIONARY\n5|C\n330|0\n100|AcDbDictionary\n281|1\n3|ACAD_IMAGE_DICT\n350|A4\n"
                             "0|DICTIONARY\n5|A4\n330|C\n100|AcDbDictionary\n281|1\n3|tree\n350|A3\n"
                             "0|IMAGEDEF\n5|A3\n330|A4\n100|AcDbRasterImageDef\n90|0\n1|tree.png\n"
                             "0|IMAGEDEF_REACTOR\n5|A2\n330|A1\n100|AcDbRasterImageDefReactor\n90|2\n330|A1\n"));
  const OdDbDatabasePtr database = readWhole(text);
  database->objectIdOf(0xA1).safeOpenObject(OdDb::kForWrite)->erase();
  const std::string written = drawing::writeDrawingToMemory(*database);
  EXPECT_FALSE(contains(written, "IMAGEDEF_REACTOR"));
  EXPECT_TRUE(contains(written, "\nIMAGEDEF\n"));
}

TEST(OtherLayouts, AClonedHatchReferencesNoUnclonedBoundary) {
  const std::string hatch = "0|HATCH\n5|A1\n100|AcDbEntity\n8|0\n100|AcDbHatch\n10|0\n20|0\n30|0\n210|0\n220|0\n230|1\n"
                            "2|SOLID\n70|1\n71|1\n91|1\n92|1\n93|1\n72|2\n10|0\n20|0\n40|1\n50|0\n51|360\n73|1\n"
                            "97|1\n330|A2\n75|0\n76|1\n98|0\n";
  const std::string circle = "0|CIRCLE\n5|A2\n100|AcDbEntity\n8|0\n100|AcDbCircle\n10|0\n20|0\n30|0\n40|1\n";
  const OdDbDatabasePtr source = readWhole(dxf(section("ENTITIES", hatch + circle)));
  const OdDbDatabasePtr target = OdDbDatabase::create();
  cloned({source->objectIdOf(0xA1)}, target->getModelSpaceId());
  const std::string written = drawing::writeDrawingToMemory(*target);
  EXPECT_TRUE(contains(written, " 71\n0\n 91\n1\n")) << "still associative";
  EXPECT_TRUE(contains(written, " 97\n0\n 75\n0\n")) << "a boundary that is not there";
  EXPECT_TRUE(contains(drawing::writeDrawingToMemory(*source), " 97\n1\n330\nA2\n"));
}

} // namespace
