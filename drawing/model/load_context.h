// The means to turn the groups of a file into values while a drawing is read.
#pragma once

#include "DbDatabase.h"
#include "DbSymbolTable.h"
#include "drawing/model/record.h"
#include "drawing/report.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace drawing {

class MVDRAWING_API LoadContext {
public:
  LoadContext(OdDbDatabase& database, TextDecoder& decoder, Report& report)
      : database_(database), decoder_(decoder), report_(report) {}

  OdDbDatabase& database() { return database_; }
  Report& report() { return report_; }

  // Values. A number that is not readable or not finite fails the record that is being read (see failed) and leaves
  // the value alone.
  bool real(const RawGroup& group, double& value);
  bool integer(const RawGroup& group, std::int64_t& value);
  // One that is out of range for so many bits fails the record, too.
  bool integer(const RawGroup& group, std::int64_t& value, int bits);
  std::string_view utf8(const RawGroup& group); // valid until the next call
  OdString text(const RawGroup& group) { return OdString::fromUtf8(utf8(group)); }
  bool handle(const RawGroup& group, std::uint64_t& value);
  static bool isHandle(const RawGroup& group);
  bool bytes(const RawGroup& group, std::string& value); // appends; hexadecimal in text files
  OdDbObjectId reference(const RawGroup& group);         // of an object that may still come
  // A table; made when the drawing has none of the kind yet, with that handle.
  OdDbSymbolTable& table(OdDb::SymbolTableKind kind, OdDbHandle handle = 0);
  // A record by name. One that does not exist (yet) is made and remembered as missing until the table brings it.
  OdDbObjectId symbol(OdDb::SymbolTableKind kind, const RawGroup& group);
  // Appends the group under its kind; what does not fit its code is appended as unread text.
  void append(GroupList& list, const RawGroup& group);

  // Where the record of an object began, for what is found out when all of the drawing is there; 0 unknown.
  void setLineOf(OdDbObjectId id, std::uint64_t line);
  std::uint64_t lineOf(OdDbObjectId id) const { return id.number() < lines_.size() ? lines_[id.number()] : 0; }

  // A location for the issue that a hook reports.
  void addIssue(Issue issue, const RawGroup* group = nullptr);
  void fail(const RawGroup& group, const char* reason);

  // The record that is being read.
  void begin(std::string_view kind, std::uint64_t line);
  bool failed() const { return failed_; }
  void setHandle(std::uint64_t handle) { handle_ = handle; }
  void setSection(std::string_view section) { section_ = section; }

  // Records that were asked for by name before (or without) being defined.
  std::unordered_map<OdDbObjectId, std::uint64_t>& missing() { return missing_; }
  // Placeholders whose record was read later: from, to.
  std::vector<std::pair<OdDbObjectId, OdDbObjectId>>& redirects() { return redirects_; }

private:
  struct NameCache { // files repeat the name of the layer for every entity
    std::string bytes;
    OdDbObjectId id;
  };

  OdDbObjectId makeMissing(OdDb::SymbolTableKind kind, const OdString& name, const RawGroup& group);

  OdDbDatabase& database_;
  TextDecoder& decoder_;
  Report& report_;
  std::string buffer_;
  NameCache names_[OdDb::kSymbolTableCount];
  std::unordered_map<OdDbObjectId, std::uint64_t> missing_;
  std::vector<std::pair<OdDbObjectId, OdDbObjectId>> redirects_;
  std::vector<std::uint32_t> lines_; // by object number
  std::string section_;
  std::string kind_;
  std::uint64_t line_ = 0;
  std::uint64_t handle_ = 0;
  bool failed_ = false;
};

} // namespace drawing
