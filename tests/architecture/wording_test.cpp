// The wording check finds an avoided wording in everything that people read, with its line, and nothing else.
#include "tests/architecture/wording_rules.h"

#include <gtest/gtest.h>

namespace {

using namespace architecture;

TEST(WordingRules, FindWhatPeopleReadAndNothingElse) {
  const std::string cpp = "console/a.cpp", header = "drawing/include/A.h", page = "docs/a.md";
  const struct {
    std::string path, text;
    int line; // of the finding; 0: none
  } cases[] = {
      {cpp, "auto a =\n  L\"it is no number\";", 2},
      {cpp, "f(\"it is\\n\"\n  \"no number\");", 1},                    // adjacent literals are one text
      {cpp, "f('\"', 1'000, \"skipped\", '\\'', \"was Told so\");", 1}, // quotes among characters
      {cpp, "f(R\"(a \"b\nis told)\");", 2},
      {cpp, "f(\"there is no layer\"); g(\"is no longer used\");", 0},
      {cpp, "f(\"line type\"); g(\"kind, as \\\"line type\\\"\"); told(\"told\");", 0}, // names
      {cpp, "f(\"retold and toldest\", \"\xE4\xB8\x8D\xE8\x83\xBD \xE9\x95\xBF\");", 0},
      {cpp, "// it is told\nint a; /* told */", 0},
      {"console/clean/a.cpp", "// a \"quote\nint a;\n// it\n// is told", 4},
      {"tests/a.cpp", "f(\"it is told\");", 0},
      {header, "// What is\n// none of it.\n", 1},
      {header, "/* as\n told */", 2},
      {page, "one\nand it stands\nalone", 2},
      {page, "it stands for it, `told`, understands", 0},
      {"run", "# mended\n", 1},
      {"docs/a.dxf", "told so", 0},
  };
  for (const auto& one : cases) {
    const std::vector<Finding> found = checkWording({{one.path, one.text}}, wordingTable(), {"console/clean/"});
    EXPECT_EQ(found.size(), one.line == 0 ? 0U : 1U) << one.path << ": " << one.text << describe(found);
    EXPECT_TRUE(found.empty() || found[0].line == one.line) << describe(found);
  }
}

TEST(WordingRules, SayWhatToWriteInstead) {
  EXPECT_EQ(checkWording({{"README.md", "mended\n"}}, wordingTable(), {})[0].text, "'mended': write repaired");
}

} // namespace
