#include "blockcommon/messages.h"

#include "morvane/message_box.h"

#include <initializer_list>
#include <string>

namespace dlgTips {
namespace {

constexpr char kClose[] = "关闭(&C)";
constexpr char kGoOn[] = "继续(&C)";

MvJsonPtr show(const OdString& caption, const OdString& body, std::initializer_list<const char*> labels) {
  constexpr unsigned kStyle = 6;
  constexpr unsigned short kKind = 1;
  constexpr short kExtra = 0;
  const MvJsonPtr buttons = ElementValue::createObject(kMvJsonObject);
  int at = 0;
  for (const char* label : labels)
    buttons->SetDataS(("btnText/" + std::to_string(at++)).c_str(), label);
  return mvsi::mvuiMessageBoxEx(caption, body, buttons, kStyle, kKind, kExtra);
}

int pressed(const MvJsonPtr& result, int ifNone) {
  return result.isNull() ? ifNone : result->GetDataI("ControlBtn", ifNone);
}

OdString withText(const wchar_t* format, const OdString& text) {
  OdString body;
  return body.format(format, text.c_str());
}

} // namespace

int showBlockRedefineTips(const OdString& name, int count) {
  constexpr int kLeaveIt = 1;
  const OdString caption = L"块 - 重新定义块";
  if (count < 1)
    return pressed(show(caption, L"块定义已更改，是否要重新定义此块?", {"重定义", "否(&N)"}), kLeaveIt);
  OdString body;
  body.format(L"\"%s\"已定义为块。希望执行什么操作?\n图形中“%s”块参照的数量：%d\n是：重新定义块，否：不重新定义块",
              name.c_str(), name.c_str(), count);
  return pressed(show(caption, body, {"是", "否"}), kLeaveIt);
}

int showSelectEntityTips() {
  constexpr int kNoChoice = -1;
  return pressed(show(L"块 - 未选定任何对象", L"尚未为块选定任何对象。希望执行什么操作?", {"选择对象", "继续"}),
                 kNoChoice);
}

void showExternalReferenceTips() {
  show(L"块 - 外部参照", L"该块名已被外部参照使用。\n请指定另一块名。", {"确定(&C)"});
}

void showBlockNameEmptyTips() {
  show(L"块 - 文字长度", L"名称 必须至少有一个字符长。", {kClose});
}

void showBlockNameBeyondLenTips() {
  show(L"块 - 文字长度", L"名称 不能长于 255 个字符。", {kClose});
}

void showBlockNameUnLegalTips() {
  showBlockNameUnLegalTips2();
}

void showBlockNameUnLegalTips2() {
  show(L"块 - 不支持的字符", L"名称 包含不支持的字符。\n不支持以下字符:\n \\ < > / ? \" : ; * | , = `", {kClose});
}

void showBlockNameUnValidTips() {
  show(L"块 - 块名无效", L"指定的块名无效。\n请选择其他块名或浏览到其他文件。", {kGoOn});
}

void showBlockExtRefErrorTips() {
  show(L"块 - 外部参照冲突", L"无法插入该块，因为它已附着为外部参照。", {kClose});
}

void showBasePointInValidTips(_CoordType axis) {
  const wchar_t* letter = axis == kCoordY ? L"Y" : axis == kCoordZ ? L"Z" : L"X";
  show(L"块 - 无效坐标值", withText(L"输入的 %s 坐标无效。\n必须输入一个数值。", letter), {kGoOn});
}

void showBlockRefSelfTips(const OdString& name) {
  show(L"块 - 循环块参照", withText(L"块 %s 参照自身。\n", name) + L"块不能包含具有相同名称的块插入。", {kClose});
}

void showBlockUnModifyTips(const OdString& name) {
  show(L"块 - 未修改",
       withText(L"现有的块 %s未经修改。\n", name) + L"若要继续，请修改现有块、指定其他块名或点击“关闭”。", {kClose});
}

// The carriage return inside the sentence is part of the text.
void showBlockLockLayerTips(int count) {
  OdString number;
  number.format(L"锁定图层上的对象数量: %d", count);
  show(L"块 - 对象位于锁定图层上",
       L"选择集中的一个或多个对象位于锁定图层上。此块中将仅包含非锁\r\n定图层上的对象。\n" + number, {kClose});
}

void showUnLegalCharInFilePathTips() {
  show(L"写块 - 不支持的字符",
       L"文件名和路径(F): 包含不支持的字符。\n"
       L"不支持的字符：文件名或目录名中不能包含“/ | < > ? ; * :”，且“.”不能用作相对路径。",
       {kClose});
}

void showFilePathErrorTips() {
  show(L"块 - 未指定路径或文件名", L"未指定输出文件名或完整路径。\n请在 文件和路径 字段中输入完整路径和文件名。",
       {kClose});
}

void showFilePathDirectoryInvalidTips() {
  show(L"块 - 路径无效", L"指定的路径无效。", {kClose});
}

void showFileDocUsingTips(const OdString& path) {
  show(L"块 - 文件正在使用", withText(L"%s 已在使用。请指定其他文件名", path), {kClose});
}

void showFileNotFindTips() {
  show(L"块 - 未找到文件", L"未找到指定的文件。\n请指定正确的文件名或选择有效的块名。", {kClose});
}

} // namespace dlgTips
