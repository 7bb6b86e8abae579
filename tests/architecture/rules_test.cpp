// The rules see what breaks them: small trees, each with one breach, and their lawful neighbours.
#include "tests/architecture/docs_rules.h"
#include "tests/architecture/folder_rules.h"
#include "tests/architecture/module_rules.h"
#include "tests/architecture/text_rules.h"
#include "tests/architecture/unit_rules.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using architecture::SourceTree;

// The files that the breaches below point at.
SourceTree modules() {
  return {
      {"drawing/include/OdString.h", "#pragma once\n"},
      {"drawing/root/fold.h", "#pragma once\n"},
      {"morvane/include/morvane/host.h", "#include \"OdString.h\"\n"},
      {"morvane/include/morvane/services/editor.h", ""},
      {"morvane/input/line.h", ""},
      {"blockcommon/include/blockcommon/blockcommon.h",
       "#include \"blockcommon/low.h\"\n#include \"blockcommon/high.h\"\n"},
      {"blockcommon/include/blockcommon/export.h", ""},
      {"blockcommon/include/blockcommon/low.h", "#include \"blockcommon/export.h\"\n"},
      {"blockcommon/include/blockcommon/high.h", "#include \"blockcommon/low.h\"\n"},
      {"blockcommon/host/low.cpp", "#include \"blockcommon/low.h\"\n"},
      {"blockcommon/names/high_parts.h", ""},
      {"console/words.h", ""},
  };
}

const std::vector<architecture::UnitRule> kTwoUnits{{"low", {}}, {"high", {"low"}}};

struct Case {
  std::string path;
  std::string text;
  std::string complaint; // part of the only finding; "" for none
};

void expectFinding(const Case& given, const std::vector<architecture::Finding>& found) {
  SCOPED_TRACE(given.path + ": " + given.text);
  if (given.complaint.empty()) {
    EXPECT_EQ(architecture::describe(found), "");
    return;
  }
  ASSERT_EQ(found.size(), 1U) << architecture::describe(found);
  EXPECT_EQ(found[0].file, given.path);
  EXPECT_NE(found[0].text.find(given.complaint), std::string::npos) << found[0].text;
}

SourceTree with(SourceTree tree, const Case& given) {
  tree[given.path] = given.text;
  return tree;
}

} // namespace

TEST(ModuleRules, RefuseWhatPointsTheWrongWay) {
  const std::vector<Case> cases{
      {"drawing/db/a.cpp", "#include \"morvane/host.h\"\n", "drawing does not know morvane"},
      {"drawing/db/a.cpp", "#include <morvane/host.h>\n", "drawing does not know morvane"},
      {"drawing/db/a.cpp", "#include \"../../morvane/input/line.h\"\n", "drawing does not know morvane"},
      {"drawing/db/a.cpp", "#include \"drawing/root/fold.h\"\n#include \"OdString.h\"\n", ""},
      {"drawing/include/A.h", "#include \"drawing/root/fold.h\"\n", "public header includes the private"},
      {"drawing/db/a.cpp", "#include \"gone.h\"\n", "names no file"},
      {"drawing/db/a.cpp", "/* was\n#include \"morvane/host.h\"\n*/ // #include \"gone.h\"\n", ""},
      {"morvane/input/a.cpp", "#  include \"drawing/root/fold.h\"\n", "only the public headers of drawing"},
      {"morvane/input/a.cpp", "#include \"line.h\"\n#include \"OdString.h\"\n#include <json.hpp>\n", ""},
      {"morvane/input/a.cpp", "#include \"blockcommon/low.h\"\n", "morvane does not know blockcommon"},
      {"blockcommon/names/a.cpp", "#include \"morvane/input/line.h\"\n", "only the public headers of morvane"},
      {"blockcommon/names/a.cpp", "#include <nlohmann/json.hpp>\n", "not of the standard library"},
      {"blockcommon/create/a.cpp", "#include \"blockcommon/names/high_parts.h\"\n", "reaches into blockcommon/names"},
      {"blockcommon/names/a.cpp", "#include <string>\n#include \"morvane/host.h\"\n#include \"high_parts.h\"\n", ""},
      {"console/a.cpp", "#include \"blockcommon/names/high_parts.h\"\n", "only the public headers of blockcommon"},
      {"console/a.cpp", "#include \"console/words.h\"\n#include \"blockcommon/blockcommon.h\"\n", ""},
      {"tests/names/a.cpp", "#include \"blockcommon/names/high_parts.h\"\n", ""},
  };
  for (const Case& given : cases)
    expectFinding(given, architecture::checkModules(with(modules(), given)));
}

TEST(ModuleRules, LeaveTheServicesToTheHostFolder) {
  const std::string include = "#include \"morvane/services/editor.h\"\n";
  const std::string call = "int x;\nauto s = mv_arbitDict_getservice(name);\n";
  const std::vector<Case> cases{
      {"blockcommon/names/a.cpp", include, "only blockcommon/host includes service interfaces"},
      {"blockcommon/names/a.cpp", call, "only blockcommon/host talks"},
      {"blockcommon/host/a.cpp", include + call, ""},
      {"console/a.cpp", include + call, ""},
  };
  for (const Case& given : cases)
    expectFinding(given, architecture::checkModules(with(modules(), given)));
}

