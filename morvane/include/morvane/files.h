// Files: paths as drawings spell them, the search path, and the safe replacement of a file.
#pragma once

#include "OdString.h"
#include "morvane/export.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

// Replaces the file at `path` by these bytes as a whole: after a failure the old file is untouched. The answer is
// empty, or the reason of the failure. Paths and reasons are UTF-8.
using ReplaceFile = std::function<std::string(const std::string& path, std::string_view bytes)>;

// As drawings are saved (drawing::replaceFile). A new file may be read by its owner only.
MORVANE_API std::string replaceFileSafely(const std::string& path, std::string_view bytes);

// Drawings speak backslashes and drive letters; this is the only place that turns them into paths of this system.
class MORVANE_API PathMap {
public:
  // The folder that stands behind a drive letter; a drive without one is the root folder. False when it is no letter.
  bool setDrive(wchar_t letter, std::string folder);

  // The path for file operations. Bytes that are no UTF-8 survive the way out and back.
  std::string toSystem(const OdString& path) const;
  // The same file as drawings spell it: below a drive's folder with the letter (the deepest folder wins), else from the
  // root or relative.
  OdString toDrawing(const std::string& path) const;

private:
  std::map<wchar_t, std::string> drives_;
};

// Where files are looked for that are named without their folder.
class MORVANE_API SearchPath {
public:
  void setFolders(std::vector<std::string> folders) { folders_ = std::move(folders); }
  const std::vector<std::string>& folders() const { return folders_; }
  // Looked in first; empty when the current drawing has no file.
  void setDrawingFolder(std::string folder) { drawingFolder_ = std::move(folder); }

  // The full path of an ordinary file as drawings spell it: as named, else in the drawing's folder, else in the folders
  // in their order. Nothing for an empty name or when there is no such file.
  std::optional<OdString> find(const PathMap& paths, const OdString& name) const;

private:
  std::vector<std::string> folders_;
  std::string drawingFolder_;
};

} // namespace morvane

// Paths in UTF-8 as drawings spell them, mapped by the current host.
MORVANE_API bool mvutIsExistFile(const char* path); // an ordinary file is there
MORVANE_API bool isDir(const char* path);
