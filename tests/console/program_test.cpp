// The program as it is called: exit statuses, files that are replaced or kept, and the report for machines.
#include "tests/console/console_run.h"
#include "tests/support/failing_files.h"

#include "DbBlockTable.h"
#include "console/messages/catalog/blocks.h"
#include "console/messages/catalog/selection.h"
#include "console/messages/messages.h"
#include "drawing/dump.h"
#include "drawing/file.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace {

using namespace tests;

constexpr struct {
  const char* line; // $D is the room, $OUT a file that is not there, $OLD one that is
  int status;
  const char* part; // of what is shown
} kCommandLines[] = {
    {"--help", 0, "make"},
    {"--version", 0, "morvane"},
    {"--nosuch", 2, "--nosuch"},
    {"-c LIST -f x.scr", 2, "excludes"},
    {"-f nosuch.scr", 3, "nosuch.scr"},
    {"-c LIST nosuch.dxf", 3, "nosuch.dxf"},
    {"-c LIST $D", 0, "18 objects"},
    {"-c NOSUCH $D", 1, "NOSUCH"},
    {"-c LINE $D", 5, "*Cancel*"},
    {"-c LIST $CUT", 4, "the file has no EOF"},
    {"make", 2, "FILE"},
    {"make $D -o $OUT --base 0,0 --select all", 2, "--name"},
    {"make $D -o $OUT --name n --select all", 2, "--base"},
    {"make $D --base 0,0 --name n --select all", 2, "--output"},
    {"make $D -o $OUT --name n --base 0,0", 2, "--layer"},
    {"make $D -o $OUT --name n --base 0,0 --select some", 2, "--select"},
    {"make $D -o $OUT --name n --base 0 --select all", 2, "--base takes"},
    {"make $D -o $OUT --name n --base 0,1e999 --select all", 2, "--base takes"},
    {"make $D -o $OUT --name n --base 0,nan --select all", 2, "--base takes"},
    {"make $D -o $OUT --name n --base 0,0,0,0 --select all", 2, "--base takes"},
    {"make $D -o $OUT --name n --base 0,0 --select all --ucs 0,0,0/1,0,0/1,1,0", 2, "--ucs takes"},
    {"make $D -o $OUT --name n --base 0,0 --select all --units 25", 2, "--units takes"},
    {"make $D -o $OUT --name n --base 0,0 --select all --units cubits", 2, "--units takes"},
    {"make $D -o $OUT --name n --base 0,0 --handle 2G", 2, "--handle takes"},
    {"make $D -o $OUT --name n --base 0,0 --select all --keep --delete", 2, "--keep"},
    {"make $D -o $OUT --name n --base -5,-5 --handle 22", 0, "made of 1 object."},
    {"make $D -o $OUT --name n --base 0,0 --layer DOOR --type circle --handle 28 --units mm", 0, "of 7 objects"},
    {"make $D -o $OUT --name n --base 0,0 --layer attic", 1, "Layers: \"0\", \"walls\""},
    {"make $D -o $OUT --name n --base 0,0 --layer 0", 1, "No objects are selected"},
    {"make $D -o $OUT --name n --base 0,0 --type ARC", 1, "Types: \"ATTDEF\", \"CIRCLE\""},
    {"make $D -o $OUT --name n --base 0,0 --handle 1", 1, "handle \"1\""},
    {"make $D -o $OUT --name a|b --base 0,0 --select all", 1, "\"|\" is not allowed"},
    {"make $D -o $OLD --name n --base 0,0 --select all", 1, "--force"},
    {"make $D -o $OUT.dwg --name n --base 0,0 --select all", 1, "DWG"},
    {"make nosuch.dxf -o $OUT --name n --base 0,0 --select all", 3, "nosuch.dxf"},
    {"make $CUT -o $OUT --name n --base 0,0 --select all", 4, "cut.dxf: line"},
    {"make $D -o /nosuch/out.dxf --name n --base 0,0 --select all", 6, "/nosuch/out.dxf"},
    {"convert $D -o $OUT other.dxf", 2, "other.dxf"},
    {"report $D other.dxf", 2, "other.dxf"},
    {"other.dxf report $D", 2, "other.dxf"},
    {"report $D --max-depth 0", 2, "--max-depth"},
    {"make $D -o $OUT --name n --base 0,0 --no-explode=99999999999999999999", 2, "too large"},
    {"report $D --dialog --json", 2, "--dialog"},
    {"convert $D -o $OUT --as 2000", 0, "version 2000"},
    {"convert $D -o $OUT --as 1997", 2, "--as takes"},
    {"convert $CUT -o $CUT", 1, "--force"},
    {"convert $CUT -o $CUT --force", 4, "Saved"},
};

