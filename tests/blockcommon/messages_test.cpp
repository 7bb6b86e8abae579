// The boxes of the block commands: their texts word for word, what is put into them, and what their answers mean.
#include "blockcommon/messages.h"
#include "morvane/testing.h"
#include "tests/support/print.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

using namespace dlgTips;

class Messages : public testing::Test {
protected:
  Messages() {
    host_.host().messageBoxes().setShow([this](const morvane::MessageBox& box) {
      shown_ = box;
      return answer_;
    });
  }

  morvane::FaultyHost host_;
  morvane::MessageBox shown_;
  int answer_ = morvane::MessageBoxes::kClosed;
};

TEST_F(Messages, AreShownVerbatim) {
  using Buttons = std::vector<OdString>;
  const Buttons ok{L"确定(&C)"}, close{L"关闭(&C)"}, goOn{L"继续(&C)"};
  const OdString kIllegal = L"名称 包含不支持的字符。\n不支持以下字符:\n \\ < > / ? \" : ; * | , = `";
  const struct {
    std::function<void()> show;
    OdString caption, body;
    Buttons buttons;
  } cases[] = {
      {showExternalReferenceTips, L"块 - 外部参照", L"该块名已被外部参照使用。\n请指定另一块名。", ok},
      {[] { showBlockRedefineTips(L"门", 0); }, L"块 - 重新定义块", L"块定义已更改，是否要重新定义此块?",
       Buttons{L"重定义", L"否(&N)"}},
      {[] { showBlockRedefineTips(L"门", 1); }, L"块 - 重新定义块",
       L"\"门\"已定义为块。希望执行什么操作?\n图形中“门”块参照的数量：1\n是：重新定义块，否：不重新定义块",
       Buttons{L"是", L"否"}},
      {showBlockNameEmptyTips, L"块 - 文字长度", L"名称 必须至少有一个字符长。", close},
      {showBlockNameBeyondLenTips, L"块 - 文字长度", L"名称 不能长于 255 个字符。", close},
      {showBlockNameUnLegalTips2, L"块 - 不支持的字符", kIllegal, close},
      {showBlockNameUnLegalTips, L"块 - 不支持的字符", kIllegal, close},
      {showBlockExtRefErrorTips, L"块 - 外部参照冲突", L"无法插入该块，因为它已附着为外部参照。", close},
      {showBlockNameUnValidTips, L"块 - 块名无效", L"指定的块名无效。\n请选择其他块名或浏览到其他文件。", goOn},
      {[] { showBasePointInValidTips(kCoordY); }, L"块 - 无效坐标值", L"输入的 Y 坐标无效。\n必须输入一个数值。", goOn},
      {[] { showBasePointInValidTips(kCoordZ); }, L"块 - 无效坐标值", L"输入的 Z 坐标无效。\n必须输入一个数值。", goOn},
      {[] { showBlockRefSelfTips(L"门"); }, L"块 - 循环块参照", L"块 门 参照自身。\n块不能包含具有相同名称的块插入。",
       close},
      {[] { showSelectEntityTips(); }, L"块 - 未选定任何对象", L"尚未为块选定任何对象。希望执行什么操作?",
       Buttons{L"选择对象", L"继续"}},
      {[] { showBlockUnModifyTips(L"门"); }, L"块 - 未修改",
       L"现有的块 门未经修改。\n若要继续，请修改现有块、指定其他块名或点击“关闭”。", close},
      {[] { showBlockLockLayerTips(12); }, L"块 - 对象位于锁定图层上",
       L"选择集中的一个或多个对象位于锁定图层上。此块中将仅包含非锁\r\n定图层上的对象。\n锁定图层上的对象数量: 12",
       close},
      {showUnLegalCharInFilePathTips, L"写块 - 不支持的字符",
       L"文件名和路径(F): 包含不支持的字符。\n"
       L"不支持的字符：文件名或目录名中不能包含“/ | < > ? ; * :”，且“.”不能用作相对路径。",
       close},
      {showFilePathErrorTips, L"块 - 未指定路径或文件名",
       L"未指定输出文件名或完整路径。\n请在 文件和路径 字段中输入完整路径和文件名。", close},
      {showFilePathDirectoryInvalidTips, L"块 - 路径无效", L"指定的路径无效。", close},
      {[] { showFileDocUsingTips(L"C:\\a.dwg"); }, L"块 - 文件正在使用", L"C:\\a.dwg 已在使用。请指定其他文件名",
       close},
      {showFileNotFindTips, L"块 - 未找到文件", L"未找到指定的文件。\n请指定正确的文件名或选择有效的块名。", close},
  };
  for (const auto& one : cases) {
    shown_ = {};
    one.show();
    EXPECT_EQ(std::tie(shown_.caption, shown_.body), std::tie(one.caption, one.body));
    EXPECT_EQ(shown_.buttons, one.buttons) << one.body.toUtf8();
    EXPECT_EQ(std::make_tuple(shown_.style, shown_.kind, shown_.extra), std::make_tuple(6U, 1, 0));
  }
}

TEST_F(Messages, KeepNamesAndNumbersAsTheyAre) {
  const std::pair<OdString, OdString> names[] = {
      {L"100%s %d%%", L"块 100%s %d%% 参照自身。"}, {L"", L"块  参照自身。"}, {OdString(L'x', 5000), L"块 xxx"}};
  for (const auto& [name, begin] : names) {
    showBlockRefSelfTips(name);
    EXPECT_EQ(shown_.body.find(begin), 0) << name.toUtf8();
    EXPECT_EQ(shown_.body.right(17), L"\n块不能包含具有相同名称的块插入。");
  }
  showFileDocUsingTips(L"");
  EXPECT_EQ(shown_.body, L" 已在使用。请指定其他文件名");
  showBlockRedefineTips(L"%d", INT_MAX);
  EXPECT_EQ(shown_.body.find(L"\"%d\"已定义为块。希望执行什么操作?\n图形中“%d”块参照的数量：2147483647\n"), 0);
  showBlockRedefineTips(L"A", -1);
  EXPECT_EQ(shown_.body, L"块定义已更改，是否要重新定义此块?");
  for (const int axis : {0, 7, -1}) {
    showBasePointInValidTips(static_cast<_CoordType>(axis));
    EXPECT_EQ(shown_.body.find(L"输入的 X 坐标无效"), 0);
  }
}

TEST_F(Messages, QuestionsReturnTheButtonOrTheMeaningOfAClosedBox) {
  const auto ask = [] {
    return std::array{showBlockRedefineTips(L"A", 0), showBlockRedefineTips(L"A", 3), showSelectEntityTips()};
  };
  for (const int button : {0, 1}) {
    answer_ = button;
    EXPECT_EQ(ask(), (std::array{button, button, button}));
  }
  answer_ = morvane::MessageBoxes::kClosed;
  EXPECT_EQ(ask(), (std::array{1, 1, -1}));
  answer_ = 0;
  host_.failOperation("mvuiMessageBoxEx"); // no answer at all
  EXPECT_EQ(showBlockRedefineTips(L"A", 3), 1);
  host_.failOperation("mvuiMessageBoxEx");
  EXPECT_EQ(showSelectEntityTips(), -1);
  host_.host().messageBoxes().setShow([](const morvane::MessageBox&) -> int { throw OdError(eInvalidInput); });
  EXPECT_THROW(showSelectEntityTips(), OdError);
  host_.host().uninstall();
  EXPECT_EQ(ask(), (std::array{1, 1, -1}));
  showBlockNameEmptyTips();
}

} // namespace
