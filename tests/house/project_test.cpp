// The project itself keeps its rules. A failure names file and line.
#include "tests/house/docs_rules.h"
#include "tests/house/room_rules.h"
#include "tests/house/text_rules.h"
#include "tests/house/unit_rules.h"

#include <gtest/gtest.h>

namespace {

const house::SourceTree& project() {
  static const house::SourceTree kTree = house::readTree(HOUSE_ROOT);
  return kTree;
}

} // namespace

TEST(Project, IsReadWhole) {
  for (const char* path :
       {"README.md", "run", ".ci/run", "drawing/include/OdPlatform.h", "tests/house/project_test.cpp"})
    EXPECT_EQ(project().count(path), 1U) << path;
}

TEST(Project, KeepsTheDirectionOfRooms) {
  EXPECT_EQ(house::describe(house::checkRooms(project())), "");
}

TEST(Project, KeepsTheDirectionOfUnits) {
  EXPECT_EQ(house::describe(house::checkTable(house::unitTable())), "");
  EXPECT_EQ(house::describe(house::checkUnits(project(), house::unitTable())), "");
}

TEST(Project, HasNoOverlongSource) {
  EXPECT_EQ(house::describe(house::checkSizes(project())), "");
}

TEST(Project, HasNoWordsThatHaveNoPlaceInIt) {
  EXPECT_EQ(house::describe(house::checkWords(project())), "");
}

TEST(Project, ExplainsEveryExportedName) {
  EXPECT_EQ(house::describe(house::checkPages(project())), "");
}
