// What is asked about documents, definitions and layers: each answer without a document, without a document manager,
// for names and ids that lead nowhere, and that a query follows what changed since it was asked last.
#include "blockcommon/document_queries.h"
#include "morvane/result_codes.h"
#include "tests/support/open_document.h"

namespace {

using namespace commonFun;
using namespace tests;

class DocumentQueries : public testing::Test {
protected:
  OdDbObjectId addDefinition(OdDbObjectId block, bool invisible, bool constant = false) {
    const auto definition = addTo<OdDbAttributeDefinition>(block);
    definition->setInvisible(invisible);
    definition->setConstant(constant);
    return definition->objectId();
  }

  morvane::FaultyHost host_;
  morvane::Documents& documents_ = host_.host().documents();
  OdDbDatabasePtr database_ = OdDbDatabase::create();
  mvsi::MvsiApDocument* other_ = documents_.open(OdDbDatabase::create(), L"C:\\plans\\Other.dwg");
  mvsi::MvsiApDocument* document_ = documents_.open(database_, L"C:\\plans\\a.dwg");
  const OdDbObjectId door_ = addBlock(*database_, L"Door");
};

TEST_F(DocumentQueries, IdentifyTheCurrentDocumentByItsSpelledPath) {
  const struct {
    const wchar_t* path;
    bool isOther, isCurrent, isOpenAtAll;
  } rows[] = {
      {L"C:\\plans\\a.dwg", false, true, true}, {L"C:\\plans\\OTHER.dwg", true, false, true},
      {L"c:\\PLANS\\A.DWG", false, true, true}, {L"C:\\plans\\.\\a.dwg", false, false, false},
      {L"a.dwg", false, false, false},          {L"", false, false, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.path);
    EXPECT_EQ(isDoc(row.path), row.isOther);
    EXPECT_EQ(iscurDoc(row.path), row.isCurrent);
    host_.failOperation("currentDocument"); // nothing is current
    EXPECT_EQ(isDoc(row.path), row.isOpenAtAll);
    host_.failOperation("currentDocument");
    EXPECT_FALSE(iscurDoc(row.path));
  }
  host_.host().services().remove(kDocMgr);
  EXPECT_FALSE(isDoc(L"C:\\plans\\Other.dwg"));
  EXPECT_FALSE(iscurDoc(L"C:\\plans\\a.dwg"));
}

TEST_F(DocumentQueries, NamesOfBlocksExcludeAnonymousOnes) {
  const OdDbObjectId site = addBlock(*database_, L"Site"), gone = addBlock(*database_, L"Gone");
  forWrite<OdDbBlockTableRecord>(site)->setXref(L"site.dwg");
  forWrite<OdDbBlockTableRecord>(gone)->erase();
  addBlock(*database_, L"*U");
  addBlock(*database_, L"Site|Tree"); // a name of it stays
  OdArray<OdString> names{L"there before"};
  EXPECT_EQ(getCurDocBlockName(false, names), RTNORM);
  EXPECT_EQ(names, (OdArray<OdString>{L"there before", L"Door", L"Site|Tree"}));
  names.clear();
  EXPECT_EQ(getCurDocBlockName(true, names), RTNORM);
  EXPECT_EQ(names, (OdArray<OdString>{L"Door", L"Site", L"Site|Tree"}));
  const std::pair<const wchar_t*, bool> known[] = {
      {L"dOOR", true}, {L"Site", true}, {L"*Model_Space", true}, {L"Gone", false}, {L"", false}};
  for (const auto& [name, isThere] : known)
    EXPECT_EQ(isBlockNameInCurDb(name), isThere) << name;
  EXPECT_TRUE(isExternalReference(site));
  for (const OdDbObjectId& id : {door_, gone, OdDbObjectId()})
    EXPECT_FALSE(isExternalReference(id));
  documents_.setCurrent(other_);
  EXPECT_FALSE(isBlockNameInCurDb(L"Door"));
}

TEST_F(DocumentQueries, WithoutADocumentThereIsNothing) {
  host_.host().services().remove(kDocMgr);
  OdArray<OdString> names;
  OdString editor = L"as before";
  EXPECT_EQ(getCurDocBlockName(true, names), RTERROR);
  EXPECT_FALSE(isBlockNameInCurDb(L"Door"));
  EXPECT_TRUE(isBlockVisable(L"Door"));
  EXPECT_FALSE(insertCommon::isCurLayerLocked());
  insertCommon::getBeditBlockName(editor);
  EXPECT_EQ(editor, L"as before");
}

TEST_F(DocumentQueries, NameTheBlockOfAnId) {
  const OdDbObjectId reference = addReference(*database_, door_);
  const OdDbObjectId text = addText(*database_, L"x"), erased = addText(*database_, L"y");
  const OdDbObjectId lost = addReference(*database_, addBlock(*database_, L"Lost"));
  forWrite<OdDbEntity>(erased)->erase();
  forWrite<OdDbBlockTableRecord>(forRead<OdDbBlockReference>(lost)->blockTableRecord())->erase();
  const struct {
    OdDbObjectId id;
    int code;
    const wchar_t* name;
  } rows[] = {
      {reference, RTNORM, L"Door"}, {door_, RTNORM, L"Door"},
      {text, RTREJ, L"old"},        {database_->getLayerZeroId(), RTREJ, L"old"},
      {erased, RTERROR, L"old"},    {OdDbObjectId(), RTERROR, L"old"},
      {lost, RTERROR, L"old"},
  };
  for (const auto& row : rows) {
    OdDbObjectId id = row.id;
    OdString name = L"old";
    EXPECT_EQ(getBlockNameByID(id, name), row.code);
    EXPECT_EQ(name, row.name);
  }
}

TEST_F(DocumentQueries, CountReferencesAsTheyAreAddedAndErased) {
  const OdDbObjectId room = addBlock(*database_, L"Room");
  const OdDbObjectId inModule = addReference(*database_, door_, room), first = addReference(*database_, door_);
  addReference(*database_, room);
  EXPECT_EQ(getBlockReferenceCount(L"door"), 2); // direct ones, wherever they stand
  EXPECT_EQ(getBlockReferenceCount(door_), 2);
  forWrite<OdDbEntity>(first)->erase();
  EXPECT_EQ(getBlockReferenceCount(door_), 1);
  forWrite<OdDbBlockReference>(inModule)->setBlockTableRecord(addBlock(*database_, L"Gate"));
  EXPECT_EQ(getBlockReferenceCount(L"GATE"), 1);
  for (const wchar_t* name : {L"Door", L"", L"none"})
    EXPECT_EQ(getBlockReferenceCount(name), 0);
  EXPECT_EQ(getBlockReferenceCount(OdDbObjectId()), 0);
  EXPECT_THROW(getBlockReferenceCount(database_->getLayerZeroId()), OdError_NotThatKindOfClass);
  const OdDbDatabasePtr separate = OdDbDatabase::create();
  mvsi::mvsidbSetWorkingDatabase(separate.get());
  EXPECT_EQ(getBlockReferenceCount(L"Gate"), 0); // names are the working drawing's
}

TEST_F(DocumentQueries, LookThroughAttributeDefinitions) {
  const struct {
    const wchar_t* name;
    std::vector<std::string> definitions; // i invisible, c constant, x erased
    bool isVisible, canEdit;
  } rows[] = {
      {L"constant", {"c"}, true, false}, {L"one of each", {"i", ""}, true, true},
      {L"erased", {"ix"}, true, false},  {L"invisible", {"i", "ic"}, false, true},
      {L"plain", {}, true, false},       {L"invisible constant", {"ic"}, false, false},
  };
  for (const auto& row : rows) {
    const OdDbObjectId block = addBlock(*database_, row.name);
    addText(*database_, L"geometry", block);
    for (const std::string& letters : row.definitions) {
      const auto has = [&](char letter) { return letters.find(letter) != std::string::npos; };
      const OdDbObjectId id = addDefinition(block, has('i'), has('c'));
      if (has('x'))
        forWrite<OdDbEntity>(id)->erase();
    }
    EXPECT_EQ(isBlockVisable(row.name), row.isVisible) << row.name;
    EXPECT_EQ(isCanEditAttributeBlock(block), row.canEdit) << row.name;
  }
  EXPECT_TRUE(isBlockVisable(L"none"));
  EXPECT_FALSE(isCanEditAttributeBlock(OdDbObjectId()));
  EXPECT_THROW(isCanEditAttributeBlock(database_->getLayerZeroId()), OdError_NotThatKindOfClass);
}

TEST_F(DocumentQueries, FindAttributesThatNeedPrompts) {
  const OdDbObjectId plain = addBlock(*database_, L"Plain"), preset = addBlock(*database_, L"Preset");
  const OdDbObjectId constant = addDefinition(preset, false, true), presetTag = addDefinition(preset, false);
  forWrite<OdDbAttributeDefinition>(presetTag)->setPreset(true);
  const OdDbObjectId asking = addBlock(*database_, L"Asking"), tag = addDefinition(asking, true);
  const OdDbObjectId reference = addReference(*database_, asking), erased = addDefinition(plain, false);
  forWrite<OdDbEntity>(erased)->erase();
  const std::pair<OdDbObjectIdArray, bool> rows[] = {
      {{}, false},
      {{plain, preset, constant, presetTag, reference, erased, OdDbObjectId(), database_->getLayerZeroId()}, false},
      {{plain, tag}, true},
      {{reference, asking}, true},
  };
  for (const auto& [ids, hasSome] : rows)
    EXPECT_EQ(hasAttdef(ids), hasSome);
}

TEST_F(DocumentQueries, FollowTheLayerAndTheBlockEditorOfTheCurrentDocument) {
  const OdDbObjectId walls = addLayer(*database_, L"Walls");
  forWrite<OdDbLayerTableRecord>(walls)->setIsLocked(true);
  EXPECT_FALSE(insertCommon::isCurLayerLocked());
  database_->setCLAYER(walls);
  EXPECT_TRUE(insertCommon::isCurLayerLocked());
  document_->setBlockEditorName(L"Door");
  OdString name = L"old";
  insertCommon::getBeditBlockName(name);
  EXPECT_EQ(name, L"Door");
  OdDbDatabasePtr current;
  OdDbSymbolTableIteratorPtr iterator = forRead<OdDbSymbolTable>(database_->getLayerTableId())->newIterator();
  const OdDbSymbolTableIterator* before = iterator.get();
  checkPointerData(nullptr, nullptr, current, iterator);
  EXPECT_EQ(current.get(), database_.get());
  EXPECT_EQ(iterator.get(), before);
  documents_.setCurrent(other_);
  EXPECT_FALSE(insertCommon::isCurLayerLocked());
  insertCommon::getBeditBlockName(name);
  EXPECT_EQ(name, L""); // nothing is edited there
}

} // namespace
