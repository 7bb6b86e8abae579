// Filters between a drawing of one version and a file of another.
#pragma once

#include "DbDatabase.h"
#include "drawing/io/forwarding_sink.h"
#include "drawing/io/version_rules.h"

#include <string>
#include <unordered_set>

namespace drawing::dxf {

// Objects that the version cannot hold at all, with everything that they own. References to them are written as none.
class OmittedObjects {
public:
  // Nothing unless the version is earlier than the drawing's own.
  OmittedObjects(const OdDbDatabase& database, OdDb::DwgVersion version);
  bool has(OdDbObjectId id) const { return ids_.count(id) != 0; }
  bool empty() const { return ids_.empty(); }
  // Reports each of them once.
  void reportTo(GroupSink& sink) const;

private:
  void addOwned(const OdDbDatabase& database);
  std::unordered_set<OdDbObjectId> ids_;
  std::vector<OdDbObjectId> first_; // those that are omitted themselves
};

// Omits groups that the version does not have, and reports each kind of them. Graphics that other programs put into the
// common section have another code since 2010.
class VersionFilter final : public ForwardingSink {
public:
  VersionFilter(GroupSink& to, const OmittedObjects& omitted) : ForwardingSink(to), omitted_(omitted) {}

  void utf8(int code, std::string_view text) override;
  void real(int code, double value) override {
    if (admit(code, value))
      to_.real(code, value);
  }
  void integer(int code, std::int64_t value) override;
  void reference(int code, OdDbObjectId id) override;
  void binary(int code, std::string_view bytes) override {
    if (admit(code))
      to_.binary(code, bytes);
  }
  void unparsed(int code, std::string_view text) override {
    if (admit(code))
      to_.unparsed(code, text);
  }

  void omitted(int code, std::string_view marker, double value) override;

private:
  // Where the groups are of the record that is being written.
  struct State {
    std::string kind, marker;
    bool afterGradient = false;
    bool afterFill = false;
    bool inColumns = false; // texts have theirs in an embedded object since 2018
    bool inData = false;    // extended data and embedded objects have codes of their own
  };

  // Takes the state past the next group, and returns whether the group is written; what is omitted is reported.
  bool admit(int code, double value = kNoNumber);
  bool admitColumns(int code, double value);
  bool admitSubclassGroup(int code, double value);
  void reportOmittedGroup(const GroupRule& rule, int code);

  const OmittedObjects& omitted_;
  State state_;
};

} // namespace drawing::dxf
