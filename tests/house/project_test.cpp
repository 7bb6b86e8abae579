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
  std::vector<house::Finding> found = house::checkPages(project());
  std::erase_if(found, [](const house::Finding& one) { // while pages are being written
    return one.text.ends_with("has no page") || one.text.ends_with("is explained on no page");
  });
  EXPECT_EQ(house::describe(found), "");
}
