// The report: every count checked against a drawing whose numbers are known, the same drawing for people and for
// machines, and files that cannot be told whole.
#include "tests/console/console_run.h"
#include "tests/support/dynamic_blocks.h"

#include "DbAttribute.h"
#include "console/report/drawing_report.h"

#include <nlohmann/json.hpp>

namespace {

using namespace tests;
using console::report::Block;
using Json = nlohmann::json;

void addArray(OdDbObjectId block, OdDbObjectId into, std::int16_t rows, std::int16_t columns) {
  const OdDbMInsertBlockPtr array = addTo<OdDbMInsertBlock>(into);
  array->setBlockTableRecord(block);
  array->setRows(rows);
  array->setColumns(columns);
}

void addDefinition(OdDbObjectId block, const OdString& tag, bool preset) {
  const OdDbAttributeDefinitionPtr definition = addTo<OdDbAttributeDefinition>(block);
  definition->setTag(tag);
  definition->setPrompt(tag + L"?");
  definition->setTextString(L"1");
  definition->setPreset(preset);
}

// Chairs at tables in rooms: a room has 2 rows of 3 tables and 1 table, a table 4 chairs. Two rooms in model space,
// one on paper. A window of two shapes, one shown twice and one once, and once as it is defined.
struct House {
  House() {
    chair = addBlock(*database, L"chair");
    table = addBlock(*database, L"table");
    room = addBlock(*database, L"room");
    window = addBlock(*database, L"window");
    for (int n = 0; n < 4; ++n)
      addReference(*database, chair, table);
    addText(*database, L"a table", table);
    addArray(table, room, 2, 3);
    addReference(*database, table, room);
    addReference(*database, room);
    addReference(*database, room);
    addReference(*database, room, database->getPaperSpaceId());
    forWrite<OdDbBlockTableRecord>(room)->setBlockInsertUnits(OdDb::kUnitsMillimeters);
    addDefinition(room, L"NUMBER", false);
    addDefinition(room, L"FLOOR", true);
    addShapes();
    addBlock(*database, L"bad\x202Ename");
    forWrite<OdDbObject>(addReference(*database, chair))->erase();
  }
  void addShapes() {
    makeDynamic(window);
    addReference(*database, window);
    for (int n = 1; n <= 2; ++n) {
      const OdDbObjectId shape = addShape(window);
      for (int shown = 0; shown < n; ++shown)
        addReference(*database, shape, n == 1 ? room : OdDbObjectId());
    }
  }
  OdDbDatabasePtr database = OdDbDatabase::create();
  OdDbObjectId chair, table, room, window;
};

Json blockOf(const Json& report, const std::string& name) {
  for (const Json& block : report["blocks"]) {
    if (block["name"] == name)
      return block;
  }
  ADD_FAILURE() << "no block " << name;
  return {};
}

class Report : public testing::Test {
protected:
  std::string save(const OdDbDatabase& database) const { return scratch_.save(database, "house.dxf"); }
  Json json(const std::string& path, bool all, int status = 0) const {
    std::vector<std::string> words = {"report", path, "--json"};
    if (all)
      words.push_back("--all");
    const Outcome run = runMorvane(words);
    EXPECT_EQ(run.status, status) << run.shown;
    return Json::parse(run.results, nullptr, false);
  }
  Scratch scratch_;
};

TEST_F(Report, CountsReferences) {
  const House house;
  const Json report = json(save(*house.database), true);
  const struct {
    const char* name;
    int references, nested, depth;
    Json references_true, nested_true;
  } rows[] = {
      {"chair", 4, 2 * 7 * 4, 1, nullptr, nullptr}, {"table", 2, 2 * 7, 2, nullptr, nullptr},
      {"room", 3, 2, 3, nullptr, nullptr},          {"window", 1, 1, 1, 4, 1 + 2 + 2},
      {"*U1", 1, 2, 1, nullptr, nullptr},           {"*U2", 2, 2, 1, nullptr, nullptr},
      {"*Model_Space", 0, 0, 4, nullptr, nullptr},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Json block = blockOf(report, row.name);
    EXPECT_EQ(block["references"], row.references);
    EXPECT_EQ(block["references_nested"], row.nested);
    EXPECT_EQ(block["depth"], row.depth);
    EXPECT_EQ(block["references_true"], row.references_true);
    EXPECT_EQ(block["references_true_nested"], row.nested_true);
  }
  EXPECT_EQ(blockOf(report, "table")["entities"], Json({{"INSERT", 4}, {"TEXT", 1}}));
  EXPECT_EQ(blockOf(report, "*U2")["true_name"], "window");
  const Json attributes = blockOf(report, "room")["attribute_definitions"];
  ASSERT_EQ(attributes.size(), 2u);
  EXPECT_EQ(attributes[0]["prompt"], "NUMBER?");
  EXPECT_EQ(attributes[0]["preset"], false);
  EXPECT_EQ(attributes[1]["preset"], true);
}

TEST_F(Report, OmitsAnonymousBlocksUnlessRequested) {
  const House house;
  addLayer(*house.database, L"walls\x202E");
  forWrite<OdDbBlockTableRecord>(addBlock(*house.database, L"site"))->setXref(L"..\\no\\site.dxf", true);
  addBlock(*house.database, L"site|tree");
  const std::string path = save(*house.database);
  const auto names = [&](bool all) {
    std::string text;
    const Json report = json(path, all);
    for (const Json& block : report["blocks"])
      text += (text.empty() ? "" : " ") + block["name"].get<std::string>();
    return text;
  };
  EXPECT_EQ(names(false), "chair table room window bad\xE2\x80\xAE"
                          "name site");
  EXPECT_EQ(names(true), "*Model_Space *Paper_Space chair table room window *U1 *U2 bad\xE2\x80\xAE"
                         "name site site|tree");
  const Json report = json(path, false);
  const Json xref = blockOf(report, "site")["xref"];
  EXPECT_EQ(xref["path"], "..\\no\\site.dxf");
  EXPECT_EQ(xref["overlay"], true);
  EXPECT_EQ(xref["status"], "not-found");
  ASSERT_EQ(report["issues"].size(), 1u);
  EXPECT_EQ(report["issues"][0]["code"], "xref.not-found");
  const Outcome run = runMorvane({"report", path});
  EXPECT_EQ(run.status, 0); // the drawing itself is whole
  EXPECT_NE(run.shown.find("external reference \"site\": file not found: \"..\\no\\site.dxf\""), std::string::npos)
      << run.shown;
  EXPECT_TRUE(report["header"]["clayer"].is_string());
  EXPECT_EQ(report["layers"][1]["name"], "walls\xE2\x80\xAE");
}

TEST_F(Report, PrintsATable) {
  const House house;
  const Outcome run = runMorvane({"report", save(*house.database)});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.results, "Name           References  Nested  Attributes  Depth  Units  Notes\n"
                         "chair                   4      56           0      1  -\n"
                         "table                   2      14           0      2  -\n"
                         "room                    3       2           2      3  mm\n"
                         "window                  4       5           0      1  -      dynamic\n"
                         "bad\\u202Ename           0       0           0      1  -\n");
  EXPECT_EQ(runMorvane({"report", save(*OdDbDatabase::create())}).results, "The drawing has no blocks.\n");
}

