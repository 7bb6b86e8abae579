#include "blockcommon/messages.h"

#include "blockcommon/box_texts.h"

#include "morvane/message_box.h"

#include <initializer_list>
#include <string>

namespace dlgTips {
namespace {

constexpr char kClose[] = "关闭(&C)";
constexpr char kGoOn[] = "继续(&C)";

MvJsonPtr show(const BoxText& text, const OdString& body, std::initializer_list<const char*> labels) {
  constexpr unsigned kStyle = 6;
  constexpr unsigned short kKind = 1;
  constexpr short kExtra = 0;
  const MvJsonPtr buttons = ElementValue::createObject(kMvJsonObject);
  int at = 0;
  for (const char* label : labels)
    buttons->SetDataS(("btnText/" + std::to_string(at++)).c_str(), label);
  return mvsi::mvuiMessageBoxEx(text.caption, body, buttons, kStyle, kKind, kExtra);
}

MvJsonPtr show(const BoxText& text, std::initializer_list<const char*> labels) {
  return show(text, text.body, labels);
}

int pressed(const MvJsonPtr& result, int ifNone) {
  return result.isNull() ? ifNone : result->GetDataI("ControlBtn", ifNone);
}

OdString withName(const BoxText& text, const OdString& name) {
  OdString body;
  return body.format(text.body, name.c_str());
}

} // namespace

int showBlockRedefineTips(const OdString& name, int count) {
  constexpr int kLeaveIt = 1;
  if (count < 1)
    return pressed(show(kBlockChanged, {"重定义", "否(&N)"}), kLeaveIt);
  OdString body;
  body.format(kBlockRedefine.body, name.c_str(), name.c_str(), count);
  return pressed(show(kBlockRedefine, body, {"是", "否"}), kLeaveIt);
}

int showSelectEntityTips() {
  constexpr int kNoChoice = -1;
  return pressed(show(kNoObjects, {"选择对象", "继续"}), kNoChoice);
}

void showExternalReferenceTips() {
  show(kNameExternal, {"确定(&C)"});
}

void showBlockNameEmptyTips() {
  show(kNameEmpty, {kClose});
}

void showBlockNameBeyondLenTips() {
  show(kNameTooLong, {kClose});
}

void showBlockNameUnLegalTips() {
  showBlockNameUnLegalTips2();
}

void showBlockNameUnLegalTips2() {
  show(kNameCharacters, {kClose});
}

void showBlockNameUnValidTips() {
  show(kNameInvalid, {kGoOn});
}

void showBlockExtRefErrorTips() {
  show(kBlockAttached, {kClose});
}

void showBasePointInValidTips(_CoordType axis) {
  show(axis == kCoordY ? kBasePointY : axis == kCoordZ ? kBasePointZ : kBasePointX, {kGoOn});
}

void showBlockRefSelfTips(const OdString& name) {
  show(kContainsItself, withName(kContainsItself, name), {kClose});
}

void showBlockUnModifyTips(const OdString& name) {
  show(kNotModified, withName(kNotModified, name), {kClose});
}

void showBlockLockLayerTips(int count) {
  OdString body;
  body.format(kLockedLayers.body, count);
  show(kLockedLayers, body, {kClose});
}

void showUnLegalCharInFilePathTips() {
  show(kPathCharacters, {kClose});
}

void showFilePathErrorTips() {
  show(kPathIncomplete, {kClose});
}

void showFilePathDirectoryInvalidTips() {
  show(kPathFolder, {kClose});
}

void showFileDocUsingTips(const OdString& path) {
  show(kFileInUse, withName(kFileInUse, path), {kClose});
}

void showFileNotFindTips() {
  show(kFileNotFound, {kClose});
}

} // namespace dlgTips
