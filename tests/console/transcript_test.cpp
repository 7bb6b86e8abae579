// Whole workflows in the console: each script of the folder must give the transcript beside it, word for word.
// $OUT in a script is a folder of the test's own. MORVANE_WRITE_TRANSCRIPTS=1 writes the transcripts anew, and fails.
#include "tests/console/console_run.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>

namespace {

using namespace tests;

constexpr char kFolder[] = "tests/console/transcripts";

std::vector<std::string> scripts() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(kFolder)) {
    if (entry.path().extension() == ".scr")
      names.push_back(entry.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

class Transcript : public testing::TestWithParam<std::string> {};

TEST_P(Transcript, IsAsWritten) {
  const Scratch scratch;
  const std::string stem = std::string(kFolder) + "/" + GetParam();
  const std::string script = scratch.write("script.scr", replaced(readFile(stem + ".scr"), "$OUT", scratch.path(".")));
  const Outcome run = runMorvane({"-f", script});
  const std::string folder = scratch.path("."), asInDrawings = replaced(folder, "/", "\\");
  const std::string shown = replaced(replaced(run.shown, folder, "$OUT"), asInDrawings, "$OUT") + "status " +
                            std::to_string(run.status) + "\n";
  if (std::getenv("MORVANE_WRITE_TRANSCRIPTS") != nullptr) {
    std::ofstream(stem + ".txt") << shown;
    FAIL() << "written anew: " << stem << ".txt";
  }
  EXPECT_EQ(shown, readFile(stem + ".txt"));
}

INSTANTIATE_TEST_SUITE_P(Console, Transcript, testing::ValuesIn(scripts()),
                         [](const auto& name) { return replaced(name.param, "-", "_"); });

} // namespace
