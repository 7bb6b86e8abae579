// The message boxes of the block commands, as machines tell them apart.
#pragma once

#include "OdString.h"
#include "morvane/message_box.h"

#include <optional>
#include <string>
#include <vector>

namespace console {

struct BoxName {
  std::string id;                   // "box.locked-layers": stable; "box.other" for a box that nobody knows
  std::vector<OdString> parameters; // what the body holds of names, paths and numbers, in order, each once
};

// Knows a box by its caption and body. The texts are the library's own: each of its boxes is looked at once, with marks
// in place of names and numbers.
class BoxCatalogue {
public:
  // The host that shows the boxes must be installed. Nothing is shown.
  explicit BoxCatalogue(morvane::MessageBoxes& boxes);
  BoxName nameOf(const morvane::MessageBox& box) const;

private:
  struct Known {
    std::string id;
    OdString caption;
    std::vector<OdString> literals; // of the body, around its marks
    std::vector<int> parameterOf;   // which parameter stands between them
  };
  static std::optional<std::vector<OdString>> parametersOf(const Known& known, const OdString& body);
  std::vector<Known> known_;
};

} // namespace console
