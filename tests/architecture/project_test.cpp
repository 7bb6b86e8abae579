// The project itself keeps its rules. A failure names file and line.
#include "tests/architecture/docs_rules.h"
#include "tests/architecture/folder_rules.h"
#include "tests/architecture/module_rules.h"
#include "tests/architecture/text_rules.h"
#include "tests/architecture/unit_rules.h"
#include "tests/architecture/wording_rules.h"

#include <gtest/gtest.h>

namespace {

const architecture::SourceTree& project() {
  static const architecture::SourceTree kTree = architecture::readTree(PROJECT_ROOT);
  return kTree;
}

} // namespace

TEST(Project, IsReadWhole) {
  for (const char* path :
       {"README.md", "run", ".ci/run", "drawing/include/drawing/export.h", "tests/architecture/project_test.cpp"})
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
       {std::pair("drawing", architecture::drawingFolders()), {"console", architecture::consoleFolders()}}) {
    EXPECT_EQ(architecture::describe(architecture::checkFolderTable(table)), "");
    EXPECT_EQ(architecture::describe(architecture::checkFolderIncludes(project(), table, module)), "");
  }
}

TEST(Project, HasAnIdForEachText) {
  EXPECT_EQ(architecture::describe(architecture::checkMessageIds(project())), "");
}

TEST(Project, HasNoOverlongSource) {
  EXPECT_EQ(architecture::describe(architecture::checkSizes(project())), "");
}

TEST(Project, HasNoWordsThatHaveNoPlaceInIt) {
  EXPECT_EQ(architecture::describe(architecture::checkWords(project())), "");
}

TEST(Project, IsInPlainTechnicalEnglish) {
  using namespace architecture;
  EXPECT_EQ(describe(checkWording(project(), wordingTable(), reviewedComments())), "");
}

TEST(Project, ExplainsEveryExportedName) {
  EXPECT_EQ(architecture::describe(architecture::checkPages(project())), "");
}
