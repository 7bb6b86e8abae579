// Drawing files that become blocks: what the block takes over from its file, when nothing may be inserted and what is
// said then, that a refusal leaves the drawing as it was, and which external references are listed.
#include "blockcommon/insertion.h"
#include "tests/support/open_document.h"
#include "tests/support/oracles.h"

#include "drawing/file.h"

#include <fstream>

namespace {

using namespace insertCommon;
using namespace tests;

class Insertion : public HostAndFolder {
protected:
  Insertion() {
    std::ofstream(root_ / "broken.dxf") << "no drawing";
    std::ofstream(root_ / "broken.dwg") << "AC1015 no drawing";
    save(*source_, "part.dxf");
  }
  void save(const OdDbDatabase& database, const std::string& name) {
    ASSERT_EQ(drawing::writeDrawing(database, (root_ / name).string()).result, eOk);
  }
  OdString insert(const OdString& path, const OdString& name, bool wanted) {
    id_ = kUntouched;
    EXPECT_EQ(insertBlockRecord(path, name, id_), wanted) << path.toUtf8();
    return host_.takeOutput();
  }

  const OdDbObjectId kUntouched{1, 2};
  OdDbDatabasePtr database_ = OdDbDatabase::create(), source_ = OdDbDatabase::create();
  mvsi::MvsiApDocument* document_ = host_.host().documents().open(database_);
  const OdDbObjectId text_ = addText(*source_, L"part"), nested_ = addBlock(*source_, L"Door");
  OdDbObjectId id_;
};

TEST_F(Insertion, TakesUnitsAndExplodabilityFromTheFile) {
  const OdDb::UnitsValue units[] = {OdDb::kUnitsUndefined, OdDb::kUnitsMillimeters, OdDb::kUnitsInches,
                                    OdDb::kUnitsMeters};
  for (const OdDb::UnitsValue ofFile : units) {
    for (const OdDb::UnitsValue ofDrawing : units) {
      const bool explodable = (ofFile + ofDrawing) % 2 == 0;
      source_->setINSUNITS(ofFile);
      source_->setINSBASE({1, 2, 3});
      forWrite<OdDbBlockTableRecord>(source_->getModelSpaceId())->setExplodable(explodable);
      save(*source_, "part.dxf");
      database_->setINSUNITS(ofDrawing);
      OdDbObjectId first = id_;
      expectUndoRestores(*database_, [&] { EXPECT_EQ(insert(L"P:\\part.dxf", L"part", true), L""); });
      EXPECT_TRUE(first.isNull() || first == id_); // refilled from the second time on
      const OdDbBlockTableRecordPtr block = forRead<OdDbBlockTableRecord>(id_);
      EXPECT_EQ(block->blockInsertUnits(), ofFile);
      EXPECT_EQ(block->explodable(), explodable);
      EXPECT_EQ(block->origin(), OdGePoint3d(1, 2, 3));
      EXPECT_EQ(database_->getINSUNITS(), ofDrawing);
    }
  }
  expectSound(*database_);
  expectRoundTrip(*database_);
}

TEST_F(Insertion, IsRefusedWithoutAWordWhenThereIsNothingToRead) {
  save(*source_, "PART2.DXF");
  std::ofstream(root_ / "part.txt") << drawing::writeDrawingToMemory(*source_);
  host_.host().searchPath().setFolders({root_.string()}); // where nothing is looked for
  for (const wchar_t* path : {L"P:\\PART2.DXF", L"P:/part.dxf"})
    EXPECT_EQ(insert(path, L"p", true), L"") << path;
  const std::string before = drawing::canonicalDump(*database_);
  for (const wchar_t* path : {L"P:\\none.dxf", L"P:\\part", L"P:\\part.txt", L"P:\\broken.dxf", L"P:\\broken.dwg",
                              L"P:\\broken.dws", L"part.dxf", L""}) {
    EXPECT_EQ(insert(path, L"p", false), L"") << path;
    EXPECT_EQ(id_, kUntouched);
    EXPECT_EQ(firstDifference(before, drawing::canonicalDump(*database_)), "") << path;
  }
  insert(L"P:\\part.dxf", L"", false);
  EXPECT_TRUE(id_.isNull()); // what the drawing answered
  host_.failOperation("currentDocument", 2);
  insert(L"P:\\part.dxf", L"q", false);
  EXPECT_EQ(id_, kUntouched);
  host_.host().services().remove(kDocMgr);
  insert(L"P:\\part.dxf", L"q", false);
  EXPECT_TRUE(database_->symbol(OdDb::kBlockTable, L"q").isNull());
}

TEST_F(Insertion, OfTheBlockThatIsBeingEditedIsRefusedWithItsTwoLines) {
  addBlock(*database_, L"Door");
  addBlock(*database_, L"Window");
  save(*source_, "part.dxf");
  const std::pair<const wchar_t*, const wchar_t*> rows[] = {
      {L"DOOR", L"\n忽略块 Door 的重复定义。\n块 Door 参照本身"}, {L"Window", L""}, {L"", L""}};
  for (const auto& [edited, said] : rows) {
    document_->setBlockEditorName(edited);
    const std::string before = drawing::canonicalDump(*database_);
    const bool isRefused = said[0] != 0;
    EXPECT_EQ(insert(L"P:\\part.dxf", L"part", !isRefused), said);
    EXPECT_EQ(isRefused, before == drawing::canonicalDump(*database_));
    EXPECT_EQ(id_ == kUntouched, isRefused);
  }
  EXPECT_FALSE(checkSameBlock(nullptr, L"Door"));
  EXPECT_FALSE(checkSameBlock(source_, L""));
  CancelInsertTips(L"100%s");
  EXPECT_EQ(host_.takeOutput(), L"\n忽略块 100%s 的重复定义。\n块 100%s 参照本身");
}

TEST_F(Insertion, ListsTheExternalReferencesThatAreThere) {
  const std::pair<const wchar_t*, const wchar_t*> xrefs[] = {{L"Site", L"P:\\part.dxf"},
                                                             {L"Lost", L"P:\\none.dxf"},
                                                             {L"100%d", L"P:\\broken.dwg"},
                                                             {L"Gone", L"P:\\part.dxf"}};
  for (const auto& [name, path] : xrefs)
    forWrite<OdDbBlockTableRecord>(addBlock(*database_, name))->setXref(path);
  addBlock(*database_, L"Plain");
  forWrite<OdDbBlockTableRecord>(database_->symbol(OdDb::kBlockTable, L"Gone"))->erase();
  const OdString lines = L"\n融入 外部参照 Site: P:\\part.dxf\n\n融入 外部参照 100%d: P:\\broken.dwg\n";
  EXPECT_EQ(insert(L"P:\\part.dxf", L"part", true), lines);
  const std::string before = drawing::canonicalDump(*database_);
  checkExternalReference(L"P:\\part.dxf");
  EXPECT_EQ(host_.takeOutput(), lines);
  EXPECT_EQ(drawing::canonicalDump(*database_), before);
  insertExternalReference(nullptr, L"x", L"y");
  host_.host().services().remove(kDocMgr);
  checkExternalReference(L"P:\\part.dxf");
  EXPECT_EQ(host_.takeOutput(), L"");
}

TEST_F(Insertion, ReadsThePropertiesOfDefinitions) {
  const OdDbObjectId plain = addBlock(*database_, L"Plain"), uniform = addBlock(*database_, L"Uniform");
  const OdDbObjectId site = addBlock(*database_, L"Site"), tree = addBlock(*database_, L"Site|Tree");
  const OdDbObjectId gone = addBlock(*database_, L"A|B");
  forWrite<OdDbBlockTableRecord>(uniform)->setBlockScaling(OdDbBlockTableRecord::kUniform);
  forWrite<OdDbBlockTableRecord>(uniform)->setExplodable(false);
  forWrite<OdDbBlockTableRecord>(site)->setXref(L"site.dxf");
  forWrite<OdDbBlockTableRecord>(gone)->erase();
  const OdDbObjectId dead = addBlock(*OdDbDatabase::create(), L"C|D");
  const struct {
    OdDbObjectId id;
    bool isXref, isUniform, canExplode;
  } rows[] = {
      {plain, false, false, true}, {uniform, false, true, false}, {site, true, false, true},
      {tree, true, false, true},   {gone, false, false, false},   {dead, false, false, false},
      {{}, false, false, false},   {nested_, false, false, true}, // of another open drawing
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    EXPECT_EQ(isXrefBlock(row.id), row.isXref);
    EXPECT_EQ(isBlockUniformScaled(row.id), row.isUniform);
    EXPECT_EQ(isBlockCanExplode(row.id), row.canExplode);
  }
  const OdDbObjectId layer = database_->getLayerZeroId();
  for (const auto ask : {&isXrefBlock, &isBlockUniformScaled, &isBlockCanExplode})
    EXPECT_THROW(ask(layer), OdError_NotThatKindOfClass);
  EXPECT_THROW(setExplodableInfo(source_, layer), OdError_NotThatKindOfClass);
  setExplodableInfo(nullptr, uniform);
  setExplodableInfo(source_, gone);
  EXPECT_FALSE(isBlockCanExplode(uniform));
  setExplodableInfo(source_, uniform);
  EXPECT_TRUE(isBlockCanExplode(uniform));
}

} // namespace
