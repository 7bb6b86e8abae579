// Documents and what belongs to the current one: the working database, the UCS, header variables, selection sets,
// layers.
#include "morvane/testing.h"
#include "tests/support/drawings.h"

#include "DbAnnotationScale.h"
#include "DbDictionary.h"
#include "DbDimAssoc.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

using morvane::ScriptedHost;
using namespace tests;

constexpr double kInfinite = std::numeric_limits<double>::infinity();

void addScale(OdDbDatabase* database, const OdString& name, double paper, double drawing) {
  const auto root = forRead<OdDbDictionary>(database->getNamedObjectsDictionaryId());
  const auto scales = forWrite<OdDbDictionary>(root->getAt(L"ACAD_SCALELIST"));
  const OdSmartPtr<OdDbScale> scale = OdDbScale::createObject();
  scale->setScaleName(name);
  scale->setUnits(paper, drawing);
  scales->setAt(name, scale);
}

class OpenDrawing : public testing::Test {
protected:
  static OdString textOf(const wchar_t* variable) {
    OdString text;
    EXPECT_EQ(mvsi::getVar(variable, text, true), RTNORM);
    return text;
  }

  ScriptedHost host_;
  morvane::Documents& documents_ = host_.host().documents();
  OdDbDatabasePtr database_ = OdDbDatabase::create();
  mvsi::MvsiApDocument* document_ = documents_.open(database_, L"C:\\plans\\a.dwg");
};

TEST_F(OpenDrawing, WorkingDatabaseFollowsTheCurrentDocumentUnlessSeparate) {
  const OdDbDatabasePtr second = OdDbDatabase::create(), separate = OdDbDatabase::create();
  mvsi::MvsiApDocument* other = documents_.open(second);
  EXPECT_EQ(mvsi::mvsidbWorkingDatabase(), second.get());
  mvsi::mvsidbSetWorkingDatabase(separate);
  EXPECT_EQ(mvsi::mvsidbWorkingDatabase(), separate.get());
  mvsi::mvsidbSetWorkingDatabase(nullptr);
  EXPECT_EQ(mvsi::mvsidbWorkingDatabase(), nullptr);
  mvsi::mvsidbSetWorkingDatabase(second);
  EXPECT_TRUE(documents_.setCurrent(document_));
  EXPECT_EQ(mvsi::mvsidbWorkingDatabase(), database_.get());
  mvsi::mvsidbSetWorkingDatabase(separate);
  EXPECT_TRUE(documents_.setCurrent(other)); // together again
  EXPECT_EQ(mvsi::mvsidbWorkingDatabase(), second.get());
  EXPECT_TRUE(documents_.close(other));
  EXPECT_EQ(documents_.current(), document_);
  EXPECT_FALSE(documents_.close(other));
  EXPECT_FALSE(documents_.setCurrent(other));
  EXPECT_TRUE(documents_.close(document_));
  EXPECT_EQ(mvsi::mvsidbWorkingDatabase(), nullptr);
}

TEST_F(OpenDrawing, IsFoundByDatabaseAndFile) {
  documents_.open(OdDbDatabase::create());
  EXPECT_EQ(mvsi::gsiGetApDocFromDb(database_), document_);
  EXPECT_EQ(mvsi::gsiGetApDocFromDb(nullptr), nullptr);
  for (const wchar_t* path : {L"c:\\PLANS\\A.DWG", L"/plans/a.dwg", L"C:\\plans\\old\\..\\.\\a.dwg", L"c:plans/A.dwg"})
    EXPECT_EQ(qzutads::findDwgDoc(path), document_) << path;
  EXPECT_EQ(qzutads::findDwgDoc(L"C:\\plans\\a.dwg\\b"), nullptr);
  EXPECT_EQ(qzutads::findDwgDoc(L""), nullptr); // not the one without a file
  EXPECT_EQ(textOf(L"DWGNAME"), L"");
  documents_.setCurrent(document_);
  EXPECT_EQ(textOf(L"DWGPREFIX"), L"C:\\plans\\");
  const OdRxObjectPtr service = mv_arbitDict_getservice(kDocMgr);
  auto& manager = dynamic_cast<MvDocManager&>(*service);
  EXPECT_EQ(manager.documentCount(), 2);
  EXPECT_EQ(manager.documentAt(0), manager.currentDocument());
  EXPECT_EQ(manager.documentAt(2), nullptr);
  EXPECT_EQ(manager.refreshViews(nullptr), RTERROR);
}

