// The project itself keeps its rules. A failure names file and line.
#include "tests/house/docs_rules.h"
#include "tests/house/folder_rules.h"
#include "tests/house/room_rules.h"
#include "tests/house/text_rules.h"
#include "tests/house/unit_rules.h"

#include <gtest/gtest.h>

namespace {

const architecture::SourceTree& project() {
  static const architecture::SourceTree kTree = architecture::readTree(HOUSE_ROOT);
  return kTree;
}

} // namespace

TEST(Project, IsReadWhole) {
  for (const char* path :
       {"README.md", "run", ".ci/run", "drawing/include/OdPlatform.h", "tests/house/project_test.cpp"})
    EXPECT_EQ(project().count(path), 1U) << path;
}

TEST(Project, KeepsTheDirectionOfModules) {
  EXPECT_EQ(architecture::describe(architecture::checkModules(project())), "");
}

TEST(Project, KeepsTheDirectionOfUnits) {
  EXPECT_EQ(architecture::describe(architecture::checkTable(architecture::unitTable())), "");
  EXPECT_EQ(architecture::describe(architecture::checkUnits(project(), architecture::unitTable())), "");
}

TEST(Project, KeepsTheOrderOfFolders) {
  for (const auto& [module, table] :
       {std::pair("drawing", house::drawingFolders()), {"console", house::consoleFolders()}}) {
    EXPECT_EQ(house::describe(house::checkFolderTable(table)), "");
    EXPECT_EQ(house::describe(house::checkFolderIncludes(project(), table, module)), "");
  }
}

TEST(Project, HasNoOverlongSource) {
  EXPECT_EQ(architecture::describe(architecture::checkSizes(project())), "");
}

TEST(Project, HasNoWordsThatHaveNoPlaceInIt) {
  EXPECT_EQ(architecture::describe(architecture::checkWords(project())), "");
}

TEST(Project, ExplainsEveryExportedName) {
  EXPECT_EQ(architecture::describe(architecture::checkPages(project())), "");
}