TEST(CommandLine, EndsWithTheStatusAndTheReason) {
  for (const auto& row : kCommandLines) {
    const Scratch scratch;
    scratch.write("old.dxf", "old");
    const std::string room = readFile(kRoom);
    scratch.write("cut.dxf", room.substr(0, room.size() * 9 / 10));
    const std::string out = scratch.path("out.dxf");
    const Names names{
        {"$D", kRoom}, {"$OUT", out}, {"$OLD", scratch.path("old.dxf")}, {"$CUT", scratch.path("cut.dxf")}};
    expectRun(row.line, names, row.status, row.part);
    EXPECT_EQ(readFile(scratch.path("old.dxf")), "old") << row.line;
    EXPECT_TRUE(row.status == 0 || row.status == 4 || !std::filesystem::exists(out)) << row.line;
  }
}

TEST(CommandLine, UnreadableFilesAreReportedInOneLine) {
  const Scratch scratch;
  const std::string kContents[] = {"", "hello\n", std::string(3000, '\0'), "AC1032\0\0"};
  for (const std::string& content : kContents) {
    const std::string path = scratch.write("bad.dxf", content);
    const Outcome run = runMorvane({"convert", path, "-o", scratch.path("out.dxf")});
    EXPECT_EQ(run.status, 3) << run.shown;
    EXPECT_EQ(run.shown.find(path), 0u) << run.shown;
    EXPECT_EQ(std::count(run.shown.begin(), run.shown.end(), '\n'), 1) << run.shown;
    EXPECT_FALSE(std::filesystem::exists(scratch.path("out.dxf")));
  }
}

TEST(Script, GoesOnAndEndsWithTheWorstStatus) {
  const Outcome run =
      runMorvane({}, "NOSUCH\nCIRCLE 0,0 1\nOPEN nosuch.dxf\nYes\nSAVEAS /nosuch/x.dxf\n\nLIST\nLINE 0,0");
  EXPECT_EQ(run.status, 6) << run.shown;
  EXPECT_EQ(run.results.find("CIRCLE"), 0u) << run.results;
}

// What is there then is the old file or the new one, as a whole. Only a job that reads again what it has written can
// fail after that, and reports it.
TEST(Save, FailureLeavesTheFileOnDisk) {
  const Scratch scratch;
  const std::string path = scratch.path("plan.dxf"), room = readFile(kRoom);
  const struct {
    std::vector<std::string> line;
    const char* input;
    bool readsAgain;
  } cases[] = {{{path}, "CIRCLE 0,0 1\nSAVE\n", false},
               {{"wblock", kRoom, "--type", "CIRCLE", "--force", "-o", path}, "", true}};
  for (const auto& row : cases) {
    int refusals = 0;
    bool failing = true;
    for (int n = 1; failing; ++n) {
      ASSERT_LT(n, 1000);
      scratch.write("plan.dxf", room);
      FailingFiles files(drawing::fileOperations(), n, ENOSPC);
      Outcome run;
      {
        const UsedFiles used(files);
        run = runMorvane(row.line, row.input);
      }
      SCOPED_TRACE(testing::Message() << row.line[0] << ", call " << n << run.shown);
      failing = files.hasFailed();
      refusals += run.status != 0 ? 1 : 0;
      const std::string now = readFile(path);
      EXPECT_TRUE(run.status == 0 || run.status == 3 || run.status == 6);
      EXPECT_TRUE(now != room || run.status != 0);
      if (now != room) {
        EXPECT_TRUE(run.status == 0 || row.readsAgain);
        EXPECT_EQ(drawing::readDrawingFromMemory(now).report.outcome(), drawing::Outcome::kWhole);
      }
    }
    EXPECT_GT(refusals, 5);
  }
}

TEST(Save, RepairedDrawingNeedsAYesForItsOwnFile) {
  const Scratch scratch;
  const std::string damaged = replaced(readFile(kRoom), "\n3600.0\n", "\n36x\n");
  const std::string path = scratch.write("plan.dxf", damaged);
  EXPECT_EQ(runMorvane({path}, "SAVE\nNo\n").status, 5);
  EXPECT_EQ(runMorvane({path}, "SAVE\n\n").status, 5);
  EXPECT_EQ(runMorvane({path}, "SAVEAS " + scratch.path("./plan.dxf") + " 2018\nNo\n").status, 5);
  EXPECT_EQ(readFile(path), damaged);
  EXPECT_EQ(runMorvane({path}, "SAVEAS " + scratch.path("other.dxf") + " 2018\n").status, 4);
  EXPECT_EQ(runMorvane({path}, "SAVE\nYes\n").status, 4);
  EXPECT_NE(readFile(path), damaged);
}

TEST(Make, ReportsABlockOnlyWhenItIsOnDisk) {
  const Scratch scratch;
  for (const auto& [folder, told] : {std::pair{".", true}, {"nosuch", false}}) {
    const std::string out = scratch.path(folder) + "/out.dxf";
    const Outcome run = runMorvane({"make", kRoom, "-o", out, "--name", "n", "--base", "0,0", "--select", "all"});
    EXPECT_EQ(run.shown.find("made of 18 objects") != std::string::npos, told) << run.shown;
    EXPECT_EQ(run.shown.find("replaced by a reference") != std::string::npos, told) << run.shown;
  }
}

