// The target of a written block, from the typed name to the question whether a file may be replaced, and what is
// remembered. No answer but a yes may ever let a file be replaced.
#include "blockcommon/write_block.h"
#include "tests/support/open_document.h"

#include <array>
#include <fstream>

namespace {

using mvsi::MvsiApDocument;

constexpr wchar_t kQuestion[] = L"\nP:\\100%s.dxf已经存在，是否覆盖？[是(Y)/否(N)] <N>: ";
constexpr wchar_t kAskedAgain[] = L"\n请回答“是”或“否”。";

class WriteBlock : public tests::HostAndFolder {
protected:
  WriteBlock() {
    for (const char* name : {"100%s.dxf", "100%s.dwg", "odd\xff.dxf"})
      std::ofstream(root_ / name) << "x";
  }
  void remember(const OdString& path) {
    mv_user_config_create("Write_block_dialog", 2)->SetDataSW("Items\\ComBoxGetCurSel", path);
  }
};

TEST_F(WriteBlock, FormatsOfTheHostHaveTheirTypeAndVersion) {
  const std::array<int, 3> rows[] = {{1, 1, 16},  {8, 0, 16},  {12, 0, 23}, {13, 1, 23}, {24, 0, 25},
                                     {25, 1, 25}, {36, 0, 27}, {37, 1, 27}, {48, 0, 29}, {49, 1, 29},
                                     {60, 0, 33}, {61, 0, 33}, {0, 0, 33},  {-1, 0, 33}, {9, 0, 33}};
  for (const auto& [number, wantedType, wantedVersion] : rows) {
    const auto format = static_cast<MvsiApDocument::SaveFormat>(number);
    auto type = static_cast<OdDb::SaveType>(7);
    OdDb::DwgVersion version = OdDb::kRelease10;
    blockInfo_FilePath::getFileVersion(format, type, version);
    EXPECT_EQ(std::make_pair(int(type), int(version)), std::make_pair(wantedType, wantedVersion)) << number;
    EXPECT_EQ(blockInfo_FilePath::isFileDwgFormat(format), wantedType == 0) << number;
  }
}

TEST_F(WriteBlock, ExtensionDecidesAndIsAddedToBothNames) {
  const struct {
    const wchar_t *path, *added;
    int type;
  } rows[] = {{L"C:\\a\\b", L".dwg", 0}, {L"b.DXF", L".dwg", 0},        {L"b.dxf", L"", 1},  {L"b.dwg", L"", 0},
              {L"b.Dwg", L".dwg", 0},    {L"C:\\a.dxf\\b", L".dwg", 0}, {L"b.", L".dwg", 0}, {L"", L".dwg", 0}};
  for (const auto& row : rows) {
    _blockFileInfo info{true, L"shown.dxf", row.path, OdDb::kSaveDxf, OdDb::kRelease12};
    EXPECT_EQ(blockInfo_FilePath::dealBlockFileInfo(info), RTNORM);
    EXPECT_EQ(info.filePath, OdString(row.path) + row.added);
    EXPECT_EQ(info.fileName, OdString(L"shown.dxf") + row.added) << info.filePath.toUtf8();
    EXPECT_EQ(std::make_pair(int(info.saveType), int(info.dwgVersion)), std::make_pair(row.type, 33));
    EXPECT_TRUE(info.bWrite);
  }
}

TEST_F(WriteBlock, TargetIsCheckedFromItsNameToTheYes) {
  remember(L"P:\\last.dwg");
  const OdString asked = kQuestion, again = OdString(kAskedAgain) + kQuestion;
  const struct {
    const wchar_t* name;
    std::vector<OdString> answers;
    int status;
    bool writes;
    const wchar_t* path;
    OdString output;
  } rows[] = {
      {L"100%s.dxf", {L""}, RTEMPTY, false, L"P:\\100%s.dxf", asked},
      {L"100%s.dxf", {L"\x1b"}, RTCANCELLED, false, L"P:\\100%s.dxf", asked},
      {L"100%s.dxf", {L"n"}, RTCANCELLED, false, L"P:\\100%s.dxf", asked},
      {L"100%s.dxf", {L"y"}, RTNORM, true, L"P:\\100%s.dxf", asked},
      {L"100%s.dxf", {L"maybe", L"Yes!", L"yES"}, RTNORM, true, L"P:\\100%s.dxf", asked + again + again},
      {L"100%s.dxf", {L"maybe"}, RTCANCELLED, false, L"P:\\100%s.dxf", asked + again},
      {L"100%s",
       {L"N"},
       RTCANCELLED,
       false,
       L"P:\\100%s.dwg",
       L"\nP:\\100%s.dwg已经存在，是否覆盖？[是(Y)/否(N)] <N>: "},
      {L"new", {}, RTNORM, true, L"P:\\new.dwg", L""},
      {L"~", {}, RTNORM, false, L"", L""},
      {L"100%%?", {}, RTREJ, false, L"", L"\nThe file name 100%%? contains characters that are not allowed."},
      {L"P:\\%d\\b", {}, RTREJ, false, L"", L"\nFolder P:\\%d\\ not found."},
  };
  for (const auto& row : rows) {
    host_.answerWith(row.answers);
    _blockFileInfo info;
    info.fileName = row.name;
    EXPECT_EQ(blockInfo_FilePath::checkFileNameRight(info), row.status) << &row - rows;
    EXPECT_EQ(info.bWrite, row.writes) << &row - rows;
    EXPECT_EQ(info.filePath, row.path);
    EXPECT_EQ(host_.takeOutput(), row.output);
  }
  // Whichever call fails, a file is replaced after a yes only; one that the host does not see is taken for none.
  for (int n = 1;; ++n) {
    host_.answerWith({L"x"});
    _blockFileInfo info{false, L"100%s.dxf", L"", OdDb::kSaveDwg, OdDb::kRelease2018};
    host_.failCall(n);
    blockInfo_FilePath::checkFileNameRight(info);
    if (host_.allPassed())
      break;
    EXPECT_TRUE(!info.bWrite || host_.calls().back() == "mvutIsExistFile") << n;
  }
}

TEST_F(WriteBlock, QuestionNeedsSomebodyToAnswer) {
  EXPECT_EQ(blockInfo_FilePath::doSelectByUse(L"x", host_.host().paths().toDrawing(root_ / "odd\xff.dxf")),
            RTCANCELLED);
  EXPECT_EQ(blockInfo_FilePath::doSelectByUse(L"x", L"P:\\"), RTNORM); // a folder is no file
  host_.takeOutput();
  mv_arbitDict_unregister(kEditGetServer);
  _blockFileInfo info{false, L"x", L"P:\\100%s.dxf", OdDb::kSaveDwg, OdDb::kRelease2018};
  EXPECT_EQ(blockInfo_FilePath::checkFileNameRight(info), RTCANCELLED);
  EXPECT_FALSE(info.bWrite);
  EXPECT_EQ(host_.takeOutput(), kAskedAgain);
}

TEST_F(WriteBlock, FolderOfTheLastFileIsRemembered) {
  EXPECT_EQ(blockInfo_FilePath::getDefPathFromReg(), L"");
  EXPECT_TRUE(mv_user_config("Write_block_dialog", 2).isNull());
  const std::pair<const wchar_t*, const wchar_t*> rows[] = {
      {L"D:\\out\\x.dwg", L"D:\\out"}, {L"x.dwg", L""}, {L"/out/x.dwg", L""},
      {L"D:\\块\\", L"D:\\块"},        {L"", L""},      {L"\\x", L""}};
  for (const auto& [path, folder] : rows) {
    remember(path);
    EXPECT_EQ(blockInfo_FilePath::getDefPathFromReg(), folder) << path;
  }
}

TEST_F(WriteBlock, FormatIsStoredOnceRequested) {
  OdDb::SaveType type = OdDb::kSaveDxf;
  OdDb::DwgVersion version = OdDb::kRelease12;
  registerFun::SetBlockFormatIndex(type, version);
  EXPECT_TRUE(mv_user_config("wblock_dialog", 2).isNull());
  const auto get = [&] {
    registerFun::GetBlockSaveFormat(type, version);
    return std::make_pair(int(type), int(version));
  };
  EXPECT_EQ(get(), std::make_pair(0, 33));
  const MvJsonPtr section = mv_user_config("wblock_dialog", 2);
  ASSERT_FALSE(section.isNull());
  EXPECT_EQ(section->GetDataI("SaveFormatType", -1), 0);
  EXPECT_EQ(section->GetDataI("SaveFormatVersion", -1), 33);
  type = OdDb::kSaveDxf;
  version = OdDb::kRelease2004;
  registerFun::SetBlockFormatIndex(type, version);
  EXPECT_EQ(get(), std::make_pair(1, 25));
  host_.host().config().removeSection("wblock_dialog");
  mv_user_config_create("wblock_dialog", 2); // there, but empty
  EXPECT_EQ(get(), std::make_pair(0, 0));
  for (const char* call : {"mv_user_config", "mv_user_config_create"}) {
    host_.host().config().removeSection("wblock_dialog");
    host_.failOperation(call);
    EXPECT_EQ(get(), std::make_pair(0, 33)) << call;
  }
}

TEST_F(WriteBlock, OptionsOfMakingABlockAreRemembered) {
  using Options = std::array<int, 7>; // in the order of reading
  const auto get = [] {
    Options o = {9, 9, 9, 9, 9, 9, 9};
    EXPECT_TRUE(registerFun::getRegistedOptions(o[0], o[1], o[2], o[3], o[4], o[5], o[6]));
    return o;
  };
  const Options defaults = {0, 1, 0, 1, 0, 9, 1};
  EXPECT_EQ(get(), defaults);
  EXPECT_TRUE(mv_user_config("block_dialog", 2).isNull());
  host_.failOperation("mv_user_config_create");
  EXPECT_TRUE(registerFun::setRegistedOptions(1, 1, 1, 1, 1, 1));
  EXPECT_EQ(get(), defaults);
  for (int one = 0; one < 6; ++one) { // each reaches its own key, and only that
    std::array<int, 6> set = {};
    set[static_cast<std::size_t>(one)] = -2;
    EXPECT_TRUE(registerFun::setRegistedOptions(set[0], set[1], set[2], set[3], set[4], set[5]));
    Options expected = {0, 0, 0, 0, 0, 9, 0};
    expected[static_cast<std::size_t>(one == 5 ? 6 : one)] = one == 3 ? -2 : 1;
    EXPECT_EQ(get(), expected) << one;
  }
  const MvJsonPtr section = mv_user_config("block_dialog", 2);
  registerFun::setRegistedOptions(1, 0, 0, 2, 0, 0);
  EXPECT_EQ(section->toText(), R"({"BasePointOnScreen":true,"Explode":false,"ObjectsOnScreen":false,)"
                               R"("ObjectsPostprocessing":2,"ScaleUniform":false,"bOpenInEditor":false})");
}

} // namespace
