// Files: paths of drawings, the search path, and safe replacement of a file. Paths of drawings have backslashes and
// drive letters; paths of the system are bytes, UTF-8 as a rule.
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

// Replaces the file at `path` by these bytes: after a failure the old file is unchanged. Returns an empty text, or the
// reason of the failure. Paths and reasons are UTF-8.
using ReplaceFile = std::function<std::string(const std::string& path, std::string_view bytes)>;

// Replaces a file as drawings are saved (drawing::replaceFile). A new file may be read by its owner only.
MORVANE_API std::string replaceFileSafely(const std::string& path, std::string_view bytes);

// Converts between paths of drawings and of the system; nothing else does.
class MORVANE_API PathMap {
public:
  // Sets the folder of a drive letter; a drive without one is the root folder. False if it is not a letter.
  bool setDrive(wchar_t letter, std::string folder);

  // System path of a drawing path. Bytes that are not UTF-8 are preserved in both directions.
  std::string toSystem(const OdString& path) const;
  // Drawing path of a system path: with a drive letter below the folder of a drive (the deepest folder applies), else
  // absolute without a letter or relative.
  OdString toDrawing(const std::string& path) const;

private:
  std::map<wchar_t, std::string> drives_;
};

// Folders in which files without a folder are searched.
class MORVANE_API SearchPath {
public:
  // The folders in order, as system paths.
  void setFolders(std::vector<std::string> folders) { folders_ = std::move(folders); }
  const std::vector<std::string>& folders() const { return folders_; }
  // Folder of the current drawing, which is searched first; empty if it has no file.
  void setDrawingFolder(std::string folder) { drawingFolder_ = std::move(folder); }

  // Full drawing path of an ordinary file: as named, else in the folder of the drawing, else in the folders in their
  // order. No value for an empty name and if the file does not exist.
  std::optional<OdString> find(const PathMap& paths, const OdString& name) const;

private:
  std::vector<std::string> folders_;
  std::string drawingFolder_;
};

} // namespace morvane

// Whether there is an ordinary file, or a folder, at a drawing path in UTF-8; false without a host.
MORVANE_API bool mvutIsExistFile(const char* path);
MORVANE_API bool isDir(const char* path);
