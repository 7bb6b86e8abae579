// Typed texts as blocks and files: the old rules with what they lose and what they write although they refuse, and the
// two that INSERT asks, with the one message of each refusal.
#include "blockcommon/messages.h"
#include "blockcommon/typed_names.h"
#include "tests/support/open_document.h"

#include <algorithm>
#include <fstream>

namespace {

using namespace AnalyzeBlkNamePath;
namespace fs = std::filesystem;

struct Row {
  OdString one, two;
  bool isValid;
  OdString block, file; // "old" where it is left alone
  void (*message)() = nullptr;
};

class TypedNames : public tests::HostAndFolder {
protected:
  using Analyze = bool (*)(const OdString&, const OdString&, OdString&, OdString&);

  TypedNames() {
    slashed_ = OdString::fromUtf8(root_.string());
    fromRoot_ = slashed_;
    fromRoot_.replace(L'/', L'\\');
    for (const char* name :
         {"plan.dwg", "b12.dwg", "wall.dxf", "both.dwg", "both.dxf", "door.v2.dwg", "a;b.dwg", "Ext.dxf", "p"})
      addFile(root_ / "site" / name);
    host_.host().searchPath().setFolders({root_.string(), (root_ / "site").string()});
    host_.host().documents().open(database_);
    mvsi::mvsidbSetWorkingDatabase(separate_.get()); // what is typed goes into the current drawing
    tests::addBlock(*database_, L"Door");
    tests::addBlock(*database_, L"P:\\site\\b1");
    addFlagged(L"Ext", 4);
    addFlagged(L"Leaf", 16);
  }

  static void addFile(const fs::path& path) {
    fs::create_directories(path.parent_path());
    std::ofstream(path) << "x";
  }
  void addFlagged(const OdString& name, std::int16_t flag) {
    tests::forWrite<OdDbBlockTableRecord>(tests::addBlock(*database_, name))->setFlag(flag, true);
  }
  std::ptrdiff_t searches() { return std::count(host_.calls().begin(), host_.calls().end(), "mvsiedFindFile"); }
  void expectBox(void (*message)()) {
    const auto shown = boxes_.take();
    if (message != nullptr)
      message();
    EXPECT_EQ(shown, boxes_.take());
  }
  void expectRows(Analyze analyze, std::initializer_list<Row> rows) {
    for (const Row& row : rows) {
      SCOPED_TRACE(row.one.toUtf8() + " & " + row.two.toUtf8());
      OdString block = L"old", file = L"old";
      EXPECT_EQ(analyze(row.one, row.two, block, file), row.isValid);
      EXPECT_EQ(block.str(), row.block.str());
      EXPECT_EQ(file.str(), row.file.str()); // with its true length
      expectBox(row.message);
    }
  }

