// BLOCK on real drawings, typed: locked layers, definitions that are there, and blocks that would contain themselves.
#include "DbBlockTable.h"
#include "DbEntity.h"
#include "tests/corpus/drawings.h"
#include "tests/support/program_run.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

tests::Outcome run(const std::string& path, const std::string& script) {
  return tests::runMorvane({path, "-c", script});
}

std::size_t times(const std::string& text, const std::string& part) {
  std::size_t number = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
    ++number;
  return number;
}

struct Facts {
  std::string layer;      // of the last object; empty when it is not to be typed in a script
  std::size_t locked = 0; // on that layer, or on one that is locked already
  std::size_t objects = 0;
};

// Of the space that a drawing shows when it is opened.
Facts factsOf(const OdDbDatabase& database) {
  Facts facts;
  if (database.headerInt("TILEMODE", 1) == 0)
    return facts;
  const OdDbBlockTableRecordPtr space = database.getModelSpaceId().safeOpenObject();
  std::vector<std::pair<OdString, bool>> layers; // and whether it is locked
  for (const auto iterator = space->newIterator(); !iterator->done(); iterator->step())
    layers.emplace_back(iterator->entity()->layer(), iterator->entity()->isOnLockedLayer());
  const OdString last = layers.empty() ? OdString() : layers.back().first;
  facts.objects = layers.size();
  facts.locked = static_cast<std::size_t>(std::count_if(layers.begin(), layers.end(), [&](const auto& layer) {
    return layer.second || layer.first.iCompare(last) == 0;
  }));
  const std::string name = last.toUtf8Lossless();
  if (name.find_first_of(" \t;") == std::string::npos)
    facts.layer = name;
  return facts;
}

// The last object becomes a block in a block in a block; the innermost is to be redefined with the outermost.
constexpr char kNested[] = "BLOCK road-a 0,0 Last\n\nConvert\nBLOCK road-b 0,0 Last\n\nConvert\n"
                           "BLOCK road-c 0,0 Last\n\nConvert\nBLOCK road-a 是 0,0 Last\n\n";

TEST(BlockWorkflows, WorkOnRealDrawings) {
  std::size_t locked = 0, refused = 0;
  corpus::forEachDrawing([&](const std::string& path, const drawing::ReadResult& read) {
    const Facts facts = factsOf(*read.database);
    if (facts.layer.empty())
      return;
    const std::string lock = "LAYER Lock " + facts.layer + "\n\nBLOCK road 0,0 All\n\nKeep\n";
    const tests::Outcome left = run(path, lock);
    const std::string box = "锁定图层上的对象数量: " + std::to_string(facts.locked) + "\n";
    EXPECT_EQ(times(left.shown, box), 1U) << left.shown;
    EXPECT_EQ(times(left.shown, "Block \"road\" made") != 0,
              facts.locked < facts.objects && times(left.shown, "cannot be put into") == 0);
    ++locked;
    const tests::Outcome itself = run(path, kNested);
    if (times(itself.shown, "Block \"road-") < 3) // a layer is locked, or the object cannot be put into a block
      return;
    for (const char* said : {"块 road-a 参照自身。", ") contains \"road-b\" (reference ",
                             "would contain itself: \"road-a\" contains \"road-c\" (reference "})
      EXPECT_EQ(times(itself.shown, said), 1U) << said;
    EXPECT_EQ(itself.status, 1);
    ++refused;
    if (facts.objects < 2) // nothing is left to redefine it with
      return;
    const tests::Outcome both =
        run(path, "BLOCK road 0,0 Last\n\nConvert\nBLOCK road 否\nBLOCK road 1 0,0 All\n\nBLOCK road 是 0,0 "
                  "All\nRemove Last\n\nKeep\n");
    EXPECT_EQ(times(both.shown, "图形中“road”块参照的数量：1\n"), 3U);
    EXPECT_EQ(times(both.shown, "*Cancel*"), 1U);
  });
  EXPECT_GT(locked, 300U);
  EXPECT_GT(refused, 280U);
  std::cout << locked << " drawings with a locked layer, " << refused << " with a block in itself\n";
}

} // namespace
