// Paths of files: what is refused with which box, which parts a path has, and what the host finds. Boxes that are shown
// although none was asked for, and results that do not depend on their input, are kept as callers know them.
#include "blockcommon/file_paths.h"
#include "morvane/host_api.h"
#include "tests/support/open_document.h"

#include <fstream>
#include <stdlib.h>

static bool openElsewhere = false;

// In place of the library's own, as a command module may do it.
__attribute__((visibility("default"))) bool commonFun::isOpenedDoc(OdString) {
  return openElsewhere;
}

namespace {

namespace fs = std::filesystem;
using Boxes = std::vector<OdString>; // of each its caption, a bar and its body

class FilePaths : public tests::HostAndFolder {
protected:
  FilePaths() {
    fs::create_directories(root_ / "site/empty");
    std::ofstream(root_ / "site/plan.dwg") << "x";
    host_.host().searchPath().setFolders({(root_ / "site").string()});
  }
  ~FilePaths() override { openElsewhere = false; }

  tests::BoxWatch boxes_{host_};
};

const Boxes kNone;
const OdString kSpace = L"Morvane|输出文件名包含无效字符。|64";
const OdString kTooLong = L"块 - 文件路径太长|用于指定文件名和文件位置的字符不应超过259个。|0";
const OdString kNoPath =
    L"块 - 未指定路径或文件名|未指定输出文件名或完整路径。\n请在 文件和路径 字段中输入完整路径和文件名。|0";

TEST_F(FilePaths, WithForbiddenCharactersAreReported) {
  const std::pair<const wchar_t*, bool> rows[] = {
      {L"C:\\a\\b.dwg", false}, {L"", false},       {L"b.dwg", false},    {L"1:\\x", false}, {L":", true},
      {L"C:", false},           {L"::\\a", true},   {L":a", true},        {L"a:b", false},   {L"ab:c", true},
      {L"C:\\a:b", true},       {L"C:\\a/b", true}, {L"C:\\a|b", true},   {L"C:\\<b", true}, {L"C:\\b>", true},
      {L"C:\\?", true},         {L"C:\\a;", true},  {L"C:\\*.dwg", true}, {L"::", true},     {L"a\"b", false},
  };
  for (const auto& [path, isIllegal] : rows) {
    EXPECT_EQ(filePath::isFilePathExistIllEgalCharacter(path, false), isIllegal) << path;
    EXPECT_EQ(boxes_.take(), kNone);
    EXPECT_EQ(filePath::isFilePathExistIllEgalCharacter(path, true), isIllegal);
    EXPECT_EQ(boxes_.take().size(), isIllegal ? 1U : 0U) << path;
  }
}

TEST_F(FilePaths, ToWriteToAreRefusedInOrder) {
  const OdString justFits = L"P:\\site\\" + OdString(L'x', 4094 - 8);
  const struct {
    OdString path;
    bool isLegal;
    Boxes always, whenAsked;
  } rows[] = {
      {L"P:\\site\\new.dwg", true, {}, {}},
      {L"   ", false, {kSpace}, {}},
      {L"\t\r\n ", false, {kSpace}, {}},
      {L"\u3000", false, {}, {kNoPath}}, // not among the blanks that are trimmed
      {L"", false, {}, {kNoPath}},
      {L"b.dwg", false, {}, {kNoPath}},
      {L"P:/site/new.dwg", false, {}, {kNoPath}},
      {OdString(L'x', 4095), false, {kTooLong}, {}},
      {OdString(L' ', 3) + justFits + L"  ", true, {}, {}},
      {justFits + L"x", false, {kTooLong}, {}},
      {L"P:\\site", false, {}, {kNoPath}},
      {L"P:\\site\\", false, {}, {kNoPath}},
      {L" P:\\site", true, {}, {}}, // with its blank it is no folder
      {L"P:\\site\\a*?.dwg", true, {}, {}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(filePath::isFilePathLegal(row.path, false), row.isLegal) << row.path.left(40).toUtf8();
    EXPECT_EQ(boxes_.take(), row.always) << row.path.left(40).toUtf8();
    EXPECT_EQ(filePath::isFilePathLegal(row.path, true), row.isLegal);
    const Boxes shown = boxes_.take();
    EXPECT_EQ(shown.size(), row.always.size() + row.whenAsked.size());
    if (!row.whenAsked.empty() && !shown.empty()) {
      EXPECT_EQ(shown.back(), row.whenAsked[0]);
    }
  }
  const std::pair<const wchar_t*, bool> folders[] = {
      {L"P:\\site", true}, {L"P:\\site\\plan.dwg", false}, {L"P:\\none", false}, {L"", false}};
  for (const auto& [path, isFolder] : folders) {
    EXPECT_EQ(filePath::isFileDirLegal(path, false), isFolder);
    EXPECT_EQ(filePath::isFileDirLegal(path, true), isFolder);
    EXPECT_EQ(boxes_.take().size(), isFolder ? 0U : 1U) << path;
  }
}

TEST_F(FilePaths, OfOpenDrawingsAreKnownByTheirFile) {
  fs::create_directory_symlink(root_ / "site", root_ / "link");
  host_.host().documents().open(OdDbDatabase::create(), L"P:\\site\\plan.dwg");
  host_.host().documents().open(OdDbDatabase::create());
  for (const wchar_t* path :
       {L"P:\\site\\plan.dwg", L"p:\\SITE\\Plan.DWG", L"P:\\link\\plan.dwg", L"P:\\link\\PLAN.dwg"}) {
    EXPECT_TRUE(filePath::isFileLoaded(path, false)) << path;
    EXPECT_EQ(boxes_.take(), kNone);
    EXPECT_TRUE(filePath::isFileLoaded(path, true));
    EXPECT_EQ(boxes_.take(), (Boxes{L"块 - 文件正在使用|" + OdString(path) + L" 已在使用。请指定其他文件名|0"}));
  }
  for (const wchar_t* path : {L"P:\\site\\other.dwg", L""})
    EXPECT_FALSE(filePath::isFileLoaded(path, true)) << path;
  openElsewhere = true; // that box is shown in any case
  for (const bool show : {false, true}) {
    EXPECT_TRUE(filePath::isFileLoaded(L"P:\\100%s.dwg", show));
    EXPECT_EQ(boxes_.take(), (Boxes{L"错误 消息|P:\\100%s.dwg 已存在并被另一任务或其他用户打开，\n不能替换。|0"}));
  }
}

TEST_F(FilePaths, FallIntoParts) {
  const struct {
    const wchar_t *path, *dir, *extension;
  } rows[] = {
      {L"C:\\a\\b.dwg", L"C:\\a", L".dwg"}, {L"b.DXF", L"", L".DXF"},      {L"C:\\a.b\\c", L"C:\\a.b", L""},
      {L"\\x.dwg", L"", L".dwg"},           {L"a/b.dwg", L"", L".dwg"},    {L"", L"", L""},
      {L"C:\\a\\.dwg", L"C:\\a", L".dwg"},  {L"C:\\a\\b.", L"C:\\a", L""},
  };
  for (const auto& row : rows) {
    OdString first = L"old", whole, dir, extension;
    filePath::analyzeFilePath(row.path, first, whole, dir, extension);
    EXPECT_EQ(first, L"");
    EXPECT_EQ(whole, row.path);
    EXPECT_EQ(dir, row.dir) << row.path;
    EXPECT_EQ(extension, row.extension) << row.path;
    OdString path = row.path; // as its own result
    filePath::analyzeFilePath(path, path, whole, dir, extension);
    EXPECT_EQ(std::tie(whole, dir), std::make_tuple(OdString(row.path), OdString(row.dir)));
    filePath::dealFileExtension(row.path, extension);
    EXPECT_EQ(extension, L".dwg");
  }
}

TEST_F(FilePaths, AndNamesAreDistinguishedByTheirExtensions) {
  const struct {
    const wchar_t* text;
    bool isUrl, endsAsDrawing, isExtension, isFileName;
  } rows[] = {
      {L"", false, false, false, true},           {L"WWW.x", true, false, false, true},
      {L"HTTP://a", true, false, false, false},   {L"https://a", false, false, false, false},
      {L"ftp.a", true, false, false, true},       {L"Ftp://", true, false, false, false},
      {L"a http://", false, false, false, false}, {L"www", false, false, false, true},
      {L"A.DXF", false, true, false, true},       {L"a.dws", false, false, false, true},
      {L".Dwg", false, true, true, true},         {L"dwg", false, false, false, true},
      {L"a\\b.dwg", false, true, false, false},   {L"a|b", false, false, false, false},
      {L"a,b;c`=", false, false, false, true},    {L"\"", false, false, false, false},
  };
  for (const auto& row : rows) {
    const std::string shown = OdString(row.text).toUtf8();
    EXPECT_EQ(commonFun::isUrl(row.text), row.isUrl) << shown;
    EXPECT_EQ(commonFun::isFileExtValidWithFile(row.text), row.endsAsDrawing) << shown;
    EXPECT_EQ(commonFun::isFileExtValidWithExt(row.text), row.isExtension) << shown;
    EXPECT_EQ(insertCommon::isFileNameValid(row.text), row.isFileName) << shown;
  }
}

TEST_F(FilePaths, AreSearchedByTheHost) {
  OdString found = L"old:";
  EXPECT_TRUE(insertCommon::isFileExist(L"plan.dwg"));
  EXPECT_TRUE(insertCommon::isFileExist(L"plan.dwg", found));
  EXPECT_EQ(found.getLength(), 4 + 4096);
  EXPECT_STREQ(found.c_str(), L"old:P:\\site\\plan.dwg");
  wchar_t buffer[4096] = L"as before";
  for (const wchar_t* none : {L"", L"plan", L"P:\\site\\empty", L"none.dwg"}) {
    EXPECT_FALSE(insertCommon::isFileExist(none)) << none;
    EXPECT_FALSE(insertCommon::isFileExist(none, found));
  }
  EXPECT_EQ(found.getLength(), 4 + 4096);
  for (const wchar_t* none : {L"", L"none", L"empty", L"plan.", L"plan.dxf"})
    EXPECT_FALSE(insertCommon::isSearchDwgFile(none, buffer, 0)) << none;
  EXPECT_STREQ(buffer, L"as before");
  EXPECT_TRUE(insertCommon::isSearchDwgFile(L"plan", buffer, 0));
  EXPECT_STREQ(buffer, L"P:\\site\\plan.dwg");
  host_.failOperation("mvsiedFindFile");
  EXPECT_FALSE(insertCommon::isFileExist(L"plan.dwg", found));
  host_.host().services().remove(kEditSystemServer);
  EXPECT_FALSE(insertCommon::isFileExist(L"plan.dwg"));
  EXPECT_EQ(found.getLength(), 4 + 4096);
}

TEST_F(FilePaths, TemporaryNamesContainTheTime) {
  const OdString name = filePath::generateRandomName();
  int first = 0, last = 0, at = 0;
  long long time = 0;
  ASSERT_EQ(std::sscanf(name.toUtf8().c_str(), "%3d_%lld_%2d%n", &first, &time, &last, &at), 3) << name.toUtf8();
  EXPECT_EQ(at, name.getLength());
  EXPECT_TRUE(first >= 100 && last >= 10 && time % 1000 == 0) << name.toUtf8();
  std::srand(static_cast<unsigned>(time / 1000));
  EXPECT_EQ(std::rand() % 90 + 10, last); // drawn first, printed last
  EXPECT_EQ(std::rand() % 900 + 100, first);
}

TEST_F(FilePaths, QuestionsThatHaveOneAnswer) {
  OdString path = L"P:\\site\\plan.dwg";
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const std::uint64_t before = database->changeCount();
  EXPECT_FALSE(insertCommon::checkInsertType(path, database));
  EXPECT_EQ(database->changeCount(), before);
  EXPECT_FALSE(filePath::isFilePathHasAccess(path));
  EXPECT_FALSE(filePath::getCurDir(path));
  EXPECT_EQ(path, L"P:\\site\\plan.dwg");
}

} // namespace
