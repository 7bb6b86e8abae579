// The data of JSON handles.
#pragma once

#include <nlohmann/json.hpp>

namespace morvane {

struct JsonDocument {
  nlohmann::json root;
  bool changed = false;
};

} // namespace morvane
