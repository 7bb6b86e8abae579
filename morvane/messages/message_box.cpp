#include "morvane/message_box.h"
#include "morvane/host.h"
#include "morvane/messages/texts.h"

#include <string>
#include <utility>

namespace morvane {
namespace {

struct Label {
  OdString text;   // without the mark, and without a letter in brackets at its end
  OdString letter; // empty when there is none
};

// "确定(&C)" is 确定 and C; "&Yes" is Yes and Y.
Label readLabel(const OdString& given) {
  Label label{given, {}};
  const int mark = given.find(L'&');
  if (mark < 0 || mark + 1 >= given.getLength())
    return label;
  label.letter = given.mid(mark + 1, 1);
  const bool bracketed = mark > 0 && given.getAt(mark - 1) == L'(' && given.mid(mark + 2, 1) == L")";
  label.text = bracketed ? given.left(mark - 1) + given.mid(mark + 3) : given.left(mark) + given.mid(mark + 1);
  return label;
}

OdString labelText(const Label& label) {
  return label.letter.isEmpty() ? label.text : label.text + L"(" + label.letter + L")";
}

// Line breaks belong to a body; other characters that cannot be displayed are shown as \u001B.
OdString printable(const OdString& text) {
  OdString printed;
  for (const wchar_t ch : text.str()) {
    OdString code;
    if ((ch < 0x20 && ch != L'\n' && ch != L'\r') || (ch >= 0x7F && ch < 0xA0))
      printed += code.format(L"\\u%04X", static_cast<unsigned>(ch));
    else
      printed += ch;
  }
  return printed;
}

} // namespace

int buttonOf(const std::vector<OdString>& labels, const OdString& answer) {
  for (std::size_t at = 0; at < labels.size(); ++at) {
    const Label label = readLabel(labels[at]);
    const bool presses = answer == OdString(std::to_wstring(at + 1)) || answer.iCompare(label.text) == 0 ||
                         (!label.letter.isEmpty() && answer.iCompare(label.letter) == 0);
    if (presses)
      return static_cast<int>(at);
  }
  return MessageBoxes::kClosed;
}

int MessageBoxes::show(const MessageBox& box) {
  const int pressed = show_ ? show_(box) : showOnCommandLine(box);
  if (const Watch watch = watch_) // a copy: it may look at boxes itself
    watch(box, pressed);
  return pressed;
}

// Bodies hold names from drawings, so nothing of a box is used as a format.
int MessageBoxes::showOnCommandLine(const MessageBox& box) {
  Output& output = host_.output();
  output.print(L"\n[" + printable(box.caption) + L"]\n" + printable(box.body));
  for (std::size_t at = 0; at < box.buttons.size(); ++at)
    output.print(OdString(L"\n  " + std::to_wstring(at + 1) + L". ") + labelText(readLabel(box.buttons[at])));
  if (isQuestion(box) && interactive_)
    return promptOnCommandLine(box);
  output.print(L"\n");
  return box.buttons.size() == 1 ? 0 : kClosed; // a box with one button is a notice
}

int MessageBoxes::promptOnCommandLine(const MessageBox& box) {
  OdString answer;
  while (host_.input().getString(false, texts::kChooseButton, answer) == RTNORM) {
    const int button = buttonOf(box.buttons, answer);
    if (button != kClosed || host_.input().isScript())
      return button;
    host_.output().print(texts::kNoSuchButton);
  }
  return kClosed;
}

} // namespace morvane

namespace mvsi {

int mvuiMessageBox(const wchar_t* text, const wchar_t* caption, unsigned flags) {
  morvane::Host* host = morvane::admitCall("mvuiMessageBox");
  if (host == nullptr)
    return RTERROR;
  host->messageBoxes().show({caption, text, {}, flags});
  return RTNORM;
}

MvJsonPtr mvuiMessageBoxEx(const wchar_t* caption, const wchar_t* body, const MvJsonPtr& buttons, unsigned style,
                           unsigned short kind, short extra) {
  morvane::Host* host = morvane::admitCall("mvuiMessageBoxEx");
  if (host == nullptr)
    return nullptr;
  morvane::MessageBox box{caption, body, {}, 0, style, kind, extra};
  for (int at = 0; !buttons.isNull(); ++at) {
    const std::string path = "btnText/" + std::to_string(at);
    if (!buttons->HasData(path.c_str()))
      break;
    box.buttons.push_back(buttons->GetDataSW(path.c_str()));
  }
  MvJsonPtr answer = ElementValue::createObject(kMvJsonObject);
  const int pressed = host->messageBoxes().show(box);
  if (pressed >= 0)
    answer->SetDataI("ControlBtn", pressed);
  return answer;
}

} // namespace mvsi