// X to world Y, Y to world Z, origin at (1, 2, 3).
OdGeMatrix3d turnedUcs() {
  return OdGeMatrix3d::coordSystem(OdGePoint3d(1, 2, 3), OdGeVector3d::kYAxis, OdGeVector3d::kZAxis,
                                   OdGeVector3d::kXAxis);
}

TEST_F(OpenDrawing, KeepsItsOwnUcs) {
  OdGeMatrix3d matrix;
  EXPECT_EQ(mvsi::mvsidbUcsMatrix(matrix, database_), RTNORM);
  EXPECT_EQ(matrix, OdGeMatrix3d::kIdentity);
  EXPECT_EQ(mvsi::mvsidbSetUcsMatrix(turnedUcs(), database_), RTNORM);
  EXPECT_EQ(mvsi::mvsidbUcsMatrix(matrix, database_), RTNORM);
  EXPECT_EQ(matrix, turnedUcs());
  EXPECT_EQ(mvsi::mvsidbUcsMatrix(matrix, nullptr), RTERROR);
  for (const OdGeMatrix3d& skewed :
       {OdGeMatrix3d::scaling(2), OdGeMatrix3d::mirroring(OdGePoint3d::kOrigin), OdGeMatrix3d()})
    EXPECT_EQ(mvsi::mvsidbSetUcsMatrix(skewed, database_), RTREJ);

  OdGePoint3d moved;
  double point[3] = {1, 10, 100};
  EXPECT_EQ(mvsi::mvsidbUcs2Wcs(point, point, false), RTNORM); // in place
  EXPECT_EQ(OdGePoint3d(point[0], point[1], point[2]), OdGePoint3d(101, 3, 13));
  EXPECT_EQ(mvsi::mvsidbWcs2Ucs(point, point, false), RTNORM);
  EXPECT_EQ(OdGePoint3d(point[0], point[1], point[2]), OdGePoint3d(1, 10, 100));
  EXPECT_EQ(mvsi::mvsidbUcs2Wcs(OdGePoint3d(1, 0, 0), moved, true), RTNORM);
  EXPECT_EQ(moved, OdGePoint3d(0, 1, 0));

  documents_.open(OdDbDatabase::create()); // another drawing, in world coordinates
  EXPECT_EQ(mvsi::mvsidbUcs2Wcs(OdGePoint3d(1, 0, 0), moved, false), RTNORM);
  EXPECT_EQ(moved, OdGePoint3d(1, 0, 0));
  mvsi::mvsidbSetWorkingDatabase(nullptr);
  EXPECT_EQ(mvsi::mvsidbUcs2Wcs(OdGePoint3d(5, 5, 5), moved, false), RTERROR);
  EXPECT_EQ(moved, OdGePoint3d(1, 0, 0));
  documents_.setCurrent(document_);
  EXPECT_EQ(mvsi::mvsidbUcs2Wcs(OdGePoint3d(kInfinite, 0, 0), moved, false), RTERROR);
}

TEST_F(OpenDrawing, TypedPointsFollowTheUcsAndTheLimits) {
  mvsi::mvsidbSetUcsMatrix(turnedUcs(), database_);
  const auto typed = [this](const wchar_t* text) {
    double point[3] = {};
    host_.answerWith({text, L"5,5"});
    EXPECT_EQ(host_.host().input().getPoint(L"?", point), RTNORM);
    return OdGePoint3d(point[0], point[1], point[2]);
  };
  EXPECT_EQ(typed(L"*1,2,3"), OdGePoint3d(0, 0, 0));
  typed(L"@1,0"); // world 1,3,3
  mvsi::mvsidbSetUcsMatrix(OdGeMatrix3d::kIdentity, database_);
  EXPECT_EQ(typed(L"@*1,0"), OdGePoint3d(2, 3, 3));
  database_->setHeaderInt("LIMCHECK", 70, 1);
  database_->setHeaderPoint("LIMMIN", OdGePoint3d(0, 0, 0));
  database_->setHeaderPoint("LIMMAX", OdGePoint3d(10, 10, 0));
  EXPECT_EQ(typed(L"11,5"), OdGePoint3d(5, 5, 0)); // asked again
}

