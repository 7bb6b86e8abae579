// From the host's selections to object ids and back: nothing is lost on the way, what cannot be read is skipped,
// locked layers are reported, and whatever the host fails at, no selection ends half taken.
#include "blockcommon/selections.h"
#include "morvane/drawing_tools.h"
#include "tests/support/open_document.h"
#include "tests/support/oracles.h"

namespace {

using namespace commonFun;
using namespace tests;

class Selections : public OpenDocument {
protected:
  Selections() { forWrite<OdDbEntity>(onWall_)->setLayer(walls_); }
  bool isHighlighted(OdDbObjectId id) { return forRead<OdDbEntity>(id)->isHighlighted(); }
  void pickFirst(const OdDbObjectIdArray& ids) {
    long set[2] = {0, 0};
    objectArr2AdsName(ids, set);
    host_.host().selections().setFirst(set, nullptr);
    clearSSName(set);
  }
  OdDbObjectIdArray picked() {
    OdDbObjectIdArray ids;
    mvsi::RxSelectSet implied;
    if (implied.impliedSelect() == 0)
      implied.asIdArray(ids);
    return ids;
  }
  void expectLockedReported(int count) {
    const auto boxes = boxes_.take();
    ASSERT_EQ(boxes.size(), count == 0 ? 0U : 1U);
    EXPECT_TRUE(count == 0 || boxes[0].find(OdString(L"锁定图层上的对象数量: " + std::to_wstring(count))) > 0);
  }

