// References taken apart: what stands where, what it looks like, and what is refused as a whole.
#include "DbCurves.h"
#include "drawing/dump.h"
#include "drawing/explode.h"
#include "tests/support/drawings.h"

#include <numbers>

namespace {

using drawing::Exploded;
using drawing::ExplodeRefusal;

constexpr double kQuarter = std::numbers::pi / 2;

class Explode : public testing::Test {
protected:
  OdDbDatabasePtr database_ = OdDbDatabase::create();
  OdDbObjectId block_ = tests::addBlock(*database_, L"part");

  template <class T>
  OdSmartPtr<T> add() {
    return tests::addTo<T>(block_);
  }
  void addLine(double x, double y) {
    const auto line = add<OdDbLine>();
    line->setStartPoint({1, 1, 0});
    line->setEndPoint({x, y, 0});
  }
  template <class T>
  OdSmartPtr<T> place(double sx, double sy, double angle) {
    const OdSmartPtr<T> reference = tests::addTo<T>(database_->getModelSpaceId());
    reference->setBlockTableRecord(block_);
    reference->setPosition({10, 0, 0});
    reference->setScaleFactors(OdGeScale3d(sx, sy, 1));
    reference->setRotation(angle);
    return reference;
  }
};

TEST_F(Explode, PutsContentsWhereTheReferenceDrawsThem) {
  tests::forWrite<OdDbBlockTableRecord>(block_)->setOrigin({1, 1, 0});
  addLine(3, 2);
  const struct {
    double sx, sy, angle;
    OdGePoint3d end;
  } kCases[] = {
      {1, 1, 0, {12, 1, 0}}, {2, 2, kQuarter, {8, 4, 0}}, {-1, 1, 0, {8, 1, 0}}, {3, 0.5, kQuarter, {9.5, 6, 0}}};
  for (const auto& row : kCases) {
    const OdDbObjectId id = place<OdDbBlockReference>(row.sx, row.sy, row.angle)->objectId();
    const Exploded exploded = drawing::explodeReference(id);
    ASSERT_EQ(exploded.made.length(), 1);
    const OdDbLinePtr line = exploded.made[0].safeOpenObject();
    EXPECT_TRUE(line->startPoint().isEqualTo(OdGePoint3d(10, 0, 0)));
    EXPECT_TRUE(line->endPoint().isEqualTo(row.end)) << line->endPoint().x << ' ' << line->endPoint().y;
    EXPECT_TRUE(id.isErased());
  }
}

TEST_F(Explode, RowsAndColumnsFollowTheAxesWithoutTheScale) {
  addLine(2, 1);
  OdDbObjectId id;
  {
    const auto array = place<OdDbMInsertBlock>(2, -2, kQuarter);
    array->setColumns(3);
    array->setRows(2);
    array->setColumnSpacing(100);
    array->setRowSpacing(10);
    id = array->objectId();
  }
  const Exploded exploded = drawing::explodeReference(id);
  ASSERT_EQ(exploded.made.length(), 6);
  const OdDbLinePtr first = exploded.made[0].safeOpenObject(), last = exploded.made[5].safeOpenObject();
  EXPECT_TRUE((last->startPoint() - first->startPoint()).isEqualTo(OdGeVector3d(-10, 200, 0)));
  drawing::ExplodeOptions few;
  few.objects = 5;
  OdDbObjectId again;
  {
    const auto array = place<OdDbMInsertBlock>(1, 1, 0);
    array->setColumns(6);
    again = array->objectId();
  }
  EXPECT_EQ(drawing::explodeReference(again, few).refusal, ExplodeRefusal::kTooMuch);
  EXPECT_FALSE(again.isErased());
}

// Layer 0 and by block become what they looked like; where by layer would be another layer's, the value itself stands.
TEST_F(Explode, PreservesAppearance) {
  const OdDbObjectId walls = tests::addLayer(*database_, L"walls"), doors = tests::addLayer(*database_, L"doors");
  tests::forWrite<OdDbLayerTableRecord>(walls)->setColor({3, OdCmColor::kNoTrueColor});
  tests::forWrite<OdDbLayerTableRecord>(doors)->setIsLocked(true);
  const OdDbObjectId zero = database_->getLayerZeroId();
  const OdCmColor byLayer{256, -1}, byBlock{0, -1}, red{1, -1}, mixed{5, 0x102030};
  const struct {
    OdDbObjectId layer;
    OdCmColor own, ofReference;
    OdDbObjectId layerAfter;
    OdCmColor after;
  } kCases[] = {{zero, byLayer, byLayer, walls, byLayer},  {zero, byBlock, byLayer, walls, byLayer},
                {doors, byBlock, byLayer, doors, {3, -1}}, {doors, byBlock, mixed, doors, mixed},
                {doors, red, mixed, doors, red},           {zero, byBlock, byBlock, walls, byBlock}};
  for (const auto& row : kCases) {
    block_ = tests::addBlock(*database_, L"*U");
    tests::forWrite<OdDbLayerTableRecord>(doors)->setIsLocked(false);
    {
      const auto line = add<OdDbLine>();
      line->setLayer(row.layer);
      line->setColor(row.own);
      line->setLineWeight(-2);
    }
    tests::forWrite<OdDbLayerTableRecord>(doors)->setIsLocked(true);
    const auto reference = place<OdDbBlockReference>(1, 1, 0);
    reference->setLayer(walls);
    reference->setColor(row.ofReference);
    reference->setLineWeight(50);
    const Exploded exploded = drawing::explodeReference(reference->objectId());
    ASSERT_EQ(exploded.made.length(), 1);
    const auto line = tests::forRead<OdDbLine>(exploded.made[0]);
    EXPECT_EQ(line->layerId(), row.layerAfter);
    EXPECT_EQ(line->color(), row.after);
    EXPECT_EQ(line->lineWeight(), 50);
  }
  EXPECT_TRUE(tests::forRead<OdDbLayerTableRecord>(doors)->isLocked());
}

TEST_F(Explode, AttributesBecomeTextsOnRequest) {
  const auto define = [&](const wchar_t* tag, bool constant, bool invisible) {
    const auto definition = add<OdDbAttributeDefinition>();
    definition->setTag(tag);
    definition->setTextString(tag);
    definition->setHeight(1);
    definition->setConstant(constant);
    definition->setInvisible(invisible);
  };
  define(L"SHOWN", false, false);
  define(L"HIDDEN", false, true);
  define(L"FIXED", true, false);
  for (const bool asText : {false, true}) {
    const OdDbObjectId id = place<OdDbBlockReference>(2, 2, 0)->objectId();
    tests::addAttribute(id, L"SHOWN", L"value");
    tests::forWrite<OdDbAttribute>(tests::addAttribute(id, L"HIDDEN", L"secret"))->setInvisible(true);
    drawing::ExplodeOptions options;
    options.attributesAsText = asText;
    const Exploded exploded = drawing::explodeReference(id, options);
    std::string texts;
    for (const OdDbObjectId made : exploded.made) {
      const auto text = tests::forRead<OdDbText>(made);
      texts += std::string(text->dxfName()) + ":" + text->textString().toUtf8() + " ";
    }
    EXPECT_EQ(texts, asText ? "TEXT:value TEXT:FIXED " : "ATTDEF:SHOWN ATTDEF:HIDDEN ATTDEF:FIXED ");
    EXPECT_EQ(exploded.valuesLost, asText ? 1U : 2U);
  }
}

// Circles become ellipses under unequal scales; a turned reference in there cannot stand, and then nothing is done.
TEST_F(Explode, UnequalScalesAreAllOrNothing) {
  add<OdDbCircle>()->setRadius(1);
  const OdDbObjectId good = place<OdDbBlockReference>(1, 3, 0)->objectId();
  const Exploded exploded = drawing::explodeReference(good);
  ASSERT_EQ(exploded.made.length(), 1);
  EXPECT_EQ(exploded.made[0].safeOpenObject()->dxfName(), "ELLIPSE");
  const OdDbObjectId inner = tests::addReference(*database_, tests::addBlock(*database_, L"inner"), block_);
  tests::forWrite<OdDbBlockReference>(inner)->setRotation(0.5);
  const OdDbObjectId bad = place<OdDbBlockReference>(1, 3, 0)->objectId();
  const std::string before = drawing::canonicalDump(*database_);
  const Exploded refused = drawing::explodeReference(bad);
  EXPECT_EQ(refused.refusal, ExplodeRefusal::kCannotPlace);
  ASSERT_EQ(refused.unplaceable.size(), 1U);
  EXPECT_EQ(refused.unplaceable[0].object, inner);
  EXPECT_EQ(drawing::canonicalDump(*database_), before);
}

TEST_F(Explode, IsRefusedWithTheReason) {
  addLine(2, 2);
  const auto refusal = [&](OdDbObjectId id) { return drawing::explodeReference(id).refusal; };
  EXPECT_EQ(refusal(OdDbObjectId()), ExplodeRefusal::kNotAReference);
  EXPECT_EQ(refusal(tests::addText(*database_, L"a")), ExplodeRefusal::kNotAReference);
  const OdDbObjectId id = place<OdDbBlockReference>(1, 1, 0)->objectId();
  tests::forWrite<OdDbBlockTableRecord>(block_)->setExplodable(false);
  EXPECT_EQ(refusal(id), ExplodeRefusal::kNotAllowed);
  tests::forWrite<OdDbBlockTableRecord>(block_)->setXref(L"site.dxf");
  EXPECT_EQ(refusal(id), ExplodeRefusal::kExternal);
  const OdDbObjectId locked = tests::addLayer(*database_, L"locked");
  tests::forWrite<OdDbBlockReference>(id)->setLayer(locked);
  tests::forWrite<OdDbLayerTableRecord>(locked)->setIsLocked(true);
  EXPECT_EQ(refusal(id), ExplodeRefusal::kOnLockedLayer);
}

} // namespace