TEST_F(OpenDrawing, VariablesAreItsHeader) {
  short units = -1;
  EXPECT_EQ(mvsi::setVar(L"insunits", static_cast<short>(6), true), RTNORM);
  EXPECT_EQ(database_->getINSUNITS(), OdDb::kUnitsMeters);
  EXPECT_EQ(mvsi::setVar(L"INSUNITS", static_cast<short>(25), true), RTREJ);
  EXPECT_EQ(mvsi::setVar(L"INSUNITS", OdString(L"6"), true), RTREJ);
  database_->setINSUNITS(OdDb::kUnitsFeet);
  EXPECT_EQ(mvsi::getVar(L"INSUNITS", units), RTNORM);
  EXPECT_EQ(units, 2);

  addLayer(*database_, L"Walls");
  EXPECT_EQ(mvsi::setVar(L"CLAYER", OdString(L"WALLS"), true), RTNORM);
  EXPECT_EQ(textOf(L"clayer"), L"Walls");
  for (const wchar_t* name : {L"CLAYER", L"ACADVER"})
    EXPECT_EQ(mvsi::setVar(name, OdString(L"None"), true), RTREJ);

  for (const double x : {1.0, kInfinite})
    EXPECT_EQ(host_.host().variables().set(L"INSBASE", morvane::VariablePoint3d{x, 2, 3}), x == 1 ? RTNORM : RTREJ);
  EXPECT_EQ(database_->getINSBASE(), OdGePoint3d(1, 2, 3));
  documents_.open(OdDbDatabase::create());
  EXPECT_EQ(textOf(L"CLAYER"), L"0");

  // The scale that annotative blocks follow is the one that the variable names.
  const OdString half = L"1:2";
  addScale(mvsi::mvsidbWorkingDatabase(), half, 1, 2);
  EXPECT_EQ(mvsi::setVar(L"CANNOSCALE", half, true), RTNORM);
  EXPECT_EQ(mvsi::mvsidbWorkingDatabase()->cannoscale()->getName(), half);
  EXPECT_EQ(mvsi::setVar(L"CANNOSCALE", OdString(L"no such scale"), true), RTREJ);
  EXPECT_EQ(textOf(L"cannoscale"), half);

  OdDbDatabase* damaged = mvsi::mvsidbWorkingDatabase();
  damaged->setHeaderInt("CLAYER", 70, 5);
  EXPECT_EQ(mvsi::setVar(L"CLAYER", static_cast<short>(6), true), RTREJ);
  EXPECT_EQ(damaged->headerInt("CLAYER"), 5);
  damaged->setHeaderInt("INSUNITS", 70, 65536 + 6);
  EXPECT_EQ(mvsi::getVar(L"INSUNITS", units), RTERROR);
  EXPECT_EQ(units, 2);
}

class Selection : public OpenDrawing {
protected:
  const OdDbObjectId first_ = addText(*database_, L"1"), second_ = addText(*database_, L"2");
  morvane::SelectionSets& sets_ = host_.host().selections();

  void addTo(long* set, std::initializer_list<OdDbObjectId> ids) {
    for (const OdDbObjectId& id : ids) {
      long entity[2];
      ASSERT_EQ(mvsi::mvsidbGetAdsName(entity, id), 0);
      EXPECT_EQ(sets_.add(entity, set, set), RTNORM);
    }
  }
  static bool isHighlighted(OdDbObjectId id) {
    return OdDbEntityPtr(id.safeOpenObject(OdDb::kForRead, true))->isHighlighted();
  }
  std::vector<OdDbObjectId> members(const long* set) {
    std::vector<OdDbObjectId> ids;
    int length = 0;
    sets_.length(set, &length);
    for (int at = 0; at < length; ++at) {
      long name[2];
      EXPECT_EQ(sets_.memberAt(set, at, name), RTNORM);
      ids.emplace_back();
      EXPECT_EQ(mvsi::mvsidbGetObjectId(ids.back(), name), 0);
    }
    return ids;
  }
};

