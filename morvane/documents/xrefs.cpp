#include "morvane/documents/xrefs.h"
#include "morvane/host.h"
#include "morvane/system_services.h"

#include "drawing/file.h"

#include <algorithm>
#include <filesystem>

namespace morvane::documents {
namespace {

namespace fs = std::filesystem;

OdString bareName(const OdString& path) {
  const int separator = std::max({path.reverseFind(L'\\'), path.reverseFind(L'/'), path.reverseFind(L':')});
  return path.mid(separator + 1);
}

// The entry of the folder with that name, without regard to case; the first by its bytes where there are several.
fs::path entryNamed(const fs::path& folder, const fs::path& name) {
  std::error_code error;
  if (fs::exists(folder / name, error))
    return folder / name;
  const OdString wanted = OdString::fromUtf8(name.string());
  fs::path found;
  for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
    const fs::path& entry = at->path();
    if (OdString::fromUtf8(entry.filename().string()).iCompare(wanted) == 0 && (found.empty() || entry < found))
      found = entry;
  }
  return found;
}

// A file below a folder. Drawings come from case-insensitive systems, so each part of the path may differ in case.
std::optional<OdString> fileBelow(const PathMap& paths, const fs::path& folder, const OdString& name) {
  fs::path at = folder.empty() ? fs::path(".") : folder;
  for (const fs::path& part : fs::path(paths.toSystem(name))) {
    at = entryNamed(at, part);
    if (at.empty())
      return std::nullopt;
  }
  std::error_code error;
  if (!fs::is_regular_file(at, error))
    return std::nullopt;
  const fs::path full = fs::absolute(at, error).lexically_normal();
  return error ? std::nullopt : std::optional(paths.toDrawing(full.string()));
}

} // namespace

std::optional<OdString> findInDrawingFolder(const PathMap& paths, const SearchPath& search, const OdString& saved,
                                            const OdDbDatabase& from) {
  const std::string& path = from.fileInfo().path;
  const auto beside = [&](const OdString& name) {
    return path.empty() ? std::nullopt : fileBelow(paths, fs::path(path).parent_path(), name);
  };
  const bool isRelative = !fs::path(paths.toSystem(saved)).is_absolute();
  std::optional<OdString> found = isRelative ? beside(saved) : std::nullopt;
  if (!found)
    found = search.find(paths, saved);
  const OdString name = bareName(saved);
  if (!found && name != saved)
    found = beside(name);
  return found || name == saved ? found : search.find(paths, name);
}

drawing::Report loadXrefs(const PathMap& paths, const SearchPath& search, const drawing::ReadOptions& reading,
                          OdDbDatabase& database) {
  drawing::XrefLoader loader;
  loader.find = [&](const OdString& saved, const OdDbDatabase& from) {
    const auto found = findInDrawingFolder(paths, search, saved, from);
    return found ? paths.toSystem(*found) : std::string();
  };
  loader.open = [&reading](const std::string& path) { return drawing::readDrawing(path, reading); };
  return drawing::loadXrefs(database, loader);
}

} // namespace morvane::documents

OdString MvdbSystemServices::findFile(const OdString& fileName, const OdDbDatabase* database, FindFileHint) const {
  morvane::Host* host = morvane::admitCall("findFile");
  if (host == nullptr)
    return {};
  const auto found = database == nullptr ? host->searchPath().find(host->paths(), fileName)
                                         : morvane::documents::findInDrawingFolder(host->paths(), host->searchPath(),
                                                                                   fileName, *database);
  return found.value_or(OdString());
}

drawing::ReadResult MvdbSystemServices::readDrawing(const OdString& path) const {
  morvane::Host* host = morvane::admitCall("readDrawing");
  if (host != nullptr)
    return drawing::readDrawing(host->paths().toSystem(path), host->reading());
  drawing::ReadResult refused;
  refused.result = eFileAccessErr;
  refused.message = "no host is available to read \"" + path.toUtf8Lossless() + "\"";
  return refused;
}

MvdbSystemServices& mvdbSystemServices() {
  static MvdbSystemServices services;
  return services;
}
