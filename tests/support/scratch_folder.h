// A folder of its own for a test's files, removed with it.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <stdlib.h>
#include <string>

namespace tests {

class ScratchFolder {
public:
  ScratchFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "scratch-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr)
      throw std::runtime_error("no scratch folder");
    path_ = std::filesystem::canonical(pattern);
  }
  ~ScratchFolder() { std::filesystem::remove_all(path_); }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  const std::filesystem::path& path() const { return path_; } // without links in it
  std::string at(const std::string& name) const { return (path_ / name).string(); }

private:
  std::filesystem::path path_;
};

} // namespace tests