TEST_F(Selection, SetsGrowInPlaceAndContainEachEntityOnce) {
  long set[2] = {0, 0}, copy[2] = {0, 0}, entity[2];
  addTo(set, {second_, first_, second_});
  EXPECT_EQ(members(set), (std::vector<OdDbObjectId>{second_, first_}));
  EXPECT_EQ(sets_.add(set, copy, copy), RTNORM); // a set's members
  EXPECT_EQ(sets_.add(set, set, set), RTNORM);   // its own change nothing
  EXPECT_EQ(members(copy), members(set));
  for (const int at : {2, -1})
    EXPECT_EQ(sets_.memberAt(set, at, entity), RTERROR);
}

TEST_F(Selection, NamesAreDistinctAndEndWithTheirObjects) {
  long set[2] = {0, 0}, entity[2] = {0, 0}, none[2] = {0, 0};
  int length = 7;
  OdDbObjectId id = first_;
  EXPECT_EQ(mvsi::mvsidbGetObjectId(id, none), RTERROR);
  EXPECT_TRUE(id.isNull());
  EXPECT_EQ(sets_.length(none, &length), RTERROR);
  EXPECT_EQ(sets_.free(none), RTERROR);
  EXPECT_EQ(sets_.add(none, none, set), RTERROR);
  mvsi::mvsidbGetAdsName(entity, first_);
  EXPECT_EQ(sets_.length(entity, &length), RTERROR);
  EXPECT_EQ(sets_.add(entity, entity, set), RTERROR);
  EXPECT_EQ(sets_.add(entity, none, set), RTNORM);
  EXPECT_EQ(mvsi::mvsidbGetObjectId(id, set), RTERROR);
  EXPECT_EQ(sets_.free(set), RTNORM);
  EXPECT_EQ(sets_.length(set, &length), RTERROR);
  EXPECT_EQ(sets_.add(entity, set, set), RTERROR); // a freed name does not come to life again
  EXPECT_EQ(length, 7);
  EXPECT_EQ(mvsi::mvsidbGetAdsName(entity, OdDbObjectId()), RTERROR);
  mvsi::mvsidbGetAdsName(entity, database_->getLayerZeroId());
  EXPECT_EQ(sets_.add(entity, none, set), RTREJ);
  mvsi::mvsidbGetAdsName(entity, first_);
  documents_.close(document_);
  database_.release();
  EXPECT_EQ(mvsi::mvsidbGetObjectId(id, entity), RTERROR); // its drawing is gone
}

TEST_F(Selection, TheImpliedOneIsWhatWasPickedFirst) {
  long set[2] = {0, 0}, entity[2];
  mvsi::RxSelectSet implied;
  EXPECT_EQ(implied.impliedSelect(), RTERROR);
  addTo(set, {first_, second_});
  mvsi::mvsidbGetAdsName(entity, second_);
  EXPECT_EQ(sets_.setFirst(set, nullptr), RTNORM);
  EXPECT_EQ(sets_.setFirst(entity, nullptr), RTERROR);
  EXPECT_EQ(implied.impliedSelect(), 0);
  EXPECT_EQ(implied.hilight(true, -1), 0);
  EXPECT_EQ(implied.hilight(false, 1), 0);
  EXPECT_EQ(implied.hilight(false, 2), RTERROR);
  EXPECT_TRUE(isHighlighted(first_) && !isHighlighted(second_));
  first_.safeOpenObject(OdDb::kForWrite)->erase();
  OdDbObjectIdArray ids;
  EXPECT_EQ(implied.asIdArray(ids), 0);
  EXPECT_EQ(ids, (OdDbObjectIdArray{second_}));
  EXPECT_EQ(sets_.setFirst(nullptr, nullptr), RTNORM);
  EXPECT_EQ(implied.impliedSelect(), RTERROR);
}