TEST(Make, LeavesTheCoordinateSystemOfTheDrawing) {
  const Scratch scratch;
  const Outcome run = runMorvane({"make", kRoom, "-o", scratch.path("a.dxf"), "--name", "turned", "--base", "1,2",
                                  "--layer", "door", "--ucs", "100,0,0/0,2,0/-1,0,0", "--keep", "--uniform",
                                  "--no-explode", "--units", "ft", "--description", "a door"});
  ASSERT_EQ(run.status, 0) << run.shown;
  const auto read = drawing::readDrawing(scratch.path("a.dxf"));
  const auto room = drawing::readDrawing(kRoom);
  for (const char* name : {"UCSORG", "UCSXDIR", "UCSYDIR"})
    EXPECT_TRUE(read.database->headerPoint(name).isEqualTo(room.database->headerPoint(name))) << name;
  const OdDbBlockTableRecordPtr block = read.database->symbol(OdDb::kBlockTable, L"TURNED").safeOpenObject();
  EXPECT_EQ(block->blockScaling(), OdDbBlockTableRecord::kUniform);
  EXPECT_FALSE(block->explodable());
  EXPECT_EQ(block->blockInsertUnits(), OdDb::kUnitsFeet);
  EXPECT_EQ(block->comments(), L"a door");
}

// A record that could not be understood is carried as it stands: nothing can move it.
TEST(Make, CountsObjectsThatCannotBePutIntoTheBlock) {
  const Scratch scratch;
  const std::string out = scratch.path("o.dxf"), damaged = replaced(readFile(kRoom), "\n3600.0\n", "\n36x\n");
  const Names names{{"$F", scratch.write("d.dxf", damaged)}, {"$OUT", out}};
  const std::string line = "make $F -o $OUT --name n --base 1,1 ";
  expectRun(line + "--handle 2D", names, 1, "None of the objects");
  EXPECT_FALSE(std::filesystem::exists(out));
  const Outcome some = expectRun(line + "--select all", names, 4, "3 objects of type LINE cannot");
  EXPECT_NE(some.results.find("made of 15 objects"), std::string::npos) << some.results;
  EXPECT_NE(readFile(out).find("\n36x\n"), std::string::npos);
}

TEST(Make, ReplacesABlockOnlyOnRequest) {
  const Scratch scratch;
  const Names names{{"$A", scratch.write("a.dxf", readFile(kRoom))}};
  const std::string line = "make $A -o $A --force --name b --base 0,0 --layer door ";
  expectRun(line + "--keep", names, 0, "");
  expectRun(line, names, 1, "has 0 references; --redefine");
  expectRun(line + "--redefine", names, 0, "");
}

TEST(JsonReport, IsOneObjectWithStableIds) {
  const Scratch scratch;
  const std::string damaged = scratch.write("d.dxf", replaced(readFile(kRoom), "\n3600.0\n", "\n36\xFFx\n"));
  const Names names{{"$D", kRoom}, {"$F", damaged}, {"$A", scratch.path("a.dxf")}, {"$C", scratch.path("c.dxf")}};
  const Outcome done = expectRun("make $D -o $A --name b\xC3\xA9 --base 0,0 --type CIRCLE --json", names, 0, "");
  EXPECT_EQ(done.results.find("{\n  \"version\": 1,\n  \"command\": \"make\",\n  \"status\": 0,"), 0u) << done.results;
  for (const char* part : {"\"block\": \"b\xC3\xA9\"", "\"objects\": 4", "\"locked\": 0", "\"id\": \"block.made\"",
                           "\"id\": \"drawing.saved\"", "\"issues\": []"})
    EXPECT_NE(done.results.find(part), std::string::npos) << part << done.results;
  const Outcome repaired = expectRun("convert $F -o $C --json", names, 4, "");
  for (const char* part : {"\"status\": 4", "\"severity\": ", "\"line\": ", "\"id\": \"drawing.repaired\""})
    EXPECT_NE(repaired.results.find(part), std::string::npos) << part << repaired.results;
}

TEST(MessageTexts, PrintNothingRawAndChooseByNumber) {
  EXPECT_EQ(console::escaped(L"a\x1b[2J\n\x85\x202e" + OdString(wchar_t{0xDCFF}, 1)),
            L"a\\u001B[2J\\u000A\\u0085\\u202E\\uDCFF");
  EXPECT_EQ(console::render(console::msg::kErased, {L"1"}), L"1 object erased.");
  EXPECT_EQ(console::render(console::msg::kErased, {L"11"}), L"11 objects erased.");
  EXPECT_EQ(console::render(console::msg::kNameOfSpace, {L"{2}"}),
            L"\"{2}\" is the name of model space or paper space, not of a block.");
}

} // namespace
