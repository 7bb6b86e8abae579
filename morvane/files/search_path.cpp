#include "morvane/files.h"
#include "morvane/host.h"

#include <filesystem>

namespace morvane {
namespace {

namespace fs = std::filesystem;

bool isOrdinaryFile(const fs::path& path) {
  std::error_code ignored;
  return fs::is_regular_file(path, ignored);
}

} // namespace

std::optional<OdString> SearchPath::find(const PathMap& paths, const OdString& name) const {
  const fs::path wanted = paths.toSystem(name);
  if (wanted.empty())
    return std::nullopt;
  std::vector<fs::path> places = {wanted};
  if (!wanted.is_absolute()) {
    if (!drawingFolder_.empty())
      places.push_back(fs::path(drawingFolder_) / wanted);
    for (const std::string& folder : folders_)
      places.push_back(fs::path(folder) / wanted);
  }
  for (const fs::path& candidate : places) {
    std::error_code error;
    if (!isOrdinaryFile(candidate))
      continue;
    const fs::path full = fs::absolute(candidate, error).lexically_normal();
    if (!error)
      return paths.toDrawing(full.string());
  }
  return std::nullopt;
}

} // namespace morvane

namespace {

std::filesystem::path systemPath(morvane::Host& host, const char* path) {
  return host.paths().toSystem(OdString::fromUtf8(path));
}

} // namespace

bool mvutIsExistFile(const char* path) {
  morvane::Host* host = morvane::admitCall("mvutIsExistFile");
  return host != nullptr && path != nullptr && morvane::isOrdinaryFile(systemPath(*host, path));
}

bool isDir(const char* path) {
  morvane::Host* host = morvane::admitCall("isDir");
  std::error_code ignored;
  return host != nullptr && path != nullptr && std::filesystem::is_directory(systemPath(*host, path), ignored);
}