TEST(UnitRules, RefusePairsThatTheTableLacks) {
  const std::vector<Case> cases{
      {"blockcommon/names/high.cpp", "#include \"blockcommon/low.h\"\n#include \"blockcommon/high.h\"\n", ""},
      {"blockcommon/host/low.cpp", "#include \"blockcommon/high.h\"\n", "low may not use the unit high"},
      {"blockcommon/host/low_more.cpp", "#include \"blockcommon/high.h\"\n", "low may not use the unit high"},
      {"blockcommon/host/lower.cpp", "#include \"blockcommon/high.h\"\n", ""}, // of the unit high
      {"blockcommon/host/aid.h", "#include \"blockcommon/low.h\"\n#include \"blockcommon/high.h\"\n",
       "low may not use the unit high"},
      {"blockcommon/names/low_b.cpp", "#include \"high_parts.h\"\n", "low may not use the unit high"},
      {"blockcommon/include/blockcommon/low.h", "#include \"blockcommon/high.h\"\n", "low may not use the unit high"},
      {"blockcommon/include/blockcommon/export.h", "#include \"blockcommon/low.h\"\n", "below all units"},
      {"blockcommon/include/blockcommon/third.h", "", "third is not in the table"},
      {"blockcommon/names/stray.cpp", "#include <string>\n", "belongs to no unit"},
      {"blockcommon/host/low.cpp", "#include \"blockcommon/blockcommon.h\"\n", "header of all headers"},
  };
  for (const Case& given : cases)
    expectFinding(given, architecture::checkUnits(with(modules(), given), kTwoUnits));
}

TEST(UnitRules, FollowPrivateHeadersToTheirUnit) {
  SourceTree tree = modules();
  tree["blockcommon/names/plain.h"] = "#include <string>\n";
  tree["blockcommon/names/aid.h"] = "#include \"high_parts.h\"\n";
  tree["blockcommon/names/round.h"] = "#include \"round.h\"\n";
  EXPECT_EQ(architecture::unitOf(tree, kTwoUnits, "blockcommon/names/plain.h"), "");
  EXPECT_EQ(architecture::unitOf(tree, kTwoUnits, "blockcommon/names/aid.h"), "high");
  EXPECT_EQ(architecture::unitOf(tree, kTwoUnits, "blockcommon/names/round.h"), "");
  expectFinding(
      {"blockcommon/names/low_c.cpp", "", "low may not use the unit high"},
      architecture::checkUnits(with(tree, {"blockcommon/names/low_c.cpp", "#include \"aid.h\"\n", ""}), kTwoUnits));
}

TEST(UnitRules, RefuseATableThatRunsInACircle) {
  EXPECT_EQ(architecture::describe(architecture::checkTable(kTwoUnits)), "");
  EXPECT_EQ(architecture::checkTable({{"a", {"b"}}, {"b", {"c"}}, {"c", {"a"}}, {"d", {}}}).size(), 3U);
  EXPECT_EQ(architecture::checkTable({{"a", {"a"}}}).size(), 1U);
  EXPECT_EQ(architecture::checkTable({{"a", {"gone"}}}).size(), 1U);
}

const std::vector<architecture::FolderRule> kThreeFolders{
    {"drawing/low", {}}, {"drawing/side", {}}, {"drawing/high", {"drawing/low"}}};

TEST(FolderRules, RefuseIncludesThatTheTableLacks) {
  const SourceTree tree{{"drawing/include/A.h", ""},
                        {"drawing/low/a.h", "#include \"A.h\"\n"},
                        {"drawing/side/a.h", ""},
                        {"drawing/high/a.h", "#include \"drawing/low/a.h\"\n"}};
  const std::vector<Case> cases{
      {"drawing/high/b.cpp", "#include \"A.h\"\n#include \"drawing/high/a.h\"\n#include \"drawing/low/a.h\"\n", ""},
      {"drawing/low/b.cpp", "#include \"drawing/high/a.h\"\n", "drawing/low may not use drawing/high"},
      {"drawing/high/b.cpp", "#include \"drawing/side/a.h\"\n", "drawing/high may not use drawing/side"},
      {"drawing/other/b.cpp", "", "not in the table"},
      {"morvane/low/b.cpp", "#include \"drawing/high/a.h\"\n", ""},
  };
  for (const Case& given : cases)
    expectFinding(given, architecture::checkFolderIncludes(with(tree, given), kThreeFolders, "drawing"));
}

