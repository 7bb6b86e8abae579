// Purging: what nobody uses goes in one go, whatever is used in any way stays, and the reasons can be asked for.
#include "DbDictionary.h"
#include "drawing/purge.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

#include <algorithm>

using namespace tests;
using drawing::PurgePlan;

namespace {

// Tables, blocks, entities and objects of a drawing, "code|value" lines each.
struct Parts {
  std::string layers = {}, styles = {}, linetypes = {}, dimStyles = {}, records = {}, blocks = {}, entities = {};
  std::string objects = {}, header = {};
};

std::string record(const std::string& kind, const std::string& marker, const std::string& handle,
                   const std::string& name, const std::string& more = "") {
  return "0|" + kind + "\n" + (kind == "DIMSTYLE" ? "105|" : "5|") + handle + "\n100|AcDbSymbolTableRecord\n100|" +
         marker + "\n2|" + name + "\n70|0\n" + more;
}
std::string entity(const std::string& kind, const std::string& handle, const std::string& common,
                   const std::string& own) {
  return "0|" + kind + "\n5|" + handle + "\n100|AcDbEntity\n8|" + common + own;
}

OdDbDatabasePtr drawingOfParts(const Parts& parts) {
  std::string text = section("TABLES", table("LTYPE", parts.linetypes, "5") + table("LAYER", parts.layers, "2") +
                                           table("STYLE", parts.styles, "3") + table("DIMSTYLE", parts.dimStyles, "A") +
                                           table("BLOCK_RECORD", parts.records, "1")) +
                     section("BLOCKS", parts.blocks) + section("ENTITIES", parts.entities) +
                     section("OBJECTS", parts.objects);
  if (!parts.header.empty())
    text = section("HEADER", parts.header) + text;
  std::string bytes = dxf(text);
  std::replace(bytes.begin(), bytes.end(), '\x01', '|'); // a bar of its own would end a line
  return readWell(bytes).database;
}

const std::string kLine = "100|AcDbLine\n10|0\n20|0\n30|0\n11|1\n21|1\n31|0\n";
const std::string kDoor = blockRecord("D1", "door");
const std::string kDoorBlock = block("D1", "door", entity("LINE", "D2", "0\n", kLine));
const std::string kLayer = record("LAYER", "AcDbLayerTableRecord", "D3", "attic", "62|7\n6|Continuous\n");

// The record D1 or D3 stays because of one way of referring to it.
TEST(Purge, EveryKindOfReferenceProtects) {
  struct Case {
    const char* what;
    Parts parts;
    std::uint64_t kept;
  };
  const auto blocks = [](Parts parts) {
    parts.records = kDoor + parts.records;
    parts.blocks = kDoorBlock + parts.blocks;
    return parts;
  };
  const auto layers = [](Parts parts) {
    parts.layers = kLayer;
    return parts;
  };
  const std::string dstyle = kLine + "1001|ACAD\n1000|DSTYLE\n1002|{\n", version = "9|$ACADVER\n1|AC1015\n";
  const auto dimStyle = [](const char* arrow) {
    return record("DIMSTYLE", "AcDbDimStyleTableRecord", "DA", "Standard", arrow);
  };
  const Case cases[] = {
      {"reference", blocks({.entities = insert("E1", "DOOR")}), 0xD1},
      {"reference in a block that is used",
       blocks({.records = blockRecord("D8", "house"),
               .blocks = block("D8", "house", insert("E2", "door")),
               .entities = insert("E1", "house")}),
       0xD1},
      {"arrow of a dimension style", blocks({.dimStyles = dimStyle("343|D1\n")}), 0xD1},
      {"arrow by name", blocks({.dimStyles = dimStyle("6|door\n")}), 0xD1},
      {"arrow of one dimension",
       blocks({.entities = entity("LINE", "E1", "0\n", dstyle + "1070|342\n1005|D1\n1002|}\n")}), 0xD1},
      {"arrow of one dimension, by name",
       blocks({.entities = entity("LINE", "E1", "0\n", dstyle + "1070|5\n1000|door\n1002|}\n")}), 0xD1},
      {"current arrow", blocks({.header = version + "9|$DIMBLK\n1|door\n"}), 0xD1},
      {"content of a leader", blocks({.entities = entity("MULTILEADER", "E1", "0\n", "100|AcDbMLeader\n344|D1\n")}),
       0xD1},
      {"layer of an entity", layers({.entities = entity("LINE", "E1", "Attic\n", kLine)}), 0xD3},
      {"layer in extended data", layers({.entities = entity("LINE", "E1", "0\n", kLine + "1001|ACAD\n1003|ATTIC\n")}),
       0xD3},
      {"current layer", layers({.header = version + "9|$CLAYER\n8|Attic\n"}), 0xD3},
      {"layer of an entity that is kept unread",
       layers({.entities = entity("LINE", "E1", "attic\n", "100|AcDbLine\n10|wide\n")}), 0xD3},
      {"text style of a cell",
       {.styles = record("STYLE", "AcDbTextStyleTableRecord", "D4", "notes"),
        .entities =
            entity("ACAD_TABLE", "E1", "0\n", "100|AcDbBlockReference\n10|0\n20|0\n30|0\n100|AcDbTable\n7|NOTES\n")},
       0xD4},
  };
  for (const Case& row : cases) {
    SCOPED_TRACE(row.what);
    const OdDbDatabasePtr database = drawingOfParts(row.parts);
    const PurgePlan plan(*database);
    const OdDbObjectId kept = database->objectIdOf(row.kept);
    EXPECT_EQ(plan.statusOf(kept), PurgePlan::Status::kUsed);
    const auto uses = plan.usesOf(kept);
    EXPECT_TRUE(uses.size() == 1 && uses[0].times == 1);
  }
}

TEST(Purge, GoesThroughChainsAtOnceAndUndoes) {
  Parts parts;
  parts.linetypes = record("LTYPE", "AcDbLinetypeTableRecord", "C1", "DASHED", "3|\n72|65\n73|0\n40|0\n");
  parts.layers = record("LAYER", "AcDbLayerTableRecord", "C2", "attic", "62|7\n6|DASHED\n");
  parts.records = blockRecord("D1", "inner") + blockRecord("D8", "outer") + blockRecord("D9", "*U1");
  parts.blocks = block("D1", "inner", entity("LINE", "E1", "attic\n", kLine)) +
                 block("D8", "outer", insert("E2", "inner") + insert("E3", "inner")) + block("D9", "*U1");
  const OdDbDatabasePtr database = drawingOfParts(parts);
  OdDbObjectIdArray ids;
  for (const int handle : {0xC1, 0xC2, 0xD1, 0xD8, 0xD9})
    ids.append(database->objectIdOf(handle));
  OdDbObjectIdArray withoutOuter = ids;
  withoutOuter.removeAt(3);
  ASSERT_EQ(database->purge(withoutOuter), eOk);
  ASSERT_EQ(withoutOuter.length(), 1); // the others are used by "outer", which was not asked for
  EXPECT_EQ(withoutOuter[0].getHandle(), OdDbHandle(0xD9));
  ASSERT_EQ(database->purge(ids), eOk);
  EXPECT_EQ(ids.length(), 5);
  expectUndoRestores(*database, [&] {
    for (OdDbObjectId id : ids)
      id.safeOpenObject(OdDb::kForWrite)->erase();
  });
  expectSound(*database);
  expectRoundTrip(*database);
}

TEST(Purge, LeavesWhatMustBeThereAndWhatIsExternal) {
  Parts parts;
  parts.layers = record("LAYER", "AcDbLayerTableRecord", "C2", "plan\x01walls", "62|7\n6|Continuous\n");
  parts.records = blockRecord("D1", "plan");
  parts.blocks = block("D1", "plan", "", "4");
  const OdDbDatabasePtr database = drawingOfParts(parts);
  const PurgePlan plan(*database);
  for (OdDbObjectId id : plan.purgeable())
    ADD_FAILURE() << id.getHandle().ascii();
  EXPECT_EQ(plan.statusOf(database->getModelSpaceId()), PurgePlan::Status::kNeeded);
  EXPECT_EQ(plan.statusOf(database->objectIdOf(0xD1)), PurgePlan::Status::kExternal);
  EXPECT_EQ(plan.statusOf(database->objectIdOf(0xC2)), PurgePlan::Status::kExternal);
}

TEST(Purge, GroupsAreUsedByTheirMembers) {
  Parts parts;
  parts.entities = entity("LINE", "E1", "0\n", kLine);
  parts.objects = "0|DICTIONARY\n5|C\n330|0\n100|AcDbDictionary\n281|1\n3|ACAD_GROUP\n350|D\n"
                  "0|DICTIONARY\n5|D\n330|C\n100|AcDbDictionary\n281|1\n3|full\n350|F1\n3|empty\n350|F2\n"
                  "0|GROUP\n5|F1\n330|D\n100|AcDbGroup\n300|\n70|0\n71|1\n340|E1\n"
                  "0|GROUP\n5|F2\n330|D\n100|AcDbGroup\n300|\n70|0\n71|1\n";
  const OdDbDatabasePtr database = drawingOfParts(parts);
  const PurgePlan plan(*database);
  EXPECT_EQ(plan.statusOf(database->objectIdOf(0xF1)), PurgePlan::Status::kUsed);
  EXPECT_EQ(plan.statusOf(database->objectIdOf(0xF2)), PurgePlan::Status::kPurgeable);
}

TEST(Purge, CountsUsesByHolder) {
  Parts parts;
  parts.header = "9|$ACADVER\n1|AC1015\n9|$DIMBLK1\n1|door\n";
  parts.records = kDoor + blockRecord("D8", "house") + blockRecord("D9", "unused");
  parts.blocks = kDoorBlock + block("D8", "house", insert("E2", "door") + insert("E3", "door")) +
                 block("D9", "unused", insert("E4", "door"));
  parts.entities = insert("E1", "house");
  const OdDbDatabasePtr database = drawingOfParts(parts);
  const auto uses = PurgePlan(*database).usesOf(database->objectIdOf(0xD1));
  ASSERT_EQ(uses.size(), 2u); // not by the block that goes
  EXPECT_EQ(uses[0].by, database->objectIdOf(0xD8));
  EXPECT_EQ(uses[0].times, 2u);
  EXPECT_EQ(uses[1].variable, "DIMBLK1");
}

} // namespace
