// JSON handles, and the configuration of the user that is kept in one.
#pragma once

#include "OdString.h"
#include "morvane/export.h"
#include "morvane/files.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class IElementValueBase;

// A handle of a JSON value; copies are handles of the same value. Null is no value.
class MvJsonPtr : public std::shared_ptr<IElementValueBase> {
public:
  using std::shared_ptr<IElementValueBase>::shared_ptr;
  bool isNull() const { return get() == nullptr; }
};

namespace morvane {
struct JsonDocument;
}

inline constexpr int kMvJsonList = 1;
inline constexpr int kMvJsonObject = 2;

// A list or an object inside a JSON document. The handle is live: it names a place, and what is written through one
// handle is read through every other of that place. Paths are keys with '/' between them (a number picks a list's
// element); the objects on the way to a new value are made. Setters answer false, and change nothing, for an empty path
// or where something else than an object stands in the way. Getters answer `missing` when there is no value of that
// kind.
class MORVANE_API IElementValueBase {
public:
  IElementValueBase(std::shared_ptr<morvane::JsonDocument> document, std::vector<std::string> base);

  int kind() const; // kMvJsonList, kMvJsonObject, or 0 when the value is gone
  bool SetDataS(const char* path, const char* utf8);
  bool SetDataSW(const char* path, const wchar_t* value);
  bool SetDataI(const char* path, int value);
  bool SetDataL(const char* path, std::int64_t value);
  bool SetDataB(const char* path, bool value);

  bool HasData(const char* path) const;
  int GetDataI(const char* path, int missing = 0) const;
  std::int64_t GetDataL(const char* path, std::int64_t missing = 0) const;
  bool GetDataB(const char* path, bool missing = false) const;
  OdString GetDataSW(const char* path, const wchar_t* missing = L"") const;

  // Lists: a copy of the element goes to the end; false when this is no list or the element is null.
  bool AppendData(const MvJsonPtr& element);
  int GetDataCount() const;             // elements of a list, keys of an object
  MvJsonPtr GetDataAt(int index) const; // a list's element; null outside

  std::string toText() const; // UTF-8; what is no UTF-8 is shown as U+FFFD

private:
  std::shared_ptr<morvane::JsonDocument> document_;
  std::vector<std::string> base_;
};

class MORVANE_API ElementValue {
public:
  // An empty list or object; null for any other kind.
  static MvJsonPtr createObject(int kind = kMvJsonObject);
};

namespace morvane {

// Sections of settings in one JSON file. A file that cannot be understood is told by loadProblem() and kept beside the
// new one when that is saved.
class MORVANE_API UserConfig {
public:
  // An empty file name keeps the configuration in memory only. Paths are UTF-8.
  UserConfig(std::string file, ReplaceFile replaceFile);
  ~UserConfig();

  const std::string& file() const { return file_; }
  const std::string& loadProblem() const { return loadProblem_; } // empty when it was read, or there was none
  MvJsonPtr section(const std::string& name) const;               // null when there is none
  MvJsonPtr createSection(const std::string& name);               // the old one when there is one
  bool removeSection(const std::string& name);
  bool isChanged() const;
  std::string save(); // empty, or the reason why the file is as it was

private:
  void load();
  std::string keepDamaged();
  std::string file_;
  ReplaceFile replaceFile_;
  std::shared_ptr<JsonDocument> document_;
  std::string loadProblem_;
};

// MORVANE_CONFIG when it is set, else config.json in the user's configuration folder for this application.
MORVANE_API std::string defaultConfigFile();

} // namespace morvane

// The section of the user's configuration, null when there is none. `scope` 2 is the user's own; there is no other.
MORVANE_API MvJsonPtr mv_user_config(const char* section, int scope);
// The same, made when there is none.
MORVANE_API MvJsonPtr mv_user_config_create(const char* section, int scope);
