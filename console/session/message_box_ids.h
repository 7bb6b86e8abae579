// The message boxes of the block commands, as programs distinguish them.
#pragma once

#include "OdString.h"
#include "morvane/message_box.h"

#include <string>
#include <vector>

namespace console {

struct BoxName {
  std::string id;                   // "box.locked-layers": stable; "box.other" for an unknown box
  std::vector<OdString> parameters; // what the body holds of names, paths and numbers, in order, each once
};

BoxName boxNameOf(const morvane::MessageBox& box);

} // namespace console
