#include "morvane/files.h"

namespace morvane {
namespace {

bool isLetter(wchar_t ch) {
  return (ch >= L'A' && ch <= L'Z') || (ch >= L'a' && ch <= L'z');
}

std::string withoutClosingSlash(std::string folder) {
  while (!folder.empty() && folder.back() == '/')
    folder.pop_back();
  return folder;
}

} // namespace

bool PathMap::setDrive(wchar_t letter, std::string folder) {
  if (!isLetter(letter))
    return false;
  drives_[upperCase(letter)] = withoutClosingSlash(std::move(folder));
  return true;
}

std::string PathMap::toSystem(const OdString& path) const {
  OdString rest(path.visible());
  rest.replace(L'\\', L'/');
  if (rest.getLength() < 2 || !isLetter(rest.getAt(0)) || rest.getAt(1) != L':')
    return rest.toUtf8Lossless();
  const auto drive = drives_.find(upperCase(rest.getAt(0)));
  const std::string folder = drive == drives_.end() ? std::string() : drive->second;
  std::string below = rest.mid(2).toUtf8Lossless();
  // There is no current folder of a drive: "C:a" is "C:\a".
  return folder + (below.starts_with('/') ? "" : "/") + below;
}

OdString PathMap::toDrawing(const std::string& path) const {
  std::string below = path;
  OdString prefix;
  std::size_t deepest = 0;
  for (const auto& [letter, folder] : drives_) {
    const bool inside = path == folder || path.starts_with(folder + "/");
    if (!inside || folder.size() <= deepest)
      continue;
    deepest = folder.size();
    prefix = OdString(letter, 1) + L':';
    below = path.substr(folder.size());
  }
  OdString text = OdString::fromUtf8(below);
  text.replace(L'/', L'\\');
  return prefix + text;
}

} // namespace morvane
