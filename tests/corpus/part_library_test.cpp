// All parts of the corpus come into one drawing by one command; each reference shows what its own file holds.
#include "drawing/compare.h"
#include "tests/corpus/drawings.h"
#include "tests/support/program_run.h"
#include "tests/support/scratch_folder.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::json;

std::vector<std::string> partPaths() {
  std::vector<std::string> parts;
  for (const std::string& path : corpus::paths()) {
    if (path.find("/parts/") != std::string::npos && path.ends_with(".dxf"))
      parts.push_back(path);
  }
  std::sort(parts.begin(), parts.end());
  return parts;
}

TEST(PartLibrary, ShowsEveryPartAsItsFileHasIt) {
  const std::vector<std::string> parts = partPaths();
  ASSERT_EQ(parts.size(), 305U);
  const tests::ScratchFolder folder;
  {
    std::ofstream list(folder.at("list.txt"));
    for (const std::string& part : parts)
      list << part << "\n";
  }
  ASSERT_EQ(tests::runMorvane({"-c", "SAVEAS " + folder.at("empty.dxf") + " 2018\n"}).status, 0);
  const std::string out = folder.at("all.dxf");
  const tests::Outcome made = tests::runMorvane({"insert", folder.at("empty.dxf"), "--file-list", folder.at("list.txt"),
                                                 "--grid", "20,1000,1000", "--defaults", "--json", "-o", out});
  EXPECT_EQ(made.status, 4); // three of the files are damaged, and said to be
  const Json inserted = Json::parse(made.results)["results"]["inserted"];
  ASSERT_EQ(inserted.size(), parts.size());
  EXPECT_EQ(
      std::count_if(inserted.begin(), inserted.end(), [](const Json& one) { return one["definition"] != "made"; }), 14);

  const drawing::ReadResult all = drawing::readDrawing(out);
  EXPECT_EQ(all.report.outcome(), drawing::Outcome::kWhole);
  for (std::size_t at = 0; at < parts.size(); ++at) {
    const drawing::ReadResult part = drawing::readDrawing(parts[at]);
    const std::uint64_t handle = std::stoull(inserted[at]["reference"].get<std::string>(), nullptr, 16);
    const OdDbBlockReferencePtr reference = all.database->objectIdOf(handle).safeOpenObject();
    const OdDbObjectId own = part.database->getModelSpaceId(), shown = reference->blockTableRecord();
    EXPECT_EQ(tests::entitiesOf(shown).size(), tests::entitiesOf(own).size()) << parts[at];
    EXPECT_TRUE(corpus::sameExtents<OdDbBlockTableRecord>(shown, own)) << parts[at];
    for (const Json& kept : inserted[at]["kept"])
      ADD_FAILURE() << parts[at] << " shows another's " << kept;
  }
  EXPECT_EQ(tests::runMorvane({"audit", out}).status, 0);
}

} // namespace
