// The order of folders holds for calls as well: over the symbols of objects that are compiled one source each.
#include "tests/architecture/folder_rules.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <sstream>

namespace {

std::string outputOf(const std::string& command) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  std::string output;
  char part[4096];
  for (std::size_t size = 1; pipe != nullptr && size > 0;) {
    size = std::fread(part, 1, sizeof part, pipe.get());
    output.append(part, size);
  }
  return output;
}

void expectOrder(const std::vector<architecture::FolderRule>& table, const std::string& module,
                 const std::string& target) {
  std::istringstream symbols(outputOf("xargs nm -A -P < " OBJECT_LISTS "/" + target + ".txt"));
  ASSERT_GT(symbols.str().size(), 100'000U) << "no objects of " << target;
  EXPECT_EQ(architecture::describe(architecture::checkFolderSymbols(symbols, table, module, target)), "");
}

} // namespace

TEST(Project, KeepsTheOrderOfFoldersInSymbols) {
  expectOrder(architecture::drawingFolders(), "drawing", "mvdrawing");
  expectOrder(architecture::consoleFolders(), "console", "console_module");
}
