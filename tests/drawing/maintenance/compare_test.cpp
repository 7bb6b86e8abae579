// Definitions and records that say the same, wherever they stand and whatever they are called.
#include "DbCurves.h"
#include "drawing/compare.h"
#include "tests/support/drawings.h"

#include <functional>

namespace {

struct Drawing {
  OdDbDatabasePtr database = OdDbDatabase::create();
  OdDbObjectId block, nested;
  // A line on a layer, a text, and a reference to a block with a circle.
  explicit Drawing(const wchar_t* layerName = L"Walls", const wchar_t* nestedName = L"leaf") {
    const OdDbObjectId layer = tests::addLayer(*database, layerName);
    block = tests::addBlock(*database, L"door");
    nested = tests::addBlock(*database, nestedName);
    tests::addTo<OdDbCircle>(nested)->setRadius(2);
    const OdDbLinePtr line = tests::addTo<OdDbLine>(block);
    line->setEndPoint({1, 0, 0});
    line->setLayer(layer);
    tests::addText(*database, L"words", block);
    tests::addAttribute(tests::addReference(*database, nested, block), L"TAG", L"value");
  }
  template <class T>
  OdSmartPtr<T> first(OdDbObjectId of) {
    return tests::forRead<OdDbBlockTableRecord>(of)->newIterator()->entity(OdDb::kForWrite);
  }
};

TEST(SameDefinition, GoesByWhatIsInIt) {
  const struct {
    const char* what;
    std::function<void(Drawing&)> change;
    bool same;
  } kCases[] = {
      {"nothing", [](Drawing&) {}, true},
      {"a point", [](Drawing& d) { d.first<OdDbLine>(d.block)->setEndPoint(OdGePoint3d(1, 0, 1e-9)); }, false},
      {"a colour", [](Drawing& d) { d.first<OdDbLine>(d.block)->setColorIndex(3); }, false},
      {"a layer", [](Drawing& d) { d.first<OdDbLine>(d.block)->setLayer(L"0"); }, false},
      {"a nested radius", [](Drawing& d) { d.first<OdDbCircle>(d.nested)->setRadius(3); }, false},
      {"more", [](Drawing& d) { tests::addText(*d.database, L"x", d.block); }, false},
      {"what is erased",
       [](Drawing& d) { tests::forWrite<OdDbText>(tests::addText(*d.database, L"x", d.block))->erase(); }, true},
      {"the base point",
       [](Drawing& d) { tests::forWrite<OdDbBlockTableRecord>(d.block)->setOrigin(OdGePoint3d(1, 0, 0)); }, false},
      {"the layer's colour",
       [](Drawing& d) {
         tests::forWrite<OdDbLayerTableRecord>(d.database->symbol(OdDb::kLayerTable, L"walls"))->setColor({5, -1});
       },
       true},
  };
  const Drawing own;
  for (const auto& row : kCases) {
    Drawing other;
    row.change(other);
    EXPECT_EQ(drawing::sameDefinition(own.block, other.block), row.same) << row.what;
    EXPECT_EQ(drawing::sameDefinition(other.block, own.block), row.same) << row.what;
  }
  const Drawing renamed(L"WALLS", L"*U7"), elsewhere(L"doors");
  EXPECT_TRUE(drawing::sameDefinition(own.block, renamed.block));
  EXPECT_FALSE(drawing::sameDefinition(own.block, elsewhere.block));
  EXPECT_FALSE(drawing::sameDefinition(own.block, OdDbObjectId()));
  EXPECT_FALSE(drawing::sameDefinition(own.block, own.database->getLayerZeroId()));
}

TEST(SameRecord, GoesByProperties) {
  const Drawing own, other(L"Doors");
  const OdDbObjectId walls = own.database->symbol(OdDb::kLayerTable, L"Walls");
  const OdDbObjectId doors = other.database->symbol(OdDb::kLayerTable, L"Doors");
  EXPECT_TRUE(drawing::sameRecord(own.database->getLayerZeroId(), other.database->getLayerZeroId()));
  EXPECT_TRUE(drawing::sameRecord(walls, doors));
  tests::forWrite<OdDbLayerTableRecord>(doors)->setLineWeight(50);
  EXPECT_FALSE(drawing::sameRecord(walls, doors));
  EXPECT_FALSE(drawing::sameRecord(own.block, other.block));
  EXPECT_FALSE(drawing::sameRecord(walls, own.database->symbol(OdDb::kLinetypeTable, L"Continuous")));
}

} // namespace
