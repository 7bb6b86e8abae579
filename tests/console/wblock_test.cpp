// Writing blocks to files by the program: what lands in the file, which names and answers are refused before anything
// changes, and what is remembered for the next time.
#include "tests/console/console_run.h"
#include "tests/support/drawings.h"

#include "console/blocks/write_block_file.h"
#include "console/messages/portable_file_name.h"

#include "DbDimension.h"
#include "DbModelerGeometry.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <fstream>

namespace {

using namespace tests;
using Json = nlohmann::json;

// plan.dxf: definitions, one in another, a reference, three texts, an external reference.
class WblockSubcommand : public testing::Test {
protected:
  WblockSubcommand() {
    const OdDbObjectId leaf = addBlock(*plan_, L"leaf"), door = addBlock(*plan_, L"door");
    addText(*plan_, L"hinge", leaf);
    addReference(*plan_, leaf, door);
    addReference(*plan_, door);
    forWrite<OdDbBlockTableRecord>(door)->setOrigin({1, 2, 0});
    forWrite<OdDbBlockTableRecord>(door)->setBlockInsertUnits(OdDb::kUnitsMeters);
    forWrite<OdDbBlockTableRecord>(addBlock(*plan_, L"site"))->setXref(L"site.dxf");
    for (const wchar_t* name : {L"con", L"CON", L"*U", L"a<b", L"a>b", L"plan"})
      addBlock(*plan_, name);
    for (int number = 0; number < 3; ++number)
      addText(*plan_, L"text");
    plan_->setINSBASE({7, 7, 7});
    scratch_.save(*plan_, "plan.dxf");
  }
  std::string path(const std::string& name) const { return scratch_.path(name); }
  // $O is the folder, a tilde a blank.
  Outcome run(const std::string& options, int status, const std::string& part = {}) const {
    const Names names{{"~", " "}, {"$F", path("plan.dxf")}, {"$O", scratch_.path(".")}};
    return expectRun("wblock $F " + options, names, status, part);
  }

