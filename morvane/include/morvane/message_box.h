// Message boxes.
#pragma once

#include "OdString.h"
#include "morvane/config.h"
#include "morvane/export.h"

#include <functional>
#include <vector>

namespace mvsi {

// Shows a box without buttons of its own: text first, then the caption. RTNORM, or RTERROR without a host.
MORVANE_API int mvuiMessageBox(const wchar_t* text, const wchar_t* caption, unsigned flags);
// Shows a box with buttons: caption first, then the body. `buttons` has the labels under "btnText/0", "btnText/1" ...
// Returns an object with the index of the pressed button under "ControlBtn", or without it if the box was closed
// without a choice; null if no box was shown. The numbers are style flags for the function that displays the box.
MORVANE_API MvJsonPtr mvuiMessageBoxEx(const wchar_t* caption, const wchar_t* body, const MvJsonPtr& buttons,
                                       unsigned style, unsigned short kind, short extra);

} // namespace mvsi

namespace morvane {

// Contents of a box.
struct MessageBox {
  OdString caption;
  OdString body;
  std::vector<OdString> buttons; // labels with '&' before their access key
  unsigned flags = 0;            // for a box without buttons of its own
  // Style flags of a box with buttons. The command line ignores them.
  unsigned style = 0;
  unsigned short kind = 0;
  short extra = 0;
};

class Host;

// Displays boxes on the command line, or through a function. On the command line a wrong answer is reported and the
// question repeated; in a script it closes the box, as the next answer was not intended for it.
class MORVANE_API MessageBoxes {
public:
  // Result of a box that was closed without a choice, and the function that displays a box: it returns the index of the
  // pressed button or kClosed.
  static constexpr int kClosed = -1;
  using Show = std::function<int(const MessageBox&)>;

  explicit MessageBoxes(Host& host) : host_(host) {} // uses the command line of the host, which must outlive it
  // Displays a box through the function that was set (empty: on the command line) and returns its result.
  void setShow(Show show) { show_ = std::move(show); }
  int show(const MessageBox& box);

  // Called for each box after it is closed, with the pressed button or kClosed.
  using Watch = std::function<void(const MessageBox&, int pressed)>;
  void setWatch(Watch watch) { watch_ = std::move(watch); }
  // Whether questions on the command line are answered by a user; otherwise they are printed and closed without a
  // choice.
  void setInteractive(bool interactive) { interactive_ = interactive; }
  bool isInteractive() const { return interactive_; }
  static bool isQuestion(const MessageBox& box) { return box.buttons.size() > 1; } // whether there is a choice

private:
  int showOnCommandLine(const MessageBox& box);
  int promptOnCommandLine(const MessageBox& box);
  Host& host_;
  Show show_;
  Watch watch_;
  bool interactive_ = true;
};

// Index of the button that an answer selects: its number from 1, its access key, or its label without '&' and key,
// ignoring case. kClosed for other text.
MORVANE_API int buttonOf(const std::vector<OdString>& labels, const OdString& answer);

} // namespace morvane
