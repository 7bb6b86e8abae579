// Reading a file as a whole.
#pragma once

#include <optional>
#include <string>

namespace morvane::files {

// All bytes of the file; nothing when it does not open or does not read to its end (a folder, a failing disk).
std::optional<std::string> readWhole(const std::string& path);

} // namespace morvane::files