TEST_F(Selection, ThePickedOneIsHighlightedAndBelongsToItsDrawing) {
  const auto pick = [this](std::initializer_list<OdDbObjectId> ids) {
    long set[2] = {0, 0};
    addTo(set, ids);
    const OdRxObjectPtr service = mv_arbitDict_getservice(kSelectorServer);
    EXPECT_EQ(dynamic_cast<MvSelectorServer&>(*service).mvsiedSSSetFirst(set, nullptr), RTNORM);
  };
  pick({first_, second_});
  EXPECT_TRUE(isHighlighted(first_) && isHighlighted(second_));
  const OdSmartPtr<OdDbText> copy(new OdDbText(*forRead<OdDbText>(first_)));
  EXPECT_FALSE(copy->isHighlighted());
  first_.safeOpenObject(OdDb::kForWrite)->erase();
  pick({second_});
  EXPECT_TRUE(!isHighlighted(first_) && isHighlighted(second_)); // the first may be restored
  EXPECT_EQ(document_->refreshCount(), 2U);
  mvsi::RxSelectSet implied;
  mvsi::MvsiApDocument* other = documents_.open(OdDbDatabase::create());
  EXPECT_EQ(implied.impliedSelect(), RTERROR);
  documents_.close(other);
  EXPECT_EQ(implied.impliedSelect(), 0);
  second_.safeOpenObject(OdDb::kForWrite)->erase();
  EXPECT_EQ(implied.impliedSelect(), RTERROR);
}

TEST_F(Selection, LockedLayersAreSeenAndSet) {
  const OdDbObjectId layer = addLayer(*database_, L"Walls");
  forWrite<OdDbEntity>(second_)->setLayer(layer);
  EXPECT_EQ(LayerTools::getEntityLayerId(second_), layer);
  EXPECT_FALSE(qzutads::isObjLocked(second_, true));
  EXPECT_TRUE(LayerTools::lockOrUnlockLayer(layer, true));
  EXPECT_TRUE(qzutads::isObjLocked(second_, true));
  EXPECT_FALSE(qzutads::isObjLocked(second_, false));
  EXPECT_FALSE(qzutads::isObjLocked(first_, true));
  for (const OdDbObjectId& none : {OdDbObjectId(), layer, database_->getBlockTableId()})
    EXPECT_FALSE(qzutads::isObjLocked(none, true));
  EXPECT_TRUE(LayerTools::getEntityLayerId(layer).isNull());
  EXPECT_FALSE(LayerTools::lockOrUnlockLayer(second_, true));
  EXPECT_TRUE(LayerTools::lockOrUnlockLayer(layer, false));
  EXPECT_FALSE(LayerTools::isLayerLocked(layer));
}

TEST_F(Selection, IsSortedIntoDrawOrderBlockByBlock) {
  const OdDbObjectId third = addText(*database_, L"3"), layer = database_->getLayerZeroId();
  const OdDbObjectId layout = addText(*database_, L"sheet", database_->getPaperSpaceId());
  OdDbObjectIdArray ids{layer, third, layout, second_, first_, OdDbObjectId()};
  qzutads::sortAarryByDrawOrder(ids);
  EXPECT_EQ(ids, (OdDbObjectIdArray{first_, second_, third, layout, layer, OdDbObjectId()}));
  ids.clear();
  qzutads::sortAarryByDrawOrder(ids);
  EXPECT_TRUE(ids.isEmpty());
}

TEST_F(Selection, DimensionAssociationsAreInTheExtensionDictionary) {
  OdDbObjectId association = first_;
  EXPECT_EQ(mvsi::mvdbGetDimAssocId(OdDbObjectId(), association), RTERROR);
  EXPECT_EQ(mvsi::mvdbGetDimAssocId(first_, association), RTERROR);
  EXPECT_TRUE(association.isNull());
  const auto dictionary = forWrite<OdDbDictionary>(forWrite<OdDbObject>(first_)->createExtensionDictionary());
  dictionary->setAt(L"ACAD_DIMASSOC", OdDbDictionary::createObject()); // of a damaged file
  EXPECT_EQ(mvsi::mvdbGetDimAssocId(first_, association), RTERROR);
  EXPECT_TRUE(association.isNull());
  dictionary->remove(L"ACAD_DIMASSOC");
  const OdDbObjectId put = dictionary->setAt(L"ACAD_DIMASSOC", OdDbDimAssoc::createObject());
  EXPECT_EQ(mvsi::mvdbGetDimAssocId(first_, association), 0);
  EXPECT_EQ(association, put);
}

