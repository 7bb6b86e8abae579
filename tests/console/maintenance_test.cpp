// Jobs that keep a drawing in order: purging and renaming, as subcommands and as commands; and that commands are steps.
#include "tests/console/console_run.h"

#include "DbBlockTable.h"
#include "drawing/dump.h"
#include "drawing/file.h"

#include <gtest/gtest.h>

namespace {

using namespace tests;

// The room with a block "table" in a block "corner" that nothing shows, and one "lamp" that is shown.
std::string house(const Scratch& scratch) {
  const std::string script = "BLOCK table 0,0 Type circle\n\nKeep\nBLOCK lamp 0,0 Handle 28\n\nConvert\n"
                             "BLOCK corner 0,0 Layer furniture\n\nDelete\nSAVEAS " +
                             scratch.path("house.dxf") + " 2018\n";
  const Outcome run = runMorvane({kRoom}, script);
  EXPECT_EQ(run.status, 0) << run.shown;
  return scratch.path("house.dxf");
}

TEST(Maintenance, EndsWithTheStatusAndTheReason) {
  const struct {
    const char* line; // $D the house, $OUT a new file; an underscore is a blank, a tilde an underscore
    int status;
    const char* part;
    bool writes;
  } cases[] = {
      {"purge $D", 2, "--dry-run", false},
      {"purge $D --dry-run", 0, "Can be purged: block \"corner\"", false},
      {"purge $D --dry-run -o $OUT", 0, "Can be purged: block \"table\"", false},
      {"purge $D --dry-run --why", 0, "block \"lamp\": used in \"*Model~Space\" (1 time)", false},
      {"purge $D --dry-run --kind layer", 0, "Nothing to purge", false},
      {"purge $D --kind chair -o $OUT", 2, "--kind", false},
      {"purge $D --kind block -o $OUT", 0, "2 objects purged", true},
      {"purge $D -o $OUT --json", 0, "\"kind\": \"layer\"", true},
      {"purge $D -o $D", 1, "--force", false},
      {"audit $D", 0, "No problems found", false},
      {"audit $D --json", 0, "\"outcome\": \"whole\"", false},
      {"audit $D --fix", 2, "--fix and -o", false},
      {"audit $D -o $OUT", 2, "--fix and -o", false},
      {"audit nosuch.dxf", 3, "nosuch.dxf", false},
      {"audit $D --fix -o $D", 1, "--force", false},
      {"audit $D --fix -o $OUT", 0, "Saved", true},
      {"audit $D --encoding klingon", 2, "--encoding takes", false},
      {"--max-memory 12Q -c LIST $D", 2, "--max-memory takes", false},
      {"audit $D --max-memory 99999999999999999999G", 2, "--max-memory takes", false},
      {"audit $D --max-depth 0", 2, "--max-depth", false},
      {"audit $D --max-memory 30K", 3, "house.dxf, line ", false},
      {"audit $D --max-memory 30K", 3, "30720 bytes of memory", false},
      {"purge $D --dry-run --max-memory 1g --max-depth 2 --encoding DOS866", 0, "Can be purged", false},
      {"rename $D -o $OUT", 2, "OLD=NEW", false},
      {"rename $D -o $OUT --block lamp", 2, "--block takes OLD=NEW", false},
      {"rename $D -o $OUT --block lamp=light --layer DOOR=Door", 0, "Renamed block \"lamp\" to \"light\".", true},
      {"rename $D -o $OUT --block lamp=light --block light=corner", 1, "A block \"corner\" already exists", false},
      {"rename $D -o $OUT --block chair=light", 1, "Cannot find block \"chair\"", false},
      {"rename $D -o $OUT --block lamp=a|b", 1, "\"|\" is not allowed", false},
      {"rename $D -o $OUT --block lamp=*U3", 1, "anonymous", false},
      {"rename $D -o $OUT --block *MODEL~SPACE=x", 1, "every drawing requires it", false},
      {"rename $D -o $OUT --layer 0=zero", 1, "every drawing requires it", false},
      {"rename $D -o $OUT --layer door=a*b", 1, "is not a valid name for a layer", false},
      {"rename $D -o $OUT --style Standard=plain", 1, "every drawing requires it", false},
      {"rename $D -o $OUT --linetype Continuous=x", 1, "every drawing requires it", false},
      {"rename $D -o $OUT --json --layer walls=outer_walls", 0, "\"to\": \"outer walls\"", true},
  };
  for (const auto& row : cases) {
    const Scratch scratch;
    const std::string in = house(scratch), before = readFile(in), out = scratch.path("out.dxf");
    expectRun(row.line, {{"_", " "}, {"~", "_"}, {"$D", in}, {"$OUT", out}}, row.status, row.part);
    EXPECT_EQ(std::filesystem::exists(out), row.writes) << row.line;
    EXPECT_EQ(readFile(in), before) << row.line;
  }
}

TEST(Maintenance, TheWrittenFileMatchesTheReport) {
  const Scratch scratch;
  const std::string out = scratch.path("out.dxf");
  ASSERT_EQ(runMorvane({"purge", house(scratch), "-o", out}).status, 0);
  ASSERT_EQ(runMorvane({"rename", out, "--force", "-o", out, "--block", "lamp=light", "--layer", "walls=Wände"}).status,
            0);
  const drawing::ReadResult read = drawing::readDrawing(out);
  OdDbDatabase& database = *read.database;
  EXPECT_EQ(read.report.outcome(), drawing::Outcome::kWhole);
  EXPECT_TRUE(database.symbol(OdDb::kBlockTable, L"corner").isNull());
  EXPECT_TRUE(database.symbol(OdDb::kLayerTable, L"walls").isNull());
  EXPECT_FALSE(database.symbol(OdDb::kLayerTable, L"WÄNDE").isNull());
  const OdDbBlockTableRecordPtr light = database.symbol(OdDb::kBlockTable, L"light").safeOpenObject();
  ASSERT_FALSE(light.isNull());
  EXPECT_EQ(light->getBlockReferenceIds().length(), 1);
}

// A layout whose block is gone and a handle that is used twice: found while reading, and whole in the file that is
// written.
TEST(Maintenance, AuditRepairsTheDrawingAndNeverItsFile) {
  const Scratch scratch;
  std::string bytes = readFile(house(scratch));
  const auto layout = bytes.find("AcDbLayout", bytes.find("\nLAYOUT\n"));
  bytes.replace(bytes.find("\n330\n", layout), 5, "\n330\nF");
  const std::string start = "\nLINE\n  5\n";
  const auto first = bytes.find(start) + start.size();
  const auto second = bytes.find(start, first) + start.size();
  bytes.replace(second, bytes.find('\n', second) - second, bytes.substr(first, bytes.find('\n', first) - first));
  const std::string in = scratch.write("hurt.dxf", bytes);
  const Names names{{"$F", in}, {"$OUT", scratch.path("out.dxf")}};
  const Outcome looked = expectRun("audit $F --json", names, 4, "\"outcome\": \"repaired\"");
  for (const char* part : {"\"code\": \"dxf.duplicate-handle\"", "\"section\": \"BLOCKS\"",
                           "\"code\": \"dxf.layout-without-block\"", "\"dropped\": 0"})
    EXPECT_NE(looked.results.find(part), std::string::npos) << part << looked.results;
  expectRun("audit $F", names, 4, "repaired  line ");
  expectRun("audit $F --fix -o $F", names, 1, "");
  EXPECT_EQ(readFile(in), bytes);
  expectRun("audit $F --fix -o $OUT", names, 4, "");
  expectRun("audit $OUT", names, 0, "");
}

TEST(Commands, AreOneStepEach) {
  const Scratch scratch;
  const std::string drawing = house(scratch);
  for (const char* command :
       {"LINE 0,0 1,0 1,1 C\n", "CIRCLE 1,1 4\n", "TEXT 0,0 1 0 words\n", "ATTDEF T P\nV\n0,0 1\n",
        "ERASE Type LINE\n\n", "LAYER Make new\nLock 0\n\n", "UCS Z 30\n", "SETVAR INSUNITS 2\n",
        "BLOCK b 0,0 All\n\nKeep\n", "BLOCK b 0,0 All\n\nConvert\n", "BLOCK b 0,0 All\n\nDelete\n",
        "BLOCK corner 1 0,0 Type LINE\n\nConvert\n", "PURGE\n\n", "PURGE Blocks\n", "RENAME Block\nlamp\nlight\n",
        "REN LAyer walls outside\n"}) {
    TestSession session;
    ASSERT_EQ(session.run("OPEN " + drawing + "\n"), console::Status::kDone);
    const std::string before = session.dump();
    EXPECT_EQ(session.run(command), console::Status::kDone) << command << session.takeShown();
    const std::string after = session.dump();
    EXPECT_NE(after, before) << command;
    EXPECT_EQ(session.run("UNDO\n"), console::Status::kDone);
    EXPECT_EQ(session.dump(), before) << command;
    EXPECT_EQ(session.run("REDO\n"), console::Status::kDone);
    EXPECT_EQ(session.dump(), after) << command;
  }
}

TEST(Maintenance, CommandsThatAreRefusedChangeNothing) {
  const Scratch scratch;
  TestSession session;
  session.run("OPEN " + house(scratch) + "\n");
  const std::string before = session.dump();
  EXPECT_EQ(session.run("RENAME Block lamp corner\n"), console::Status::kRefused);
  EXPECT_EQ(session.run("RENAME LAyer 0 zero\n"), console::Status::kRefused);
  EXPECT_EQ(session.run("RENAME Block lamp"), console::Status::kCancelled);
  EXPECT_EQ(session.run("PURGE ?"), console::Status::kCancelled);
  const std::string shown = session.takeShown();
  EXPECT_NE(shown.find("Can be purged: block \"table\""), std::string::npos) << shown;
  EXPECT_NE(shown.find("Not purged: block \"lamp\""), std::string::npos) << shown;
  EXPECT_EQ(session.dump(), before);
}

} // namespace
