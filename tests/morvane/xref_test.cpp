// External references of opened documents: in which places their files are looked for, and that real files are known
// by what they are, not by their paths.
#include "morvane/host_api.h"
#include "morvane/testing.h"
#include "tests/support/scratch_folder.h"

#include "DbBlockTable.h"
#include "DbDxf.h"
#include "tests/support/drawings.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <stdlib.h>

namespace {

namespace fs = std::filesystem;
using drawing::XrefStatus;
using tests::forRead;
using tests::forWrite;

class ExternalReferences : public testing::Test {
protected:
  const tests::ScratchFolder folder_;
  const fs::path root_ = folder_.path();

  ExternalReferences() {
    host_.host().searchPath().setFolders({(root_ / "library").string()});
    host_.host().paths().setDrive(L'P', root_.string());
    put("site/plan.dxf");
    put("site/details/door.dxf");
    put("library/symbol.dxf");
    put("elsewhere/far.dxf");
  }

  void put(const std::string& path, const OdString& refersTo = {}, int xedit = 1) {
    const OdDbDatabasePtr database = OdDbDatabase::create();
    database->setHeaderInt("XEDIT", 290, xedit);
    if (!refersTo.isEmpty())
      tests::addReference(*database, addXref(*database, refersTo));
    fs::create_directories((root_ / path).parent_path());
    ASSERT_EQ(drawing::writeDrawing(*database, (root_ / path).string()).result, eOk);
  }
  static OdDbObjectId addXref(OdDbDatabase& database, const OdString& path) {
    const OdDbObjectId block = tests::addBlock(database, L"xref");
    forWrite<OdDbBlockTableRecord>(block)->setXref(path);
    return block;
  }
  // A document of the site folder with that reference; the path of what was loaded, below the root.
  std::string loadedFor(const OdString& saved) {
    const OdDbDatabasePtr database = OdDbDatabase::create();
    database->facts().path = (root_ / "site/main.dxf").string();
    const OdDbObjectId block = addXref(*database, saved);
    host_.host().documents().open(database, L"P:\\site\\main.dxf");
    const OdDbDatabase* external = forRead<OdDbBlockTableRecord>(block)->xrefDatabase();
    return external == nullptr ? "" : fs::path(external->facts().path).lexically_relative(root_).string();
  }