  BoxWatch boxes_{host_};
  const OdDbObjectId a_ = addText(*database_, L"a"), b_ = addText(*database_, L"b"), c_ = addText(*database_, L"c");
  const OdDbObjectId onWall_ = addText(*database_, L"wall");
  const OdDbObjectId layer0_ = database_->getLayerZeroId(), walls_ = addLayer(*database_, L"Walls");
};

TEST_F(Selections, GoIntoSetsAndBack) {
  long set[2] = {0, 0};
  objectArr2AdsName({}, set);
  EXPECT_EQ(set[1], 0);
  objectArr2AdsName({b_, OdDbObjectId(), layer0_, a_, b_}, set); // neither null nor a layer can be selected
  objectArr2AdsName({c_}, set);
  OdDbObjectIdArray ids{c_};
  adsName2ObjectArr(set, ids);
  EXPECT_EQ(ids, (OdDbObjectIdArray{c_, b_, a_, c_}));
  EXPECT_TRUE(getSelectedEntitiesIDs(ids, set));
  EXPECT_EQ(ids, (OdDbObjectIdArray{b_, a_, c_}));
  EXPECT_TRUE(isEntityInSSset(c_, set));
  EXPECT_FALSE(isEntityInSSset(onWall_, set));
  EXPECT_FALSE(isSSsetEmpty(set));
  const long freed[2] = {set[0], set[1]};
  EXPECT_EQ(clearSSName(set), 1);
  EXPECT_TRUE(set[0] == 0 && set[1] == 0);
  EXPECT_FALSE(isSSsetEmpty(freed));
  EXPECT_FALSE(isEntityInSSset(c_, freed));
  EXPECT_FALSE(getSelectedEntitiesIDs(ids, set));
  EXPECT_TRUE(ids.isEmpty());
  ids.append(a_);
  EXPECT_FALSE(getSelectedEntitiesIDs(ids, nullptr));
  EXPECT_TRUE(ids.isEmpty());
  host_.failNothing();
  EXPECT_EQ(clearSSName(set), 1);
  EXPECT_EQ(host_.calls(), (std::vector<std::string>{"mvsiedSSFree"}));
}

TEST_F(Selections, SkipMembersThatFail) {
  long set[2] = {0, 0};
  host_.failOperation("mvsiedSSAdd", 2);
  objectArr2AdsName({a_, b_, c_}, set);
  OdDbObjectIdArray ids;
  adsName2ObjectArr(set, ids);
  EXPECT_EQ(ids, (OdDbObjectIdArray{a_, c_}));
  for (const char* operation : {"mvsiedSSName", "mvsidbGetObjectId"}) {
    host_.failOperation(operation);
    EXPECT_TRUE(getSelectedEntitiesIDs(ids, set));
    EXPECT_EQ(ids, (OdDbObjectIdArray{c_})) << operation;
    host_.failOperation(operation);
    EXPECT_FALSE(isEntityInSSset(c_, set)) << operation; // stops at what it cannot read
    host_.failOperation(operation, 2);
    EXPECT_TRUE(isEntityInSSset(a_, set)) << operation;
  }
  forWrite<OdDbEntity>(c_)->highlight(false);
  host_.failOperation("mvsiedSSName");
  EXPECT_EQ(mvedHighlightEnt(set, true), RTNORM);
  EXPECT_TRUE(isHighlighted(c_));
  EXPECT_FALSE(isHighlighted(a_));
}

// Selection services as other hosts may have them.
struct OtherSelector : MvSelectorServer {
  OtherSelector(int theCode, int theLength) : code(theCode), length(theLength) {}
  int mvsiedSSSetFirst(const long*, const long*) override { return RTERROR; }
  int mvsiedSSFree(const long*) override { return RTERROR; }
  int mvsiedSSLength(const long*, int* answer) override { return *answer = length, code; }
  int mvsiedSSAdd(const long*, const long*, long*) override { return RTERROR; }
  int mvsiedSSName(const long*, int, long*) override { return RTERROR; }
  int code, length;
};

TEST_F(Selections, FollowTheLengthAndTheCodeOfTheHost) {
  const struct {
    bool service;
    int code, length;
    bool empty, any;
    int highlight;
  } cases[] = {
      {true, RTNORM, 0, true, false, RTNORM},    {true, RTNORM, 2, false, true, RTNORM},
      {true, RTEMPTY, 0, false, false, RTEMPTY}, {true, RTCANCELLED, 0, false, false, RTCANCELLED},
      {true, RTERROR, 0, false, false, RTERROR}, {false, 0, 0, false, false, RTERROR},
  };
  long name[2] = {7, 7};
  for (const auto& one : cases) {
    mv_arbitDict_unregister(kSelectorServer);
    if (one.service)
      mv_arbitDict_register(kSelectorServer, new OtherSelector(one.code, one.length));
    OdDbObjectIdArray ids{a_};
    EXPECT_EQ(isSSsetEmpty(name), one.empty) << one.code;
    EXPECT_FALSE(isEntityInSSset(OdDbObjectId(), name)) << one.code;
    EXPECT_EQ(getSelectedEntitiesIDs(ids, name), one.any) << one.code;
    EXPECT_TRUE(ids.isEmpty());
    EXPECT_EQ(mvedHighlightEnt(name, true), one.highlight) << one.code;
    mvsi::mvsidbGetAdsName(name, a_);
    const bool isEntity = !one.service || one.code == RTERROR;
    EXPECT_EQ(mvedHighlightEnt(name, true), isEntity ? RTNORM : one.highlight) << one.code;
    EXPECT_EQ(isHighlighted(a_), isEntity);
    forRead<OdDbEntity>(a_)->highlight(false);
    name[0] = name[1] = 7;
  }
}

TEST_F(Selections, AreHighlightedAsSetsOrSingly) {
  long set[2] = {0, 0}, entity[2], layer[2], none[2] = {0, 0};
  objectArr2AdsName({a_, b_}, set);
  for (const bool on : {true, false}) {
    EXPECT_EQ(mvedHighlightEnt(set, on), RTNORM);
    EXPECT_EQ(isHighlighted(a_), on);
    EXPECT_EQ(isHighlighted(b_), on);
  }
  EXPECT_EQ(document_->refreshCount(), 4U);
  mvsi::mvsidbGetAdsName(entity, c_);
  EXPECT_EQ(mvedHighlightEnt(entity, true), RTNORM);
  EXPECT_TRUE(isHighlighted(c_));
  forWrite<OdDbEntity>(c_)->erase();
  EXPECT_EQ(mvedHighlightEnt(entity, false), RTERROR);
  EXPECT_EQ(mvedHighlightEnt(none, true), RTEMPTY);
  EXPECT_EQ(mvedHighlightEnt(nullptr, true), RTEMPTY);
  mvsi::mvsidbGetAdsName(layer, layer0_);
  EXPECT_THROW(mvedHighlightEnt(layer, true), OdError_NotThatKindOfClass);
}

TEST_F(Selections, TheOneBeforeTheCommandIsTakenWithoutLockedLayers) {
  OdDbObjectIdArray ids{c_};
  EXPECT_EQ(curSelectEntity(ids), 1);
  EXPECT_EQ(ids, (OdDbObjectIdArray{c_})); // there was none
  LayerTools::lockOrUnlockLayer(walls_, true);
  pickFirst({a_, onWall_, b_});
  ids = {onWall_, c_};
  EXPECT_EQ(curSelectEntity(ids), 1);
  EXPECT_EQ(ids, (OdDbObjectIdArray{c_, a_, b_}));
  expectLockedReported(2);
  for (const OdDbObjectId& id : {a_, b_, onWall_})
    EXPECT_FALSE(isHighlighted(id));
  EXPECT_TRUE(picked().isEmpty());
  pickFirst({a_, b_});
  host_.failOperation("mvsiedSSSetFirst"); // the highlight goes even where the host keeps its selection
  EXPECT_EQ(curSelectEntity(ids), 1);
  EXPECT_FALSE(host_.allPassed() || isHighlighted(a_) || isHighlighted(b_));

  boxes_.take();
  pickFirst({onWall_});
  ids.clear();
  EXPECT_EQ(curSelectEntity(ids), 1);
  EXPECT_TRUE(ids.isEmpty());
  expectLockedReported(1);
  EXPECT_TRUE(isHighlighted(onWall_)); // nothing was taken, so it stays selected
  EXPECT_EQ(picked(), (OdDbObjectIdArray{onWall_}));
}

TEST_F(Selections, IsTakenOrLeftWhateverTheHostFailsAt) {
  for (int n = 1;; ++n) {
    host_.failNothing();
    pickFirst({a_, b_});
    OdDbObjectIdArray ids;
    host_.failCall(n);
    EXPECT_EQ(curSelectEntity(ids), 1);
    const bool done = host_.allPassed();
    host_.failNothing();
    EXPECT_TRUE(ids.isEmpty() || ids == (OdDbObjectIdArray{a_, b_})) << n;
    EXPECT_TRUE(!ids.isEmpty() || picked() == (OdDbObjectIdArray{a_, b_})) << n;
    if (done)
      break;
  }
}

TEST_F(Selections, EraseUpToWhatDoesNotOpen) {
  const auto reasonOf = [](auto&& erase, OdDbObjectIdArray& ids) {
    try {
      erase(ids);
    } catch (const OdError& error) {
      return error.code();
    }
    return eOk;
  };
  const OdDbObjectId gone = addText(*OdDbDatabase::create(), L"gone"), dead = addText(*database_, L"dead");
  forWrite<OdDbEntity>(dead)->erase();
  LayerTools::lockOrUnlockLayer(walls_, true);
  const std::pair<OdDbObjectId, OdResult> refused[] = {
      {OdDbObjectId(), eNullObjectId}, {dead, eWasErased}, {onWall_, eOnLockedLayer}, {gone, eDatabaseGone}};
  for (const auto& [id, reason] : refused) {
    const std::function<int(OdDbObjectIdArray&)> ways[] = {eraseEntitys, deleteObjs};
    for (const auto& erase : ways) {
      OdDbObjectIdArray ids{addText(*database_, L"x"), id, b_};
      EXPECT_EQ(reasonOf(erase, ids), reason);
      EXPECT_TRUE(ids[0].isErased() && !b_.isErased()) << reason;
    }
  }
  const OdDbObjectId layer = addLayer(*database_, L"unused");
  OdDbObjectIdArray mixed{a_, layer, b_};
  EXPECT_THROW(eraseEntitys(mixed), OdError_NotThatKindOfClass);
  EXPECT_FALSE(layer.isErased());
  expectUndoRestores(*database_, [&] { EXPECT_EQ(deleteObjs({layer, b_}), 2); });
  OdDbObjectIdArray last{c_};
  EXPECT_EQ(eraseEntitys(last), 1);
  EXPECT_EQ(last, (OdDbObjectIdArray{c_}));
  EXPECT_TRUE(c_.isErased());
  expectSound(*database_);
}

TEST_F(Selections, ContentsOfBlocksAreIteratedInOrder) {
  const OdDbObjectId door = addBlock(*database_, L"Door");
  const OdDbObjectId first = addText(*database_, L"1", door), second = addText(*database_, L"2", door);
  const OdDbObjectId third = addReference(*database_, addBlock(*database_, L"Knob"), door);
  forWrite<OdDbEntity>(second)->erase();
  OdDbObjectIdArray ids{a_};
  getEntityWithObjectId(door, ids);
  getEntityWithObjectName(L"dOOR", ids);
  getEntityWithObjectName(L"Gate", ids);
  getEntityWithObjectName(L"", ids);
  getEntityWithObjectId(OdDbObjectId(), ids);
  EXPECT_EQ(ids, (OdDbObjectIdArray{a_, first, third, first, third}));
  EXPECT_THROW(getEntityWithObjectId(layer0_, ids), OdError_NotThatKindOfClass);
  forWrite<OdDbBlockTableRecord>(door)->erase();
  EXPECT_THROW(getEntityWithObjectId(door, ids), OdError);
  getEntityWithObjectName(L"Door", ids);
  postRegen(1, ids, 2, true);
  EXPECT_EQ(ids.size(), 5U);
}

TEST_F(Selections, LoseWhatLiesOnLockedLayers) {
  const OdDbObjectId dead = addText(*database_, L"dead");
  forWrite<OdDbEntity>(dead)->setLayer(walls_);
  forWrite<OdDbEntity>(dead)->erase();
  OdDbObjectIdArray ids{onWall_, OdDbObjectId(), a_, dead, layer0_, walls_, onWall_};
  EXPECT_EQ(objsOnLockedLayerPro(ids), 7);
  expectLockedReported(0);
  LayerTools::lockOrUnlockLayer(walls_, true);
  EXPECT_EQ(objsOnLockedLayerPro(ids), 5);
  EXPECT_EQ(ids, (OdDbObjectIdArray{OdDbObjectId(), a_, dead, layer0_, walls_}));
  expectLockedReported(2);
  ids = {onWall_};
  EXPECT_EQ(objsOnLockedLayerPro(ids), 0);
  EXPECT_TRUE(ids.isEmpty());
  expectLockedReported(1);
}

TEST_F(Selections, UnlockTheLayerOfAnEntityForAScope) {
  const auto isLocked = [this] { return LayerTools::isLayerLocked(walls_); };
  for (const bool locked : {false, true}) {
    LayerTools::lockOrUnlockLayer(walls_, locked);
    {
      const CMvAutoUnLockEntityLayer outer(onWall_);
      EXPECT_FALSE(isLocked());
      {
        const CMvAutoUnLockEntityLayer inner(onWall_);
        const CMvAutoUnLockEntityLayer nothing{OdDbObjectId()}, noEntity(walls_);
      }
      EXPECT_FALSE(isLocked());
    }
    EXPECT_EQ(isLocked(), locked);
  }
  try {
    const CMvAutoUnLockEntityLayer scope(onWall_);
    OdDbObjectIdArray ids{onWall_, OdDbObjectId()};
    eraseEntitys(ids);
  } catch (const OdError&) {
    EXPECT_TRUE(isLocked());
  }
  EXPECT_TRUE(onWall_.isErased()); // it could be written meanwhile
  static_assert(!std::is_copy_constructible_v<CMvAutoUnLockEntityLayer> && sizeof(CMvAutoUnLockEntityLayer) == 16);
}

} // namespace
