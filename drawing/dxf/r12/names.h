// Names as R12 can hold them.
#pragma once

#include "DbDatabase.h"
#include "drawing/detail/groups.h"

#include <string>
#include <unordered_map>

namespace drawing::dxf {

// R12 knows names of up to 31 letters, digits, "$", "-" and "_". Other names are changed: what is not allowed becomes
// "_", what is too long is cut, and where that makes two names one a number is added. A drawing that came as R12 keeps
// the names that it has: some program could read them.
class R12Names {
public:
  explicit R12Names(const OdDbDatabase& database);
  // The name of R12 for that of a record; the name itself if it is not a record.
  std::string_view of(OdDb::SymbolTableKind table, std::string_view name) const;
  void reportChanges(GroupSink& sink) const; // every change

private:
  struct Change {
    OdDbObjectId record;
    std::string from, to;
  };
  void addTable(const OdDbDatabase& database, OdDb::SymbolTableKind table);

  std::unordered_map<std::string, std::string> names_[OdDb::kSymbolTableCount]; // by the folded name
  std::vector<Change> changes_;
};

} // namespace drawing::dxf
