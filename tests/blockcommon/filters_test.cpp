// What may go into a block: the filters take out exactly their kind and keep the order, and a block that would contain
// itself is found at any depth.
#include "blockcommon/filters.h"
#include "morvane/drawing_tools.h"
#include "tests/support/open_document.h"

#include "DbViewport.h"
#include "drawing/detail/description.h"

// Kinds that are a camera or a definition, but not exactly.
class StereoCamera : public OdDbCamera {
public:
  MVDRAWING_DECLARE_CLASS(StereoCamera);
};
MVDRAWING_DEFINE_CLASS(StereoCamera, OdDbCamera, "");

class NamedDefinition : public OdDbAttributeDefinition {
public:
  MVDRAWING_DECLARE_CLASS(NamedDefinition);
};
MVDRAWING_DEFINE_CLASS(NamedDefinition, OdDbAttributeDefinition, "");

namespace {

using namespace tests;

class Filters : public OpenDocument {
protected:
  template <class Kind>
  OdDbObjectId add(OdDbObjectId block = OdDbObjectId()) {
    return addTo<Kind>(block.isNull() ? database_->getModelSpaceId() : block)->objectId();
  }
  template <class Kind>
  OdDbObjectId addErased() {
    const OdSmartPtr<Kind> entity = addTo<Kind>(database_->getModelSpaceId());
    entity->erase();
    return entity->objectId();
  }
  OdDbObjectId reference(OdDbObjectId block, OdDbObjectId into = OdDbObjectId()) {
    return addReference(*database_, block, into);
  }
  bool reachesItself(const OdString& name, const OdDbObjectIdArray& ids) {
    const bool found = blockUtils::isObjsAreBtrItSelf(name, ids);
    const OdDbObjectId block = database_->symbol(OdDb::kBlockTable, name);
    bool anyAlone = false;
    for (const OdDbObjectId& id : ids) {
      const auto one = OdDbBlockReference::cast(id.safeOpenObject());
      anyAlone = anyAlone || blockUtils::isBTRefAreBtrItSelf(one.get(), block);
    }
    EXPECT_EQ(found, anyAlone) << name.toUtf8(); // one by one and all together agree
    return found;
  }
};

TEST_F(Filters, CamerasAloneAreKickedOut) {
  const OdDbObjectId text = addText(*database_, L"a"), definition = add<OdDbAttributeDefinition>();
  const OdDbObjectId stereo = add<StereoCamera>(), erased = addErased<OdDbCamera>();
  const OdDbObjectId gone = addText(*OdDbDatabase::create(), L"b"), layer = database_->getLayerZeroId(), none;
  const OdDbObjectId one = add<OdDbCamera>(), two = add<OdDbCamera>(), three = add<OdDbCamera>();
  OdDbObjectIdArray ids{one, text, none, definition, two, stereo, erased, gone, text, three, layer};
  blockUtils::kickOutSomeKindOfObjs(ids);
  EXPECT_EQ(ids, (OdDbObjectIdArray{text, none, definition, stereo, erased, gone, text, layer}));
}

TEST_F(Filters, AttributeDefinitionsMoveToTheEndInOrder) {
  const OdDbObjectId text = addText(*database_, L"a"), camera = add<OdDbCamera>(), named = add<NamedDefinition>();
  const OdDbObjectId first = add<OdDbAttributeDefinition>(), second = add<OdDbAttributeDefinition>();
  const OdDbObjectId erased = addErased<OdDbAttributeDefinition>();
  OdDbObjectIdArray ids{second, text, first, second, OdDbObjectId(), erased, named, camera, first};
  OdDbObjectIdArray definitions{camera};
  blockUtils::kickOutAttrdefID(ids, definitions);
  EXPECT_EQ(ids, (OdDbObjectIdArray{text, OdDbObjectId(), erased, named, camera}));
  EXPECT_EQ(definitions, (OdDbObjectIdArray{camera, second, first, second, first}));
}

TEST_F(Filters, ABlockThatWouldContainItselfIsFoundAtAnyDepth) {
  const OdDbObjectId a = addBlock(*database_, L"A"), b = addBlock(*database_, L"B"), c = addBlock(*database_, L"C");
  const OdDbObjectId text = addText(*database_, L"a"), other = reference(addBlock(*database_, L"other"));
  const OdDbObjectId inner = reference(a, b);
  addText(*database_, L"first", c);
  addTo<OdDbMInsertBlock>(c)->setBlockTableRecord(b);
  const OdDbObjectId toA = reference(a), toB = reference(b), toC = reference(c);
  const struct {
    const wchar_t* name;
    OdDbObjectIdArray ids;
    bool found;
  } cases[] = {
      {L"A", {toB}, true},        {L"a", {text, OdDbObjectId(), other, toA}, true},
      {L"A", {other, toC}, true}, {L"A", {}, false},
      {L"B", {toC}, true},        {L"B", {toA, other, text, database_->getLayerZeroId()}, false},
      {L"B", {toA, toB}, true},   {L"C", {toA, toB}, false},
      {L"", {toA}, false},        {L"D", {toA, toB, toC}, false},
  };
  for (const auto& one : cases)
    EXPECT_EQ(reachesItself(one.name, one.ids), one.found) << one.name << ' ' << one.ids.size();
  EXPECT_FALSE(blockUtils::isBTRefAreBtrItSelf(nullptr, a));
  EXPECT_FALSE(blockUtils::isBTRefAreBtrItSelf(forRead<OdDbBlockReference>(toA), OdDbObjectId()));
  EXPECT_FALSE(blockUtils::isBTRefAreBtrItSelf(OdDbBlockReference::createObject(), a));
  forWrite<OdDbBlockReference>(inner)->erase();
  EXPECT_FALSE(reachesItself(L"A", {toC}));
  mvsi::mvsidbSetWorkingDatabase(nullptr);
  EXPECT_FALSE(blockUtils::isObjsAreBtrItSelf(L"A", {toA}));
}

TEST_F(Filters, DefinitionsThatDoNotOpenReferenceNothingAndOtherKindsThrow) {
  const OdDbObjectId a = addBlock(*database_, L"A"), b = addBlock(*database_, L"B");
  reference(a, b);
  const OdDbObjectId toB = reference(b);
  forWrite<OdDbBlockTableRecord>(b)->erase();
  EXPECT_FALSE(reachesItself(L"A", {toB}));
  const OdDbObjectId strange = reference(database_->getLayerZeroId());
  EXPECT_THROW(blockUtils::isObjsAreBtrItSelf(L"A", {strange}), OdError_NotThatKindOfClass);
  EXPECT_TRUE(blockUtils::isObjsAreBtrItSelf(L"A", {reference(a), strange})); // found before it
}

// Two references to the next block in each: as many ways down as a number of 60 digits in binary, and a long chain.
TEST_F(Filters, EachDefinitionIsVisitedOnceAtAnyDepth) {
  addBlock(*database_, L"lamp"); // shown by nothing
  for (const auto& [levels, width] : {std::pair(60, 2), std::pair(20000, 1)}) {
    OdDbObjectId below = addBlock(*database_, OdString(std::to_wstring(width) + L" bottom"));
    for (int level = 0; level < levels; ++level) {
      const OdDbObjectId block = addBlock(*database_, OdString(std::to_wstring(width) + L"-" + std::to_wstring(level)));
      for (int at = 0; at < width; ++at)
        reference(below, block);
      below = block;
    }
    const OdDbObjectIdArray top{reference(below)};
    EXPECT_FALSE(reachesItself(L"lamp", top));
    EXPECT_TRUE(reachesItself(OdString(std::to_wstring(width) + L" BOTTOM"), top));
  }
}

TEST_F(Filters, LockedIsWhatLiesOnALockedLayer) {
  const OdDbObjectId walls = addLayer(*database_, L"Walls");
  const OdDbObjectId text = addText(*database_, L"a"), erased = addText(*database_, L"b");
  for (const OdDbObjectId& id : {text, erased})
    forWrite<OdDbEntity>(id)->setLayer(walls);
  forWrite<OdDbEntity>(erased)->erase();
  EXPECT_FALSE(blockUtils::isObjOnLockedLayer(text));
  LayerTools::lockOrUnlockLayer(walls, true);
  EXPECT_TRUE(blockUtils::isObjOnLockedLayer(text));
  for (const OdDbObjectId& id : {erased, walls, addText(*database_, L"c"), OdDbObjectId()})
    EXPECT_FALSE(blockUtils::isObjOnLockedLayer(id));
}

} // namespace
