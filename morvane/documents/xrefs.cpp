#include "morvane/documents/xrefs.h"
#include "morvane/host.h"
#include "morvane/system_services.h"

#include "DbDxf.h"

#include <algorithm>
#include <filesystem>

namespace morvane::documents {
namespace {

namespace fs = std::filesystem;

OdString bareName(const OdString& path) {
  const int separator = std::max({path.reverseFind(L'\\'), path.reverseFind(L'/'), path.reverseFind(L':')});
  return path.mid(separator + 1);
}

} // namespace

std::optional<OdString> findBeside(const PathMap& paths, const SearchPath& search, const OdString& saved,
                                   const OdDbDatabase& from) {
  SearchPath own;
  own.setFolders({fs::path(from.facts().path).parent_path().string()});
  const bool hasFolder = !from.facts().path.empty();
  const bool isRelative = !fs::path(paths.toSystem(saved)).is_absolute();
  const auto beside = [&](const OdString& name) { return hasFolder ? own.findInFolders(paths, name) : std::nullopt; };
  std::optional<OdString> found = isRelative ? beside(saved) : std::nullopt;
  if (!found)
    found = search.find(paths, saved);
  const OdString name = bareName(saved);
  if (!found && name != saved)
    found = beside(name);
  return found || name == saved ? found : search.find(paths, name);
}

drawing::Report loadXrefs(const PathMap& paths, const SearchPath& search, OdDbDatabase& database) {
  drawing::XrefLoader loader;
  loader.find = [&](const OdString& saved, const OdDbDatabase& from) {
    const auto found = findBeside(paths, search, saved, from);
    return found ? paths.toSystem(*found) : std::string();
  };
  return drawing::loadXrefs(database, loader);
}

} // namespace morvane::documents

OdString MvdbSystemServices::findFile(const OdString& fileName, const OdDbDatabase* database, FindFileHint) const {
  morvane::Host* host = morvane::admitCall("findFile");
  if (host == nullptr)
    return {};
  const auto found = database == nullptr
                         ? host->searchPath().find(host->paths(), fileName)
                         : morvane::documents::findBeside(host->paths(), host->searchPath(), fileName, *database);
  return found.value_or(OdString());
}

MvdbSystemServices& mvdbSystemServices() {
  static MvdbSystemServices services;
  return services;
}