TEST_F(OpenDrawing, ShowsTheSpaceThatItsTabNames) {
  EXPECT_EQ(qzutads::currentSpaceId(), database_->getModelSpaceId());
  EXPECT_EQ(mvsi::setVar(L"TILEMODE", static_cast<short>(0), true), RTNORM);
  EXPECT_EQ(qzutads::currentSpaceId(), database_->getPaperSpaceId());
  const auto door = forWrite<OdDbBlockTableRecord>(addBlock(*database_, L"Door"));
  document_->setBlockEditorName(L"DOOR"); // or what is in the block editor
  EXPECT_EQ(qzutads::currentSpaceId(), door->objectId());
  EXPECT_EQ(document_->blockEditorName(), L"Door");
  documents_.open(OdDbDatabase::create());
  EXPECT_EQ(qzutads::currentSpaceId(), mvsi::mvsidbWorkingDatabase()->getModelSpaceId());
  documents_.setCurrent(document_);
  database_->startUndoRecord();
  door->setName(L"Gate");
  EXPECT_EQ(document_->blockEditorName(), L"Gate");
  door->erase();
  EXPECT_EQ(document_->blockEditorName(), L"");
  EXPECT_EQ(qzutads::currentSpaceId(), database_->getPaperSpaceId());
  database_->undo();
  EXPECT_EQ(document_->blockEditorName(), L"Door");
  document_->setBlockEditorName(L"");
  EXPECT_EQ(qzutads::currentSpaceId(), database_->getPaperSpaceId());
  mvsi::mvsidbSetWorkingDatabase(nullptr);
  EXPECT_TRUE(qzutads::currentSpaceId().isNull());
}

TEST(MessageBox, AnswersByNumberLetterOrText) {
  const std::vector<OdString> labels = {L"选择对象", L"否(&N)", L"&Yes"};
  const std::pair<const wchar_t*, int> cases[] = {
      {L"1", 0}, {L"选择对象", 0}, {L"n", 1},  {L"否", 1},     {L"2", 1}, {L"yes", 2},
      {L"Y", 2}, {L"0", -1},       {L"4", -1}, {L"否(N)", -1}, {L"", -1},
  };
  for (const auto& [answer, button] : cases)
    EXPECT_EQ(morvane::buttonOf(labels, answer), button) << answer;
}

TEST(MessageBox, ReturnsTheButtonOrNothingWhenClosed) {
  const MvJsonPtr buttons = ElementValue::createObject();
  buttons->SetDataS("btnText/0", "是");
  buttons->SetDataS("btnText/1", "否");
  const auto show = [&] { return mvsi::mvuiMessageBoxEx(L"Caption", L"100%s", buttons, 6, 1, 0); };
  const auto ask = [&] { return show()->GetDataI("ControlBtn", 9); };
  EXPECT_TRUE(show().isNull()); // no host
  ScriptedHost host({L"maybe", L"2", L"", L"\x1b"});
  EXPECT_EQ(ask(), 1);
  EXPECT_EQ(host.takeOutput().find(L"\n[Caption]\n100%s\n  1. 是\n  2. 否\n"), 0);
  for (const char* answer : {"empty", "a cancel", "the end"})
    EXPECT_EQ(ask(), 9) << answer;
  EXPECT_EQ(mvsi::mvuiMessageBox(L"text", L"caption", 64), RTNORM);
}

TEST(MessageBox, InAScriptAWrongAnswerClosesItAndNothingIsPromptedWithoutUser) {
  ScriptedHost host(std::vector<OdString>{});
  host.host().input().pushSource(
      std::make_shared<morvane::ListSource>(std::vector<OdString>{L"maybe", L"2", L"1"}, true));
  morvane::MessageBoxes& boxes = host.host().messageBoxes();
  std::vector<int> pressed;
  boxes.setWatch([&](const morvane::MessageBox&, int button) { pressed.push_back(button); });
  const morvane::MessageBox question{L"Caption", L"A\x1b[31m\nB", {L"是", L"否"}};
  boxes.show(question);
  boxes.show(question);
  boxes.setInteractive(false);
  host.takeOutput();
  boxes.show(question);
  boxes.show({L"Notice", L"text", {L"关闭(&C)"}});
  EXPECT_EQ(pressed, (std::vector<int>{-1, 1, -1, 0}));
  EXPECT_EQ(host.takeOutput(), L"\n[Caption]\nA\\u001B[31m\nB\n  1. 是\n  2. 否\n\n[Notice]\ntext\n  1. 关闭(C)\n");
}

} // namespace