TEST_F(Report, ForDialogsIsTheListAlone) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId door = addBlock(*database, L"door");
  const Outcome run = runMorvane({"report", save(*database), "--dialog"});
  EXPECT_EQ(run.results, R"([{"bUniform":false,"blockId":)" + std::to_string(door.getHandle()) +
                             R"(,"explodable":true,"insunits":"1.0000","name":"door","units":0}])" + "\n");
  const Names names{{"$F", scratch_.write("bad.dxf", "hello\n")}};
  EXPECT_EQ(expectRun("report $F --dialog", names, 3, "bad.dxf").results, "");
}

TEST_F(Report, StopsCountingPlacesWhereNumbersEnd) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  OdDbObjectId outer;
  for (int n = 0; n < 2000; ++n) {
    OdString name;
    const OdDbObjectId block = addBlock(*database, name.format(L"b%d", n));
    if (n > 0)
      addArray(outer, block, 100, 10);
    outer = block;
  }
  addReference(*database, outer);
  const auto report = console::report::reportOf(*database);
  std::map<std::string, Block> blocks;
  for (const Block& block : report.blocks)
    blocks[block.name.toUtf8()] = block;
  EXPECT_EQ(blocks["b1999"].references.nested, 1u);
  EXPECT_EQ(blocks["b1995"].references.nested, 1000000000000u);
  EXPECT_EQ(blocks["b0"].references.nested, console::report::kMaxInstances);
  EXPECT_EQ(blocks["b1999"].depth, 2000u);
}

TEST_F(Report, ReportsFilesThatAreDamaged) {
  const std::string room = readFile(kRoom);
  for (const auto& [content, status, issue] : {std::tuple{room, 0, "[]"},
                                               {room.substr(0, room.size() * 9 / 10), 4, "dxf.no-end"},
                                               {"hello\n", 3, "file.refused"}}) {
    const Json report = json(scratch_.write("file.dxf", content), true, status);
    EXPECT_EQ(report["version"], 1);
    EXPECT_EQ(report["status"], status);
    EXPECT_NE(report["issues"].dump().find(issue), std::string::npos) << report["issues"];
    for (const auto& [key, isThere] :
         {std::pair{"header", status != 3}, {"blocks", status != 3}, {"error", status == 3}})
      EXPECT_EQ(report[key].empty(), !isThere) << key << report[key];
  }
}

// What early files have no place for is not made up.
TEST_F(Report, IsSilentOnWhatTheFileDoesNotSay) {
  const std::string kPost = section("BLOCKS", "0|BLOCK\n2|post\n70|0\n10|1\n20|2\n30|0\n3|post\n1|\n0|ENDBLK\n");
  const std::string path = scratch_.write("old.dxf", dxf(kPost, "AC1009"));
  const Json report = json(path, false);
  for (const char* key : {"codepage", "insunits", "measurement", "insbase"})
    EXPECT_TRUE(report["header"][key].is_null()) << key;
  const Json post = blockOf(report, "post");
  EXPECT_EQ(post["base"], Json({1.0, 2.0, 0.0}));
  for (const char* key : {"units", "explodable", "uniform", "true_name", "layout", "xref"})
    EXPECT_TRUE(post[key].is_null()) << key;
}

} // namespace
