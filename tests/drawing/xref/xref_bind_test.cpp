// Binding external references: what they showed is shown by ordinary blocks, every name contains its origin, what
// the drawing held of them keeps its state, and one that cannot be bound whole is not bound at all.
#include "drawing/xref_bind.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

#include <functional>
#include <map>
#include <set>

using drawing::XrefStatus;

namespace tests {
namespace {

using Names = std::set<std::string>;

OdDbObjectId addXref(OdDbDatabase& database, const OdString& name, bool overlay = false) {
  const OdDbObjectId block = addBlock(database, name);
  forWrite<OdDbBlockTableRecord>(block)->setXref(name + L".dxf", overlay);
  addReference(database, block);
  return block;
}

void addTextOn(OdDbDatabase& database, const OdString& layer, OdDbObjectId block = {}) {
  if (database.symbol(OdDb::kLayerTable, layer).isNull())
    addLayer(database, layer);
  forWrite<OdDbEntity>(addText(database, L"on " + layer, block))->setLayer(layer);
}

Names namesIn(const OdDbDatabase& database, OdDb::SymbolTableKind kind) {
  Names names;
  for (const OdString& name : recordNames(database, kind))
    names.insert(name.toUtf8());
  return names;
}

// A drawing with the external reference SITE, and the drawings behind it by their files.
class BindXref : public testing::Test {
protected:
  BindXref() {
    OdDbDatabase& site = make("SITE");
    addTextOn(site, L"WALLS");
    addTextOn(site, L"0");
    addTextOn(site, L"Defpoints");
    const OdDbObjectId door = addBlock(site, L"DOOR");
    addTextOn(site, L"GLASS", door);
    addReference(site, door);
    site.setINSBASE({1, 2, 3});
    site.setINSUNITS(OdDb::kUnitsMeters);
    site_ = addXref(*host_, L"SITE");
  }
  OdDbDatabase& make(const std::string& name) {
    files_[name + ".dxf"] = OdDbDatabase::create();
    return *files_[name + ".dxf"];
  }
  void load() {
    drawing::XrefLoader loader;
    loader.find = [this](const OdString& saved, const OdDbDatabase&) {
      return files_.count(saved.toUtf8()) != 0 ? saved.toUtf8() : std::string();
    };
    loader.open = [this](const std::string& path) {
      drawing::ReadResult read;
      read.database = files_[path];
      read.database->fileInfo().path = path;
      return read;
    };
    host_->fileInfo().path = "host.dxf";
    drawing::loadXrefs(*host_, loader);
  }
  std::string bind() {
    const std::string before = drawing::canonicalDump(*files_["SITE.dxf"]);
    load();
    drawing::BoundXref answer;
    expectUndoRestores(*host_, [&] { answer = drawing::bindXref(*host_, site_); });
    EXPECT_TRUE(answer.isDone);
    EXPECT_EQ(firstDifference(before, drawing::canonicalDump(*files_["SITE.dxf"])), "");
    expectSound(*host_);
    expectRoundTrip(*host_);
    std::string omitted;
    for (const OdString& name : answer.omittedOverlays)
      omitted += name.toUtf8();
    return omitted;
  }

