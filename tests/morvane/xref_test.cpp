// External references of opened documents: in which places their files are looked for, and that real files are known
// by what they are, not by their paths.
#include "morvane/host_api.h"
#include "tests/support/open_document.h"

#include "drawing/file.h"

namespace {

namespace fs = std::filesystem;
using drawing::XrefStatus;
using tests::forRead;
using tests::forWrite;

class ExternalReferences : public tests::HostAndFolder {
protected:
  ExternalReferences() {
    host_.host().searchPath().setFolders({(root_ / "library").string()});
    for (const char* path : {"site/plan.dxf", "site/details/door.dxf", "library/symbol.dxf", "elsewhere/far.dxf"})
      put(path);
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
  // What a document of the site folder loads for that reference.
  OdDbDatabase* loadedFor(const OdString& saved) {
    opened_ = OdDbDatabase::create();
    opened_->fileInfo().path = (root_ / "site/main.dxf").string();
    const OdDbObjectId block = addXref(*opened_, saved);
    host_.host().documents().open(opened_, L"P:\\site\\main.dxf");
    return forRead<OdDbBlockTableRecord>(block)->xrefDatabase();
  }
  std::string pathOf(const OdDbDatabase* external) { // below the root
    return external == nullptr ? "" : fs::path(external->fileInfo().path).lexically_relative(root_).string();
  }

  OdDbDatabasePtr opened_;
};

TEST_F(ExternalReferences, AreSearchedFromTheFolderOfTheirDrawing) {
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
      {L"PLAN.DXF", "site/plan.dxf"}, // from a system that ignores case
      {L"Details\\Door.dxf", "site/details/door.dxf"},
      {L"C:\\Elsewhere\\Plan.Dxf", "site/plan.dxf"},
      {L"gone.dxf", ""},
      {L"details", ""}, // a folder
      {L"", ""},
  };
  for (const auto& row : rows)
    EXPECT_EQ(pathOf(loadedFor(row.saved)), row.file) << row.saved;
}

TEST_F(ExternalReferences, OfADrawingElsewhereStartAtItsOwnFolder) {
  put("elsewhere/door.dxf");
  put("elsewhere/nest.dxf", L"door.dxf");
  put("site/door.dxf");
  OdDbDatabase* nest = loadedFor(L"..\\elsewhere\\nest.dxf");
  ASSERT_NE(nest, nullptr);
  const auto inner = forRead<OdDbBlockTableRecord>(nest->symbol(OdDb::kBlockTable, L"xref"));
  EXPECT_EQ(pathOf(inner->xrefDatabase()), "elsewhere/door.dxf");
}

TEST_F(ExternalReferences, OneFileByTwoPathsIsOneDrawingAndACycleIsSeenThroughALink) {
  fs::create_symlink(root_ / "site/plan.dxf", root_ / "site/link.dxf");
  put("site/main.dxf", L"again.dxf");
  fs::create_symlink(root_ / "site/main.dxf", root_ / "site/again.dxf");
  const OdDbDatabasePtr database = drawing::readDrawing((root_ / "site/main.dxf").string()).database;
  std::vector<OdDbObjectId> blocks;
  for (const wchar_t* path : {L"plan.dxf", L"..\\site\\plan.dxf", L"link.dxf"}) {
    const OdDbObjectId block = tests::addBlock(*database, path);
    forWrite<OdDbBlockTableRecord>(block)->setXref(path);
    blocks.push_back(block);
  }
  const mvsi::MvsiApDocument* document = host_.host().documents().open(database, L"P:\\site\\main.dxf");
  const OdDbDatabase* first = forRead<OdDbBlockTableRecord>(blocks[0])->xrefDatabase();
  EXPECT_NE(first, nullptr);
  for (const OdDbObjectId& block : blocks)
    EXPECT_EQ(forRead<OdDbBlockTableRecord>(block)->xrefDatabase(), first);
  ASSERT_EQ(document->xrefReport().issues().size(), 1u);
  EXPECT_EQ(document->xrefReport().issues()[0].code, "xref.cycle");
}

TEST_F(ExternalReferences, OfAnInsertedDrawingGoOnNamingTheirFiles) {
  put("library/kit/bolt.dxf");
  put("library/kit/part.dxf", L"bolt.dxf");
  const OdDbDatabasePtr source = drawing::readDrawing((root_ / "library/kit/part.dxf").string()).database;
  for (const bool hasFile : {true, false}) {
    const OdDbDatabasePtr database = OdDbDatabase::create();
    database->fileInfo().path = hasFile ? (root_ / "site/main.dxf").string() : std::string();
    ASSERT_FALSE(database->insert(L"part", source.get(), true).isNull());
    host_.host().documents().open(database);
    const auto xref = forRead<OdDbBlockTableRecord>(database->symbol(OdDb::kBlockTable, L"xref"));
    EXPECT_EQ(xref->xrefStatus(), XrefStatus::kLoaded);
    EXPECT_TRUE(!hasFile || xref->pathName() == L"..\\library\\kit\\bolt.dxf") << xref->pathName().toUtf8();
  }
  EXPECT_EQ(forRead<OdDbBlockTableRecord>(source->symbol(OdDb::kBlockTable, L"xref"))->pathName(), L"bolt.dxf");
}

TEST_F(ExternalReferences, HaveTheirOwnHeader) {
  put("site/closed.dxf", {}, 0);
  const OdDbDatabase* closed = loadedFor(L"closed.dxf");
  ASSERT_NE(closed, nullptr);
  EXPECT_EQ(closed->headerInt("XEDIT", 1), 0);
  EXPECT_EQ(opened_->headerInt("XEDIT", 1), 1);
}

TEST_F(ExternalReferences, AreFoundByTheServicesOfTheHost) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  database->fileInfo().path = (root_ / "elsewhere/main.dxf").string();
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