TEST(FolderRules, RefuseSymbolsFromFoldersThatTheTableLacks) {
  const std::string defined = "b/x.dir/low/a.cpp.o: f T 0 0\nb/x.dir/high/a.cpp.o: g T 0 0\n"
                              "b/x.dir/low/a.cpp.o: inlined W 0 0\nb/x.dir/high/a.cpp.o: inlined W 0 0\n";
  const std::vector<Case> cases{
      {"drawing/high/b.cpp", "b/x.dir/high/b.cpp.o: f U\nb/x.dir/high/b.cpp.o: g U\n", ""},
      {"drawing/low/b.cpp", "b/x.dir/low/b.cpp.o: g U\nb/x.dir/low/b.cpp.o: inlined U\n", "(g of drawing/high/a.cpp)"},
      {"drawing/low/b.cpp", "b/other.dir/low/b.cpp.o: g U\nb/x.dir/low/b.cpp.o: printf U\n", ""},
  };
  for (const Case& given : cases) {
    std::istringstream symbols(defined + given.text);
    expectFinding(given, architecture::checkFolderSymbols(symbols, kThreeFolders, "drawing", "x"));
  }
}

TEST(FolderRules, RefuseATableThatIsNotInOrder) {
  EXPECT_EQ(architecture::describe(architecture::checkFolderTable(kThreeFolders)), "");
  EXPECT_EQ(architecture::checkFolderTable({{"a", {"b"}}, {"b", {}}}).size(), 1U);
}

TEST(TextRules, FindBannedWordsOnlyAsWholeWords) {
  const auto count = [](const std::string& path, const std::string& text) {
    return architecture::checkWords({{path, text}}).size();
  };
  const std::string paper = "Pa";
  EXPECT_EQ(count("a.cpp", "fine\n// see " + paper + "rt 3.12, rule 4\n"), 1U);
  EXPECT_EQ(count("a.cpp", "// what the Sp" + std::string("ec says, specimen\n")), 1U);
  EXPECT_EQ(count("a.md", "TO" + std::string("DO: all\n")), 1U);
  EXPECT_EQ(count("a.md", "(iss" + std::string("ue 21)\n")), 1U);
  EXPECT_EQ(count("a.md", "in /wo" + std::string("rk/main\n")), 1U);
  EXPECT_EQ(count(".ci/run", "../sh" + std::string("ared/data\n")), 0U);
  EXPECT_EQ(count("a.cpp", "// char spec, the special, the speck, part 3 of it, inspec; issue severity\nint todos;\n"),
            0U);
}

TEST(TextRules, RefuseAnIdOfTwoTexts) {
  const std::string file = "console/messages/catalog/undo.h";
  const std::string one = "inline constexpr MessageText kOne{\"undo.one\", L\"One\"};\n";
  expectFinding({file, "", ""}, architecture::checkMessageIds({{file, one}}));
  expectFinding({file, "", "the id undo.one"}, architecture::checkMessageIds({{file, one + one}}));
  expectFinding({"console/messages/catalog/", "", "has no texts"},
                architecture::checkMessageIds({{"console/a.h", one}}));
}

TEST(TextRules, CountLinesOfCodeOnly) {
  const std::string longText(architecture::kMaxLines + 1, '\n');
  EXPECT_EQ(architecture::checkSizes({{"a.cpp", longText}, {"a.md", longText}}).size(), 1U);
  EXPECT_EQ(architecture::checkSizes({{"a.cpp", longText.substr(1)}}).size(), 0U);
}

TEST(PageRules, HoldPagesAndExportedNamesTogether) {
  const std::string page = "docs/functions/low.md", other = "docs/functions/other.md";
  const std::string exports = "blockcommon/exports.txt", header = "blockcommon/include/blockcommon/other.h";
  const std::string code = "```cpp\nassert(low::f() == 1);\n```\n", box = "### Box, Box::g\n" + code;
  const std::string good = "### low::f\n" + code + "```text\n### none\n```\n## More\n" + box;
  const SourceTree tree{
      {exports, "Box::Box(int)\nBox::g()\nBox::~Box()\nlow::f(int)\nlow::f(Box, int)\n"},
      {"blockcommon/include/blockcommon/low.h", "namespace low { int f(); } class Box { int g(); };"},
      {"docs/programming.md", "[low](functions/low.md)\n"},
      {page, good},
  };
  const struct {
    std::string changed, text, file, complaint; // what is changed, and where that is told
  } cases[] = {
      {page, good, page, ""},
      {exports, tree.at(exports) + "low::gone()\n", exports, "low::gone is explained on no page"},
      {page, good + "### low::h\n" + code, page, "low::h is no exported name"},
      {header, "", header, "has no page"},
      {page, good + "### low::f\n" + code, page, "has a heading already"},
      {page, "### low::f\n" + box, page, "has 0 examples"},
      {page, good + code, page, "has 2 examples"},
      {page, "### low::f, Box, Box::g\n```cpp\nlow::f();\n```\n", page, "checks nothing"},
      {page, good + std::string(800, '\n'), page, "too long"},
      {page, "### low::f, Box, Box::g\n```cpp\nassert(1);\n" + std::string(20, '\n') + "```\n", page, "too long"},
      {other, good, other, "is the page of no header"},
      {"docs/programming.md", "", page, "is not listed"},
  };
  for (const auto& one : cases)
    expectFinding({one.file, one.text, one.complaint},
                  architecture::checkPages(with(tree, {one.changed, one.text, ""})));
  EXPECT_EQ(architecture::checkPages(with(tree, {page, good + "```cpp\n", ""}))[0].text,
            "line 13: the block has no end");
}
