#include "morvane/files/read_file.h"

#include <array>
#include <cstdio>
#include <memory>

namespace morvane::files {

std::optional<std::string> readWhole(const std::string& path) {
  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  const std::unique_ptr<std::FILE, Close> file(std::fopen(path.c_str(), "rbe"));
  if (file == nullptr)
    return std::nullopt;
  std::string bytes;
  std::array<char, 1 << 16> chunk;
  while (const std::size_t count = std::fread(chunk.data(), 1, chunk.size(), file.get()))
    bytes.append(chunk.data(), count);
  return std::ferror(file.get()) == 0 ? std::optional(std::move(bytes)) : std::nullopt;
}

} // namespace morvane::files