  OdDbDatabasePtr host_ = OdDbDatabase::create();
  std::map<std::string, OdDbDatabasePtr> files_;
  OdDbObjectId site_;
};

TEST_F(BindXref, NamesClonedRecordsAfterTheReference) {
  addTextOn(*host_, L"WALLS");
  addLayer(*host_, L"site$0$glass"); // taken
  addBlock(*host_, L"DOOR");
  bind();
  const OdDbBlockTableRecordPtr block = forRead<OdDbBlockTableRecord>(site_);
  EXPECT_FALSE(block->isFromExternalReference());
  EXPECT_EQ(block->pathName(), L"");
  EXPECT_EQ(block->origin(), OdGePoint3d(1, 2, 3));
  EXPECT_EQ(block->blockInsertUnits(), OdDb::kUnitsMeters);
  EXPECT_EQ(block->getBlockReferenceIds().size(), 1u);
  EXPECT_EQ(namesIn(*host_, OdDb::kLayerTable),
            (Names{"0", "WALLS", "Defpoints", "site$0$glass", "SITE$0$WALLS", "SITE$1$GLASS"}));
  EXPECT_EQ(namesIn(*host_, OdDb::kBlockTable), (Names{"*Model_Space", "*Paper_Space", "SITE", "DOOR", "SITE$0$DOOR"}));
  Names layers;
  for (auto it = block->newIterator(); !it->done(); it->step())
    layers.insert(it->entity()->layer().toUtf8());
  EXPECT_EQ(layers, (Names{"0", "Defpoints", "SITE$0$WALLS"}));
}

TEST_F(BindXref, KeepsTheStateOfDependentRecords) {
  const OdDbObjectId walls = addLayer(*host_, L"SITE|WALLS"), old = addLayer(*host_, L"Site|Old");
  forWrite<OdDbLayerTableRecord>(walls)->setIsFrozen(true);
  forWrite<OdDbLayerTableRecord>(walls)->setFlag(OdDbSymbolTableRecord::kDependent, true);
  const OdDbObjectId door = addBlock(*host_, L"SITE|DOOR"), reference = addReference(*host_, door);
  addBlock(*host_, L"SITE|UNUSED");
  bind();
  EXPECT_EQ(host_->symbol(OdDb::kLayerTable, L"SITE$0$WALLS"), walls);
  EXPECT_TRUE(forRead<OdDbLayerTableRecord>(walls)->isFrozen());
  EXPECT_FALSE(forRead<OdDbLayerTableRecord>(walls)->isDependent());
  EXPECT_EQ(forRead<OdDbLayerTableRecord>(old)->getName(), L"SITE$0$Old");
  EXPECT_EQ(OdDbEntityPtr(forRead<OdDbBlockTableRecord>(site_)->newIterator()->entity())->layerId(), walls);
  EXPECT_EQ(namesIn(*host_, OdDb::kBlockTable), (Names{"*Model_Space", "*Paper_Space", "SITE", "SITE$0$DOOR"}));
  EXPECT_EQ(forRead<OdDbBlockReference>(reference)->blockTableRecord(),
            host_->symbol(OdDb::kBlockTable, L"SITE$0$DOOR"));
}

TEST_F(BindXref, IncludesNestedOnesAndOmitsOverlays) {
  OdDbDatabase& nest = make("NEST");
  addTextOn(nest, L"ROOF");
  make("OVER");
  OdDbDatabase& site = *files_["SITE.dxf"];
  const OdDbObjectId tower = addBlock(site, L"TOWER");
  addReference(site, addXref(site, L"NEST"), tower);
  addReference(site, tower);
  addXref(site, L"OVER", true);
  EXPECT_EQ(bind(), "OVER");
  EXPECT_EQ(namesIn(*host_, OdDb::kBlockTable),
            (Names{"*Model_Space", "*Paper_Space", "SITE", "SITE$0$DOOR", "SITE$0$TOWER", "SITE$0$NEST"}));
  const OdDbBlockTableRecordPtr nested = host_->symbol(OdDb::kBlockTable, L"SITE$0$NEST").safeOpenObject();
  EXPECT_FALSE(nested->isFromExternalReference());
  EXPECT_EQ(nested->getBlockReferenceIds().size(), 2u); // in the site and in the tower
  EXPECT_EQ(nested->newIterator()->entity()->layer(), L"SITE$0$NEST$0$ROOF");
}

TEST_F(BindXref, IsRefusedUnlessAllOfItIsThere) {
  const struct {
    const char* what;
    std::function<void()> spoil;
    const wchar_t* obstacle;
    XrefStatus status;
  } rows[] = {
      {"nested file missing", [this] { addXref(*files_["SITE.dxf"], L"GONE"); }, L"GONE", XrefStatus::kNotFound},
      {"a circle", [this] { addXref(make("GONE"), L"SITE"); }, L"SITE", XrefStatus::kCycle},
      {"unloaded", [this] { forWrite<OdDbBlockTableRecord>(site_)->setIsUnloaded(true); }, L"SITE",
       XrefStatus::kUnloaded},
      {"an ordinary block", [this] { forWrite<OdDbBlockTableRecord>(site_)->setXref({}); }, L"",
       XrefStatus::kNotAnXref},
  };
  for (const auto& row : rows) {
    row.spoil();
    load();
    const std::string before = drawing::canonicalDump(*host_);
    const drawing::BoundXref answer = drawing::bindXref(*host_, site_);
    EXPECT_FALSE(answer.isDone) << row.what;
    EXPECT_EQ(answer.obstacle, row.obstacle) << row.what;
    EXPECT_EQ(answer.status, row.status) << row.what;
    EXPECT_EQ(drawing::canonicalDump(*host_), before) << row.what;
  }
}

} // namespace
} // namespace tests
