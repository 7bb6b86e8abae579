// Inserting: units, clashes, values of attributes, lists; and that a refused or cancelled insertion leaves nothing.
#include "tests/console/console_run.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

#include "console/app/command_loop.h"
#include "console/app/registry.h"
#include "morvane/input.h"

#include <nlohmann/json.hpp>

namespace {

using console::Status;
using namespace tests;
using Json = nlohmann::json;

// A drawing file of what the commands draw.
std::string drawn(const Scratch& scratch, const std::string& name, const std::string& commands) {
  const std::string path = scratch.path(name);
  std::filesystem::create_directories(std::filesystem::path(path).parent_path());
  const Outcome run = runMorvane({"-c", commands + "SAVEAS " + path + " 2018\n"});
  EXPECT_EQ(run.status, 0) << run.shown;
  return path;
}

struct JsonRun {
  int status;
  Json json;
};

JsonRun insert(std::vector<std::string> arguments, const std::string& input = {}) {
  arguments.insert(arguments.begin(), "insert");
  arguments.push_back("--json");
  const Outcome run = runMorvane(arguments, input);
  return {run.status, Json::parse(run.results, nullptr, false)};
}

TEST(Insert, ScalesByTheUnitsOfBlockAndDrawing) {
  for (const auto& [of, into, factor] : {std::tuple{"1", "6", 0.0254}, {"0", "6", 1.0}, {"4", "0", 1.0}}) {
    const Scratch scratch;
    const auto inUnits = [&](const char* name, const std::string& units) {
      return drawn(scratch, name, "SETVAR INSUNITS " + units + "\nLINE 0,0 1,0\n\n");
    };
    const std::string part = inUnits("part.dxf", of), target = inUnits("target.dxf", into);
    const JsonRun run = insert({target, "--file", part, "--at", "1,2,3", "--scale", "2,3,4", "--force", "-o", target});
    EXPECT_DOUBLE_EQ(run.json["results"]["inserted"][0]["factor"].get<double>(), factor) << run.json;
    const drawing::ReadResult read = drawing::readDrawing(target);
    const auto reference = forRead<OdDbBlockReference>(entitiesOf(read.database->getModelSpaceId())[1]);
    EXPECT_TRUE(reference->position().isEqualTo(OdGePoint3d(1, 2, 3)));
    EXPECT_NEAR(reference->scaleFactors().sy, 3 * factor, 1e-9);
  }
}

// The target has `door` (a line, and a nested `leaf`); each file is put in under that name.
TEST(Insert, ResolvesConflictsByThePolicy) {
  const Scratch scratch;
  const std::string leaf = "CIRCLE 0,0 1\nBLOCK leaf 0,0 All\n\nConvert\n",
                    other = "CIRCLE 0,0 2\nBLOCK leaf 0,0 All\n\nConvert\n";
  const std::string target = drawn(scratch, "target.dxf", leaf + "LINE 0,0 1,0\n\nBLOCK door 0,0 All\n\nConvert\n");
  drawn(scratch, "same/door.dxf", leaf + "LINE 0,0 1,0\n\n");
  drawn(scratch, "case/DOOR.dxf", leaf + "LINE 0,0 2,0\n\n");
  drawn(scratch, "nested/door.dxf", other + "LINE 0,0 1,0\n\n");
  drawn(scratch, "own/gate.dxf", other);
  drawn(scratch, "self/door.dxf", "LINE 0,0 1,0\n\nBLOCK door 0,0 All\n\nConvert\nCIRCLE 0,0 5\n");
  const struct {
    const char *file, *policy;
    int status;
    std::string how, block;
    std::size_t renamed, kept;
    const char* message;
  } kCases[] = {
      {"same/door.dxf", "refuse", 1, "", "", 0, 0, "insert.clash-same"},
      {"same/door.dxf", "rename", 0, "shared", "door", 0, 0, "insert.clash-shared"},
      {"same/door.dxf", "keep", 0, "shared", "door", 0, 0, "insert.clash-shared"},
      {"same/door.dxf", "replace", 0, "replaced", "door", 0, 0, "insert.clash-replaced"},
      {"case/DOOR.dxf", "refuse", 1, "", "", 0, 0, "insert.clash-other"},
      {"case/DOOR.dxf", "keep", 0, "kept", "door", 0, 0, "insert.clash-kept"},
      {"case/DOOR.dxf", "replace", 0, "replaced", "door", 0, 0, "insert.clash-replaced"},
      {"case/DOOR.dxf", "rename", 0, "renamed", "DOOR-2", 0, 0, "insert.clash-renamed"},
      {"nested/door.dxf", "rename", 0, "renamed", "door-2", 1, 0, "insert.nested-renamed"},
      {"nested/door.dxf", "replace", 0, "replaced", "door", 0, 1, "insert.nested-kept"},
      {"own/gate.dxf", "refuse", 0, "made", "gate", 0, 1, "insert.nested-kept"},
      {"own/gate.dxf", "rename", 0, "made", "gate", 1, 0, "insert.nested-renamed"},
      {"self/door.dxf", "rename", 0, "renamed", "door-2", 1, 0, "insert.nested-renamed"},
      {"self/door.dxf", "replace", 0, "replaced", "door", 0, 1, "insert.note"},
  };
  for (const auto& row : kCases) {
    const std::string out = scratch.path("out.dxf");
    std::filesystem::remove(out);
    const JsonRun run = insert({target, "--file", scratch.path(row.file), "--on-clash", row.policy, "-o", out});
    const std::string where = std::string(row.file) + " " + row.policy + " " + run.json.dump();
    EXPECT_EQ(run.status, row.status) << where;
    EXPECT_NE(where.find(row.message), std::string::npos) << where;
    EXPECT_EQ(std::filesystem::exists(out), row.status == 0) << where;
    if (row.status != 0)
      continue;
    const Json done = run.json["results"]["inserted"][0];
    EXPECT_EQ(done["definition"], row.how) << where;
    EXPECT_EQ(done["block"], row.block) << where;
    EXPECT_EQ(done["renamed"].size(), row.renamed) << where;
    EXPECT_EQ(done["kept"].size(), row.kept) << where;
    EXPECT_EQ(runMorvane({"audit", out}).status, 0) << where;
  }
}

// Nested definitions that were set apart for one file serve the next one that has the same.
TEST(Insert, OfAListSharesNestedBlocksThatAreTheSame) {
  const Scratch scratch;
  const std::string leaf = "CIRCLE 0,0 1\nBLOCK leaf 0,0 All\n\nConvert\n";
  const std::string target = drawn(scratch, "target.dxf", leaf), out = scratch.path("out.dxf");
  std::string list;
  for (const std::string number : {"1", "2", "3"}) { // each with a line of its own
    drawn(scratch, number + ".dxf", replaced(leaf, "0,0 1", "0,0 2") + "LINE 0,0 " + number + ",0\n\n");
    list += number + ".dxf\n";
  }
  const JsonRun run = insert({target, "--file-list", scratch.write("list.txt", list), "-o", out});
  EXPECT_EQ(run.status, 0) << run.json;
  for (const Json& one : run.json["results"]["inserted"])
    EXPECT_EQ(one["renamed"], Json::parse(R"([{"name": "leaf", "now": "leaf-2"}])"));
  const drawing::ReadResult read = drawing::readDrawing(out);
  EXPECT_TRUE(read.database->symbol(OdDb::kBlockTable, L"leaf-3").isNull());
  const OdDbBlockTableRecordPtr shared = read.database->symbol(OdDb::kBlockTable, L"leaf-2").safeOpenObject();
  EXPECT_EQ(shared->getBlockReferenceIds().length(), 3);
}

constexpr char kTagged[] =
    "ATTDEF NO Number\n7\n0,0\n1\nATTDEF NO Again\n8\n0,2\n1\nATTDEF SET\n\npre\nModes Preset\n\n0,4\n1\n";

TEST(Insert, TakesValuesByTagAndPromptsForTheRest) {
  const Scratch scratch;
  const std::string part = drawn(scratch, "part.dxf", kTagged),
                    target = drawn(scratch, "target.dxf", "LINE 0,0 1,0\n\n");
  const struct {
    std::vector<std::string> options;
    std::string input;
    int status;
    std::vector<std::string> values;
  } kCases[] = {
      {{"--defaults"}, "", 0, {"7", "8", "pre"}},
      {{"--attr", "no=1", "--attr", "NO#2=2=2"}, "", 0, {"1", "2=2", "pre"}},
      {{"--attr", "NO#2=x y"}, "typed\n", 0, {"typed", "x y", "pre"}},
      {{"--attr", "#3=own", "--defaults"}, "", 0, {"7", "8", "own"}},
      {{}, "\n", 5, {}},
      {{}, "one\ntwo words\n", 0, {"one", "two words", "pre"}},
      {{"--no-prompt"}, "one\ntwo\n", 1, {}},
      {{"--no-prompt", "--attr", "NO=1", "--attr", "NO#2=2"}, "", 0, {"1", "2", "pre"}},
      {{"--attr", "NO#3=1", "--defaults"}, "", 1, {}},
      {{"--attr", "=1"}, "", 2, {}},
  };
  for (const auto& row : kCases) {
    const std::string out = scratch.path("out.dxf");
    std::filesystem::remove(out);
    std::vector<std::string> arguments{target, "--file", part, "-o", out};
    arguments.insert(arguments.end(), row.options.begin(), row.options.end());
    const JsonRun run = insert(arguments, row.input);
    EXPECT_EQ(run.status, row.status) << run.json;
    EXPECT_EQ(std::filesystem::exists(out), row.status == 0);
    std::vector<std::string> values;
    if (row.status == 0) {
      for (const Json& attribute : run.json["results"]["inserted"][0]["attributes"])
        values.push_back(attribute["value"]);
    }
    EXPECT_EQ(values, row.values);
  }
}

std::vector<OdString> linesOf(const std::string& script) {
  std::vector<OdString> lines;
  for (std::size_t from = 0, end = 0; (end = script.find('\n', from)) != std::string::npos; from = end + 1)
    lines.push_back(OdString::fromUtf8(script.substr(from, end - from)));
  return lines;
}

// One answer in a line makes the same drawing typed and in a script; cut off anywhere, nothing of the insertion.
TEST(Insert, PromptsTheSameForEveryInputSource) {
  const std::string script = replaced(readFile("tests/console/transcripts/insert-attributes.scr"), "\r", "");
  const std::string commands = script.substr(script.find('\n') + 1);
  std::string entered;
  {
    TestSession console;
    console.session().answerFrom(std::make_shared<morvane::ListSource>(linesOf(commands)));
    console::runCommands(console.session(), console::allCommands());
    EXPECT_EQ(console.session().status(), Status::kDone) << console.takeShown();
    entered = console.dump();
  }
  {
    TestSession console;
    ASSERT_EQ(console.run(commands), Status::kDone) << console.takeShown();
    EXPECT_EQ(console.dump(), entered);
  }
  const std::size_t begins = commands.find("INSERT\n"), ends = commands.find("INSERT\n", begins + 1);
  TestSession console;
  ASSERT_EQ(console.run(commands.substr(0, begins)), Status::kDone);
  const std::string before = console.dump();
  const std::string insertion = commands.substr(begins, ends - begins);
  for (std::size_t cut = insertion.find('\n'); cut + 1 < insertion.size(); cut = insertion.find('\n', cut + 1)) {
    EXPECT_EQ(console.run(insertion.substr(0, cut + 1)), Status::kCancelled) << insertion.substr(0, cut);
    EXPECT_EQ(console.dump(), before) << insertion.substr(0, cut);
  }
}

TEST(Insert, OfAListGoesOnOverBadFiles) {
  const Scratch scratch;
  const std::string target = drawn(scratch, "target.dxf", "LINE 0,0 1,0\n\n"), out = scratch.path("out.dxf");
  drawn(scratch, "a/x.dxf", "CIRCLE 0,0 1\n");
  drawn(scratch, "b/x.dxf", "CIRCLE 0,0 2\n");
  drawn(scratch, "c/x.dxf", "CIRCLE 0,0 1\n");
  scratch.write("bad.dxf", "not a drawing");
  scratch.write("old.dwg", "AC1015 and so on");
  const std::string list =
      scratch.write("list.txt", "# parts\na/x.dxf\r\nbad.dxf\n\nb/x.dxf\nold.dwg\nmissing.dxf\nc/x.dxf \n");
  const JsonRun run = insert({target, "--file-list", list, "--grid", "2,10,100", "--at", "1,1", "-o", out});
  EXPECT_EQ(run.status, 3);
  const Json& results = run.json["results"];
  ASSERT_EQ(results["inserted"].size(), 3U) << run.json;
  EXPECT_EQ(results["failed"], 3);
  EXPECT_EQ(results["inserted"][0]["block"], "x");
  EXPECT_EQ(results["inserted"][1]["block"], "x-2");
  EXPECT_EQ(results["inserted"][2]["definition"], "shared");
  EXPECT_NE(run.json.dump().find("list-sum"), std::string::npos);
  const drawing::ReadResult read = drawing::readDrawing(out);
  const OdDbObjectIdArray shown = entitiesOf(read.database->getModelSpaceId()); // behind the line
  ASSERT_EQ(shown.size(), 4U);
  const auto at = [&](unsigned n) { return forRead<OdDbBlockReference>(shown[n])->position(); };
  EXPECT_TRUE(at(2).isEqualTo(OdGePoint3d(1, 101, 0)));  // the third of the list
  EXPECT_TRUE(at(3).isEqualTo(OdGePoint3d(11, 201, 0))); // the sixth
}

TEST(Insert, DryRunReportsAndChangesNothing) {
  const Scratch scratch;
  const std::string target =
      drawn(scratch, "target.dxf",
            "LAYER Make walls\nSet 0\n\nSETVAR INSUNITS 4\nCIRCLE 0,0 1\nBLOCK leaf 0,0 All\n\nDelete\n");
  const std::string part = drawn(scratch, "part.dxf",
                                 std::string("LAYER Make walls\nSet 0\nLock walls\n\nSETVAR INSUNITS 6\n") + kTagged +
                                     "CIRCLE 0,0 3\nBLOCK leaf 0,0 Last\n\nConvert\n");
  const std::string before = readFile(target);
  const JsonRun run = insert({target, "--file", part, "--dry-run", "--attr", "NO=1"});
  ASSERT_EQ(run.status, 0) << run.json;
  const Json preview = run.json["results"]["preview"][0];
  EXPECT_EQ(preview["factor"], 1000);
  EXPECT_EQ(preview["questions"], Json({"Again"}));
  EXPECT_EQ(preview["clashes"], Json::parse(R"([{"name": "leaf", "same": false}])"));
  EXPECT_EQ(preview["kept"], Json::parse(R"([{"kind": "layer", "name": "walls"}])"));
  EXPECT_EQ(readFile(target), before);
}

} // namespace