  morvane::ScriptedHost host_;
};

TEST_F(ExternalReferences, AreLookedForFromTheFolderOfTheirDrawing) {
  const struct {
    const wchar_t* saved;
    const char* file;
  } rows[] = {
      {L"plan.dxf", "site/plan.dxf"},
      {L".\\plan.dxf", "site/plan.dxf"},
      {L"details\\door.dxf", "site/details/door.dxf"},
      {L"details/door.dxf", "site/details/door.dxf"},
      {L"..\\elsewhere\\far.dxf", "elsewhere/far.dxf"},
      {L"symbol.dxf", "library/symbol.dxf"},
      {L"P:\\elsewhere\\far.dxf", "elsewhere/far.dxf"},
      {L"p:elsewhere\\far.dxf", "elsewhere/far.dxf"},
      {L"C:\\Users\\someone\\plan.dxf", "site/plan.dxf"}, // from another machine
      {L"\\\\server\\share\\symbol.dxf", "library/symbol.dxf"},
      {L"PLAN.DXF", "site/plan.dxf"}, // from a system that tells no case apart
      {L"Details\\Door.dxf", "site/details/door.dxf"},
      {L"C:\\Elsewhere\\Plan.Dxf", "site/plan.dxf"},
      {L"gone.dxf", ""},
      {L"details", ""}, // a folder
      {L"", ""},
  };
  for (const auto& row : rows)
    EXPECT_EQ(loadedFor(row.saved), row.file) << OdString(row.saved).toUtf8();
}

TEST_F(ExternalReferences, OfADrawingElsewhereStartAtItsOwnFolder) {
  put("elsewhere/door.dxf");
  put("elsewhere/nest.dxf", L"door.dxf");
  put("site/door.dxf");
  const OdDbDatabasePtr database = OdDbDatabase::create();
  database->facts().path = (root_ / "site/main.dxf").string();
  const OdDbObjectId block = addXref(*database, L"..\\elsewhere\\nest.dxf");
  host_.host().documents().open(database, L"P:\\site\\main.dxf");
  OdDbDatabase* nest = forRead<OdDbBlockTableRecord>(block)->xrefDatabase();
  ASSERT_NE(nest, nullptr);
  const OdDbDatabase* door = forRead<OdDbBlockTableRecord>(nest->symbol(OdDb::kBlockTable, L"xref"))->xrefDatabase();
  ASSERT_NE(door, nullptr);
  EXPECT_TRUE(door->facts().path.ends_with("elsewhere/door.dxf")) << door->facts().path;
}

TEST_F(ExternalReferences, OneFileByTwoPathsIsOneDrawingAndACycleIsSeenThroughALink) {
  fs::create_symlink(root_ / "site/plan.dxf", root_ / "site/link.dxf");
  put("site/main.dxf", L"again.dxf");
  fs::create_symlink(root_ / "site/main.dxf", root_ / "site/again.dxf");
  const OdDbDatabasePtr database = drawing::readDrawing((root_ / "site/main.dxf").string()).database;
  std::vector<OdDbDatabase*> loaded;
  std::vector<OdDbObjectId> blocks;
  for (const wchar_t* path : {L"plan.dxf", L"..\\site\\plan.dxf", L"link.dxf"}) {
    const OdDbObjectId block = tests::addBlock(*database, path);
    forWrite<OdDbBlockTableRecord>(block)->setXref(path);
    blocks.push_back(block);
  }
  const mvsi::MvsiApDocument* document = host_.host().documents().open(database, L"P:\\site\\main.dxf");
  for (const OdDbObjectId& block : blocks)
    loaded.push_back(forRead<OdDbBlockTableRecord>(block)->xrefDatabase());
  EXPECT_NE(loaded[0], nullptr);
  EXPECT_EQ(loaded[0], loaded[1]);
  EXPECT_EQ(loaded[0], loaded[2]);
  ASSERT_EQ(document->xrefReport().issues().size(), 1u);
  EXPECT_EQ(document->xrefReport().issues()[0].code, "xref.cycle");
}

TEST_F(ExternalReferences, OfAnInsertedDrawingGoOnNamingTheirFiles) {
  put("library/kit/bolt.dxf");
  put("library/kit/part.dxf", L"bolt.dxf");
  const OdDbDatabasePtr source = drawing::readDrawing((root_ / "library/kit/part.dxf").string()).database;
  for (const bool hasFile : {true, false}) {
    const OdDbDatabasePtr database = OdDbDatabase::create();
    database->facts().path = hasFile ? (root_ / "site/main.dxf").string() : std::string();
    ASSERT_FALSE(database->insert(L"part", source.get(), true).isNull());
    host_.host().documents().open(database);
    const auto xref = forRead<OdDbBlockTableRecord>(database->symbol(OdDb::kBlockTable, L"xref"));
    EXPECT_EQ(xref->xrefStatus(), XrefStatus::Loaded);
    EXPECT_TRUE(!hasFile || xref->pathName() == L"..\\library\\kit\\bolt.dxf") << xref->pathName().toUtf8();
  }
  EXPECT_EQ(forRead<OdDbBlockTableRecord>(source->symbol(OdDb::kBlockTable, L"xref"))->pathName(), L"bolt.dxf");
}

TEST_F(ExternalReferences, HaveAHeaderOfTheirOwn) {
  put("site/closed.dxf", {}, 0);
  const OdDbDatabasePtr database = OdDbDatabase::create();
  database->facts().path = (root_ / "site/main.dxf").string();
  const OdDbObjectId block = addXref(*database, L"closed.dxf");
  host_.host().documents().open(database, L"P:\\site\\main.dxf");
  ASSERT_NE(forRead<OdDbBlockTableRecord>(block)->xrefDatabase(), nullptr);
  EXPECT_EQ(forRead<OdDbBlockTableRecord>(block)->xrefDatabase()->headerInt("XEDIT", 1), 0);
  EXPECT_EQ(database->headerInt("XEDIT", 1), 1);
}

TEST_F(ExternalReferences, AreFoundByTheServicesOfTheHost) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  database->facts().path = (root_ / "elsewhere/main.dxf").string();
  host_.host().documents().open(OdDbDatabase::create(), L"P:\\site\\main.dxf");
  const MvdbSystemServices& services = mvdbSystemServices();
  EXPECT_EQ(services.findFile(L"plan.dxf"), OdString(L"P:\\site\\plan.dxf"));
  EXPECT_EQ(services.findFile(L"far.dxf"), OdString());
  EXPECT_EQ(services.findFile(L"far.dxf", database.get()), OdString(L"P:\\elsewhere\\far.dxf"));
  EXPECT_EQ(services.findFile(L""), OdString());
  host_.host().calls().setAdmit([](const char*) { return false; });
  EXPECT_EQ(services.findFile(L"plan.dxf"), OdString());
}

} // namespace