  OdString slashed_, fromRoot_; // the folder of the test without a drive
  OdDbDatabasePtr database_ = OdDbDatabase::create(), separate_ = OdDbDatabase::create();
  tests::BoxWatch boxes_{host_};
};

TEST_F(TypedNames, AreCombinedOfBaseAndExtension) {
  const OdString longest(L'a', 255);
  const Row rows[] = {
      {L"A ", L".DWG", true, L"A", L""},           {L"A", L".x", true, L"A.x", L""},
      {L"A", L".dxf ", true, L"A.dxf", L""}, // a blank more is no extension of drawings
      {L"C:\\d", L".dwg", false, L"C:\\d", L""},   {longest, L".dxf", true, longest, L""},
      {longest, L".", false, longest + L".", L""},
  };
  for (const Row& row : rows) {
    OdString name = row.one; // as its own result
    EXPECT_EQ(combinBlkName(name, row.two, name), row.isValid) << row.one.toUtf8();
    EXPECT_EQ(name, row.block);
  }
}

TEST_F(TypedNames, OfPathsAloneTakeTheFolderForTheBlock) {
  const OdString plan = L"P:\\site\\plan.dwg";
  expectRows(analyzeBlkName, {
                                 {L"x", plan, false, L"old", L"old"},
                                 {L"", L"", false, L"old", L"old"},
                                 {L"", L"none.dwg", false, L"old", L"old"},
                                 {L"", plan, false, L"P:\\site", plan},
                                 {L"", L"plan.dwg", false, L"", plan},
                                 {L"", L"site\\plan.dwg", true, L"site", plan},
                                 {L"", L"site\\plan", true, L"site", plan},
                                 {L"", L"site\\wall.dxf", true, L"site", L"P:\\site\\wall.dxf"},
                                 {L"", L"P:\\site\\b12.dwg", false, L"old", L"old"}, // P:\site\b1 is a block
                                 {L"", L"P:\\site\\b12", false, L"P:\\site", L"P:\\site\\b12.dwg"},
                             });
  expectRows([](const OdString& spec, const OdString&, OdString& block,
                OdString& file) { return analyzeBlkName2(spec, block, file); },
             {
                 {L"", L"", false, L"old", L"old"},
                 {L"abc", L"", true, L"", L""},
                 {L"d\\abc.x", L"", true, L"d.x", L""},
                 {L"x.dwg", L"", true, L".dwg", L"x.dwg"},
                 {L" \\x.dwg", L"", true, L".dwg", L" \\x.dwg"},
                 {L"C:\\d \\x.DXF", L"", true, L"C:\\d", L"C:\\d \\x.DXF"},
             });
}

TEST_F(TypedNames, OfPathsBelowAFolderKnowTwoPlaces) {
  const OdString site = fromRoot_ + L"\\site", slashes = slashed_ + L"/site/plan";
  expectRows(analyzeBlkPath2, {
                                  {L"site\\plan", L"P:\\", true, L"site", L"P:\\site\\plan.dwg"},
                                  {L"site\\wall.dxf", L"P:\\", true, L"site", L"P:\\site\\wall.dxf"},
                                  {L"site\\wall", L"P:\\", false, L"old", L""},
                                  {L"plan", L"P:\\site\\", false, L"", L"P:\\site\\plan.dwg"},
                                  {L"plan.dwg", L"P:\\site", false, L"old", L""}, // no separator is put between
                                  {L"", L"P:\\site\\both", false, L"", L"P:\\site\\both.dwg"},
                                  {L"\\none", L"P:\\", false, L"old", L"\\none.dwg"},
                                  {L"\\plan", L"P:\\site", false, L"", L"P:\\site\\plan.dwg"},
                                  {site + L"\\plan", L"P:\\none\\", false, site, site + L"\\plan.dwg"},
                                  {slashes, L"P:\\none\\", false, L"", slashes + L".dwg"},
                              });
  const auto lastOf = [](const OdString& base, const OdString& spec, OdString& block, OdString& file) {
    return analyzeLastBlkPath(base, spec, L"unused", block, file);
  };
  expectRows(lastOf, {{L"P:\\", L"site\\plan", true, L"site", L"P:\\site\\plan.dwg"}});
  const auto before = searches();
  expectRows(lastOf, {{L"P:\\", L"dOOR", false, L"old", L"old"}});
  EXPECT_EQ(searches(), before);
}

TEST_F(TypedNames, AreFilesWhereTheFileExists) {
  const OdString plan = L"site\\plan.dwg";
  expectRows(analyzeBlkPath, {
                                 {L".DWG", L"none", true, L".DWG", L"old"},
                                 {L"", L"none.dwg", false, L"old", L"old"},
                                 {L"", plan, true, L"site", plan},
                                 {L"Site\\PLAN", plan, true, L"site", plan},
                                 {L"p", L"p", false, L"", L"p"},
                                 {L"none", plan, false, L"old", L"old"},
                                 {L"site/b12.dwg", plan, true, L"b1", L"site/b12.dwg"},
                                 {L"b12", L"p", true, L"b1", L"b12.dwg"},
                                 {L"wall.dxf", plan, true, L"wal", L"wall.dxf"},
                                 {L"P:\\site\\b12", plan, true, L"P:\\site\\b1", L"P:\\site\\b12.dwg"},
                             });
}

TEST_F(TypedNames, OfFilesAreTheFilesOwn) {
  const OdString plan = fromRoot_ + L"\\site\\plan", wall = fromRoot_ + L"\\site\\wall";
  addFile(root_ / "deep" / (root_.string().substr(1) + "/site/plan.dxf"));
  expectRows(analyzeLastBlkPath2,
             {
                 {L"P:\\", L"", false, L"old", L"old", dlgTips::showBlockNameEmptyTips},
                 {L"P:\\", L"dOOR", false, L"old", L"old"},
                 {L"P:\\site", L"none", false, L"old", L"old", dlgTips::showFileNotFindTips},
                 {L"P:\\site", L"plan", true, L"plan", L"P:\\site\\plan.dwg"},
                 {L"P:\\site", L"\\plan", true, L"plan", L"P:\\site\\plan.dwg"},
                 {L"P:/site/", L"wall", true, L"wall", L"P:/site/wall.dxf"},
                 {L"P:\\site\\", L"both", true, L"both", L"P:\\site\\both.dwg"},
                 {L"P:\\site", L"door.v2", true, L"door.v2", L"P:\\site\\door.v2.dwg"},
                 {L"", L"site\\plan", true, L"plan", L"site\\plan.dwg"},
                 {L"Q:\\none", wall, true, L"wall", wall + L".dxf"},
                 {L"P:\\deep", plan, true, L"plan", plan + L".dwg"}, // before plan.dxf below the folder
                 {L"P:\\", L"site\\a;b", false, L"a;b", L"P:\\site\\a;b.dwg", dlgTips::showBlockNameUnValidTips},
             });
  const auto before = searches();
  expectRows(analyzeLastBlkPath2,
             {{L"P:\\", L"none.dwg", false, L"old", L"old", dlgTips::showFileNotFindTips}}); // no other ending
  EXPECT_EQ(searches(), before + 1);
}

TEST_F(TypedNames, AreRefusedWithOneMessage) {
  const struct {
    OdString name, path;
    const wchar_t *current, *base, *block; // no block: refused
    void (*message)() = nullptr;
  } rows[] = {
      {L" ", L"\t", L"", L"", nullptr, dlgTips::showBlockNameEmptyTips},
      {OdString(L'a', 256), L"", L"", L"", nullptr, dlgTips::showBlockNameBeyondLenTips},
      {L"Ext|Leaf", L"", L"", L"", nullptr, dlgTips::showBlockNameUnLegalTips},
      {L" Door", L"", L"", L"", nullptr, dlgTips::showBlockNameUnValidTips},
      {L"Door ", L"", L"", L"", nullptr, dlgTips::showBlockNameUnValidTips},
      {L"dOOR", L" ", L"Gate", L"", L"dOOR"},
      {L"dOOR", L"", L"Door", L"", nullptr, [] { dlgTips::showBlockRefSelfTips(L"dOOR"); }},
      {L"new", L"", L"NEW", L"", nullptr, [] { dlgTips::showBlockRefSelfTips(L"new"); }},
      {L"Ext", L"", L"", L"", nullptr, dlgTips::showBlockExtRefErrorTips},
      {L"Leaf", L"", L"", L"", nullptr, dlgTips::showBlockExtRefErrorTips},
      {L"plan", L"", L"", L"P:\\site", L"plan"},
      {L"plan", L"", L"", L"", L"plan"}, // on the search path
      {L"plan", L"", L"", L"P:\\", nullptr, dlgTips::showFileNotFindTips},
      {L"site\\wall", L"", L"", L"P:\\", L"wall"},
      {L"Door.dwg", L"", L"", L"P:\\", nullptr, dlgTips::showFileNotFindTips},
      {L"plan.dwg", L"", L"PLAN", L"P:\\site", nullptr, [] { dlgTips::showBlockRefSelfTips(L"plan"); }},
      {L"Door", L"P:\\site\\wall.dxf", L"", L"P:\\none", L"wall"},
      {L"", L"Door", L"", L"P:\\site", nullptr, dlgTips::showFileNotFindTips}, // a path is no block
      {L"", L"a;b.dwg", L"", L"P:\\site", nullptr, dlgTips::showBlockNameUnValidTips},
      {L"", L"Ext.dxf", L"", L"P:\\site", nullptr, dlgTips::showBlockExtRefErrorTips},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name.left(40).toUtf8() + " & " + row.path.toUtf8());
    const bool isValid = row.block != nullptr;
    OdString block = L"old";
    EXPECT_EQ(checkInputBlockInfoValidByReplaceDlg(row.name, row.path, row.current, row.base, block), isValid);
    EXPECT_EQ(block, isValid ? row.block : L"old");
    expectBox(row.message);
  }
}

} // namespace
