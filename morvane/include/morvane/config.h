// JSON handles, and the user configuration that is stored as JSON.
#pragma once

#include "OdString.h"
#include "morvane/export.h"
#include "morvane/files.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class IElementValueBase;

// A handle of a JSON value; copies refer to the same value. A null handle refers to none.
class MvJsonPtr : public std::shared_ptr<IElementValueBase> {
public:
  using std::shared_ptr<IElementValueBase>::shared_ptr;
  bool isNull() const { return get() == nullptr; } // whether it refers to no value
};

namespace morvane {
struct JsonDocument;
}

// Kinds of JSON values that have a handle.
inline constexpr int kMvJsonList = 1;
inline constexpr int kMvJsonObject = 2;

// A list or an object in a JSON document. A handle refers to a position in the document: values that are written
// through it are read through all others of that position. Paths are keys separated by '/' (a number is the index of a
// list element).
class MORVANE_API IElementValueBase {
public:
  // The value at a position, given as keys from the root; it need not exist.
  IElementValueBase(std::shared_ptr<morvane::JsonDocument> document, std::vector<std::string> base);

  int kind() const; // kMvJsonList, kMvJsonObject, or 0 if the value does not exist
  // Set a value, replacing one of any kind; missing objects of the path are created. Return false, and change nothing,
  // for an empty path, one of more than 64 keys, and if a part of it is neither an object nor an existing element.
  bool SetDataS(const char* path, const char* utf8);
  bool SetDataSW(const char* path, const wchar_t* value);
  bool SetDataI(const char* path, int value);
  bool SetDataL(const char* path, std::int64_t value);
  bool SetDataB(const char* path, bool value);

  // Read a value; `missing` if there is none of that kind. Numbers and Boolean values convert into each other; an
  // integer that does not fit the type is missing.
  bool HasData(const char* path) const;
  int GetDataI(const char* path, int missing = 0) const;
  std::int64_t GetDataL(const char* path, std::int64_t missing = 0) const;
  bool GetDataB(const char* path, bool missing = false) const;
  OdString GetDataSW(const char* path, const wchar_t* missing = L"") const;

  // Appends a copy of the element to a list; false if this is not a list or the element is null or does not exist.
  bool AppendData(const MvJsonPtr& element);
  int GetDataCount() const;             // number of elements of a list, or of keys of an object
  MvJsonPtr GetDataAt(int index) const; // element of a list; null for an index outside and for other values

  std::string toText() const; // JSON in UTF-8; bytes that are not UTF-8 become U+FFFD; empty if it does not exist

private:
  std::shared_ptr<morvane::JsonDocument> document_;
  std::vector<std::string> base_;
};

// Creates JSON documents.
class MORVANE_API ElementValue {
public:
  // A new empty list or object in a document of its own; null for any other kind.
  static MvJsonPtr createObject(int kind = kMvJsonObject);
};

namespace morvane {

// Sections of settings in one JSON file. A file that is not valid is reported by loadProblem() and kept with the
// extension
// ".damaged" when the configuration is saved.
class MORVANE_API UserConfig {
public:
  // Reads the file if it exists. With an empty name the configuration is in memory only. Paths are UTF-8.
  UserConfig(std::string file, ReplaceFile replaceFile);
  ~UserConfig();

  // The file, and why it was not read; empty if it was read or does not exist.
  const std::string& file() const { return file_; }
  const std::string& loadProblem() const { return loadProblem_; }
  // A section: null if there is none; created if there is none (null for an empty name); removed (false if there is
  // none).
  MvJsonPtr section(const std::string& name) const;
  MvJsonPtr createSection(const std::string& name);
  bool removeSection(const std::string& name);
  // Whether it was changed since it was read or saved. save creates the folder, replaces the file and returns an empty
  // text, or the reason why the file is unchanged.
  bool isChanged() const;
  std::string save();

private:
  void load();
  std::string keepDamaged();
  std::string file_;
  ReplaceFile replaceFile_;
  std::shared_ptr<JsonDocument> document_;
  std::string loadProblem_;
};

// The environment variable MORVANE_CONFIG if it is set, else morvane/config.json in XDG_CONFIG_HOME or ~/.config.
MORVANE_API std::string defaultConfigFile();

} // namespace morvane

// A section of the user configuration; null if there is none, and without a host. `scope` 2 is that of the user; no
// other exists, and it is not checked.
MORVANE_API MvJsonPtr mv_user_config(const char* section, int scope);
// The same, created if there is none.
MORVANE_API MvJsonPtr mv_user_config_create(const char* section, int scope);
