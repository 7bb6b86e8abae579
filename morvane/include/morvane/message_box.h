// Message boxes.
#pragma once

#include "OdString.h"
#include "morvane/config.h"
#include "morvane/export.h"

#include <functional>
#include <vector>

namespace mvsi {

// The plain box: text first, then the caption. RTNORM when it was shown.
MORVANE_API int mvuiMessageBox(const wchar_t* text, const wchar_t* caption, unsigned flags);
// The box with its own buttons: caption first, then the body. `buttons` holds the labels under "btnText/0", "btnText/1"
// ... The answer is an object with the index of the pressed button under "ControlBtn", and without it when the box was
// closed without a choice; null when no box was shown. The numbers are style marks, handed on to whoever draws the box.
MORVANE_API MvJsonPtr mvuiMessageBoxEx(const wchar_t* caption, const wchar_t* body, const MvJsonPtr& buttons,
                                       unsigned style, unsigned short kind, short extra);

} // namespace mvsi

namespace morvane {

struct MessageBox {
  OdString caption;
  OdString body;
  std::vector<OdString> buttons; // labels as given, with '&' before the letter that presses them
  unsigned flags = 0;            // of a plain box
  // Style marks of a box with its own buttons. The command line has no use for them.
  unsigned style = 0;
  unsigned short kind = 0;
  short extra = 0;
};

class Host;

// Shows boxes: on the command line, unless somebody else was set to do it. There a wrong answer is told and the
// question asked again; in a script it closes the box, since what comes next was not meant for it.
class MORVANE_API MessageBoxes {
public:
  static constexpr int kClosed = -1;
  using Show = std::function<int(const MessageBox&)>; // the index of the pressed button, or kClosed

  explicit MessageBoxes(Host& host) : host_(host) {}
  void setShow(Show show) { show_ = std::move(show); } // empty: the command line
  int show(const MessageBox& box);

  // Told of every box once it is closed, with the pressed button or kClosed.
  using Watch = std::function<void(const MessageBox&, int pressed)>;
  void setWatch(Watch watch) { watch_ = std::move(watch); }
  // Where nobody answers, questions are shown on the command line and closed without a choice.
  void setInteractive(bool interactive) { interactive_ = interactive; }
  bool asks() const { return interactive_; }
  static bool isQuestion(const MessageBox& box) { return box.buttons.size() > 1; }

  // For its lifetime boxes are put into `seen` and closed, unshown and untold.
  class MORVANE_API Reader {
  public:
    Reader(MessageBoxes& boxes, MessageBox& seen);
    ~Reader();
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

  private:
    MessageBoxes& boxes_;
    Show show_;
    Watch watch_;
  };

private:
  int showOnCommandLine(const MessageBox& box);
  int promptOnCommandLine(const MessageBox& box);
  Host& host_;
  Show show_;
  Watch watch_;
  bool interactive_ = true;
};

// The button that an answer presses: its number from 1, its letter, or its label without mark and letter, ignoring
// case. kClosed for any other text.
MORVANE_API int buttonOf(const std::vector<OdString>& labels, const OdString& answer);

} // namespace morvane