  OdDbDatabasePtr plan_ = OdDbDatabase::create();
  const Scratch scratch_;
};

TEST_F(WblockSubcommand, WritesOneSourceToOneFile) {
  const struct {
    const char* options;
    int status;
    const char* expected; // of the results, or of what is shown
  } kCases[] = {
      {"--block DOOR -o $O/o", 0, R"({"objects":1,"types":{"INSERT":1},"definitions":1,"base":[1,2,0],"units":6})"},
      {"--block door --base 5,5 --units ft -o $O/o.DXF", 0, R"({"base":[5,5,0],"units":2})"},
      {"--select all -o $O/o.dxf", 0, R"({"objects":4,"definitions":2,"base":[0,0,0],"units":4})"},
      // what that version has no place for
      {"--type TEXT --base 1,1 --as 12 -o $O/o", 4, R"({"objects":3,"definitions":0,"version":"R12"})"},
      {"--all -o $O/o", 0, R"({"objects":4,"definitions":3,"base":[7,7,7]})"},
      {"--all --base 1,0,0 -o $O/o", 0, R"({"base":[1,0,0]})"},
      {"--block nothing -o $O/o", 1, "block.unknown"},
      {"--block site -o $O/o", 1, "block.name-external"},
      {"--block *Model_Space -o $O/o", 1, "block.name-of-space"},
      {"--layer none -o $O/o", 1, "select.unknown-layer"},
      {"--all -o $O/o.Dwg", 1, "file.dwg"},
      {"--all -o $O/none/o", 1, "wblock.no-target"},
      {"--all -o $O/plan", 1, "file.exists"},
      {"--all --force -o $O/plan", 1, "wblock.open"},
      {"--all -o ~", 1, "file.no-name"},
      {"--all --block door -o $O/o", 2, ""},
      {"-o $O/o", 2, ""},
      {"--all", 2, ""},
      {"--every-block $O/b -o $O/o", 2, ""},
      {"--all --as 2001 -o $O/o", 2, ""},
      {"--block door --base x -o $O/o", 2, ""},
  };
  const std::string plan = readFile(path("plan.dxf"));
  for (const auto& row : kCases) {
    std::filesystem::remove(path("o.dxf"));
    const Outcome done = run(row.options + std::string(" --json"), row.status, row.status == 1 ? row.expected : "");
    SCOPED_TRACE(done.shown);
    const bool isWritten = row.status == 0 || row.status == 4;
    EXPECT_EQ(std::filesystem::exists(path("o.dxf")), isWritten);
    EXPECT_EQ(readFile(path("plan.dxf")), plan);
    if (!isWritten)
      continue;
    const Json results = Json::parse(done.results)["results"], expected = Json::parse(row.expected);
    for (const auto& [key, value] : expected.items())
      EXPECT_EQ(results[key], value) << key;
    EXPECT_EQ(runMorvane({"audit", path("o.dxf")}).status, 0);
  }
}

TEST_F(WblockSubcommand, WritesEveryBlockOrNothing) {
  run("--every-block $O/b", 0);
  const Json manifest = Json::parse(readFile(path("b/manifest.json")));
  std::vector<std::string> files;
  for (const Json& row : manifest["blocks"]) {
    files.push_back(row["file"]);
    EXPECT_EQ(drawing::readDrawing(path("b/" + files.back())).report.outcome(), drawing::Outcome::kWhole);
    EXPECT_TRUE(std::filesystem::exists(path("b/" + row["preview"].get<std::string>())));
  }
  EXPECT_EQ(files, (std::vector<std::string>{"leaf.dxf", "door.dxf", "_con.dxf", "_U1.dxf", "a_b.dxf", "a_b-2.dxf",
                                             "plan.dxf"}));
  EXPECT_EQ(manifest["leftOut"][0]["block"], "site");

  const std::string before = readFile(path("b/door.dxf"));
  run("--every-block $O/b --as 2000", 1);
  EXPECT_EQ(readFile(path("b/door.dxf")), before);
  run("--every-block $O/b --as 2000 --force --no-anonymous", 0);
  EXPECT_EQ(drawing::readDrawing(path("b/door.dxf")).database->fileInfo().version, OdDb::kRelease2000);
  EXPECT_EQ(Json::parse(readFile(path("b/manifest.json")))["leftOut"][1]["reason"], "anonymous");
  run("--every-block $O/none/b", 6);

  const std::string plan = readFile(path("plan.dxf"));
  run("--every-block $O --force", 1); // one of them would be the drawing itself
  EXPECT_EQ(readFile(path("plan.dxf")), plan);
  EXPECT_FALSE(std::filesystem::exists(path("leaf.dxf")));
}

// The drawing is saved as plan.dxf and the script runs on it.
Outcome runOn(const Scratch& scratch, const OdDbDatabase& plan, const std::string& script) {
  return runMorvane({"-c", script, scratch.save(plan, "plan.dxf")}, {}, scratch.path("config.json"));
}

TEST(WblockCommand, RemembersFormatAndFolderAndDoesNotPromptWithoutUser) {
  const Scratch scratch;
  const std::string config = scratch.path("config.json"), out = scratch.path("out.dxf");
  const auto run = [&](std::vector<std::string> options, const std::string& script) {
    options.insert(options.end(), {"-c", "LINE 0,0 1,1\n\n" + script, "examples/drawings/room.dxf"});
    return runMorvane(options, {}, config);
  };
  EXPECT_EQ(run({}, "WBLOCK " + out + "\n2004\n*\n\n").status, 0);
  const Json stored = Json::parse(readFile(config));
  EXPECT_EQ(stored["Write_block_dialog"]["Items\\ComBoxGetCurSel"], replaced(out, "/", "\\"));
  EXPECT_EQ(stored["wblock_dialog"], (Json{{"SaveFormatType", 1}, {"SaveFormatVersion", 25}}));
  const std::string before = readFile(out);
  const Outcome refused = run({"--no-prompt"}, "WBLOCK out\n");
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(readFile(out), before);
  EXPECT_NE(run({}, "WBLOCK next\n\n*\n\n").shown.find("version 2004"), std::string::npos);
  EXPECT_TRUE(std::filesystem::exists(scratch.path("next.dxf")));
  std::ofstream(config) << R"({"Write_block_dialog":{"Items\\ComBoxGetCurSel":"\\none\\gone.dxf"}})";
  const Outcome beside = run({}, "SAVEAS " + scratch.path("room.dxf") + "\n\nWBLOCK beside\n\n*\n\n");
  EXPECT_NE(beside.shown.find("no longer exists"), std::string::npos) << beside.shown;
  EXPECT_TRUE(std::filesystem::exists(scratch.path("beside.dxf")));
  for (const auto& [kept, offered] : {std::pair{"23", "<2000>"},
                                      {"16", "<R12>"},
                                      {"21", "<2000>"},
                                      {"18", "<2018>"},
                                      {"99", "<2018>"},
                                      {"\"x\"", "<2018>"}}) {
    std::ofstream(config) << R"({"wblock_dialog":{"SaveFormatType":1,"SaveFormatVersion":)" << kept << "}}";
    EXPECT_NE(run({}, "WBLOCK " + scratch.path("o") + "\n").shown.find(offered), std::string::npos) << kept;
  }
}

// A body takes no matrix: it is not in a file whose origin lies elsewhere, so it stays in the drawing; and no version
// before 13 has any.
TEST(WblockCommand, DeletesOnlyWhatItHasWritten) {
  const struct {
    const char *version, *base, *answers;
    std::size_t inFile, left;
  } kCases[] = {{"2018", "0,0", "Delete", 2, 0},
                {"2018", "1,1", "Delete", 1, 1},
                {"2018", "1,1", "Keep", 1, 2},
                {"12", "0,0", "Delete", 1, 1}};
  for (const auto& row : kCases) {
    const Scratch scratch;
    const OdDbDatabasePtr plan = OdDbDatabase::create();
    addText(*plan, L"text");
    addTo<OdDb3dSolid>(plan->getModelSpaceId())->setLayer(addLayer(*plan, L"solids"));
    const std::string script = "WBLOCK " + scratch.path("o") + "\n" + row.version + "\n\n" + row.base + "\nAll\n\n" +
                               row.answers + "\n\nSAVEAS " + scratch.path("after.dxf") + "\n\n";
    const Outcome done = runOn(scratch, *plan, script);
    SCOPED_TRACE(done.shown);
    EXPECT_EQ(done.status, row.inFile == 1 ? 4 : 0);
    const OdDbDatabasePtr made = drawing::readDrawing(scratch.path("o.dxf")).database;
    EXPECT_EQ(console::countOf(*made).objects, row.inFile);
    EXPECT_EQ(made->symbol(OdDb::kLayerTable, L"solids").isNull(),
              row.inFile == 1 && row.version == std::string("2018"))
        << "nobody in the file needs it";
    EXPECT_EQ(console::countOf(*drawing::readDrawing(scratch.path("after.dxf")).database).objects, row.left);
  }
}

TEST(WblockCommand, RotatesWithTheUcsWhateverLayerIsLocked) {
  const Scratch scratch;
  const OdDbDatabasePtr plan = OdDbDatabase::create();
  const OdDbObjectId layer = addLayer(*plan, L"walls");
  forWrite<OdDbText>(addText(*plan, L"text"))->setLayer(layer);
  forWrite<OdDbLayerTableRecord>(layer)->setIsLocked(true);
  addTo<OdDbRotatedDimension>(plan->getModelSpaceId())->setHorizontalRotation(-0.5);
  const std::string script = "UCS Z 90\nWBLOCK " + scratch.path("o") + "\n2018\n\n1,0\nAll\n\nKeep\n\n";
  const Outcome done = runOn(scratch, *plan, script);
  EXPECT_EQ(done.status, 0) << done.shown;
  const OdDbDatabasePtr made = drawing::readDrawing(scratch.path("o.dxf")).database;
  ASSERT_FALSE(made.isNull());
  const auto iterator = forRead<OdDbBlockTableRecord>(made->getModelSpaceId())->newIterator();
  const OdDbTextPtr text = iterator->entity();
  EXPECT_TRUE(text->position().isEqualTo({-1, 0, 0}));
  EXPECT_TRUE(forRead<OdDbLayerTableRecord>(text->layerId())->isLocked());
  iterator->step();
  // Letters stay level in the UCS, as they do in a block.
  EXPECT_NEAR(OdDbDimensionPtr(iterator->entity())->horizontalRotation(), std::acos(-1) / 2 - 0.5, 1e-9);
}

TEST(BlockCommand, RemembersItsSettingsOnceABlockIsMade) {
  const Scratch scratch;
  const std::string config = scratch.path("config.json");
  const auto run = [&](const std::string& script) {
    return runMorvane({"-c", "LINE 0,0 1,1\n\n" + script}, {}, config);
  };
  EXPECT_EQ(run("BLOCK a Settings Explodable Uniform Open\n0,0 All\n\nCancelled\n").status, 5);
  EXPECT_FALSE(std::filesystem::exists(config) && Json::parse(readFile(config)).contains("block_dialog"));
  EXPECT_EQ(run("BLOCK a Settings Explodable Uniform Open\n\n0,0 All\n\nKeep\nLIST\n").status, 0);
  EXPECT_EQ(Json::parse(readFile(config))["block_dialog"], (Json{{"BasePointOnScreen", false},
                                                                 {"ObjectsOnScreen", false},
                                                                 {"ObjectsPostprocessing", 0},
                                                                 {"Explode", false},
                                                                 {"ScaleUniform", false},
                                                                 {"bOpenInEditor", true}}));
  const Outcome again = run("BLOCK b 0,0 All\n\n\nBCLOSE\nSAVEAS " + scratch.path("o.dxf") + "\n\n");
  EXPECT_NE(again.shown.find("<Keep>"), std::string::npos) << again.shown;
  const OdDbDatabasePtr made = drawing::readDrawing(scratch.path("o.dxf")).database;
  const auto block = forRead<OdDbBlockTableRecord>(made->symbol(OdDb::kBlockTable, L"b"));
  EXPECT_FALSE(block->explodable());
  EXPECT_EQ(block->blockScaling(), OdDbBlockTableRecord::kAny);
}

TEST(PortableNames, AreSafeAndDistinctOnEveryFileSystem) {
  const struct {
    OdString text, name;
  } kCases[] = {{L"door", L"door"},
                {L"DOOR", L"DOOR-2"},
                {L"door-2", L"door-2-2"},
                {L"", L"_"},
                {L".", L"_-2"},
                {L"*U12", L"_U12"},
                {L"a/b\\c:d", L"a_b_c_d"},
                {L"-rf", L"_rf"},
                {L".hidden. ", L"_hidden._"},
                {L"con", L"_con"},
                {L"Com1.v2", L"_Com1.v2"},
                {L"LPT\u00B9", L"_LPT\u00B9"},
                {L"COM10", L"COM10"},
                {L"\u95E8 \u0434\u0432\u0435\u0440\u044C", L"\u95E8 \u0434\u0432\u0435\u0440\u044C"},
                {L"a\nb\u202E", L"a_b_"},
                {OdString(std::wstring(1, wchar_t(0xDC80))), L"_-3"},
                {OdString(std::wstring(90, L'\u95E8')), OdString(std::wstring(66, L'\u95E8'))}};
  console::PortableNames names;
  for (const auto& row : kCases)
    EXPECT_EQ(names.add(row.text), row.name) << row.text.toUtf8Lossless();
}

} // namespace
