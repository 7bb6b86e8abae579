// Records and styles that nothing in the drawing uses.
#pragma once

#include "DbDatabase.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace drawing {

// What can be purged: the records of a table, or the members of a dictionary right below the named-objects dictionary.
struct PurgeKind {
  const char* name;            // "block", "layer", "table style" ... for reports
  OdDb::SymbolTableKind table; // kNoTable: a dictionary
  const wchar_t* dictionary;   // null for tables
};
MVDRAWING_API const std::vector<PurgeKind>& purgeKinds();
// Every living object of the kind, in order of addition.
MVDRAWING_API OdDbObjectIdArray objectsOfKind(const OdDbDatabase& database, const PurgeKind& kind);

// Which of the candidates can go, and why the others stay. One walk over the drawing; it holds until the drawing
// changes. Every reference counts but ownership and the lists of persistent reactors: ids in any property, in extended
// data and in data that is carried, and names that are held as text (layers in extended data, current styles of the
// header, dimension arrows of old styles ...). What is used by candidates alone that can go themselves goes with them.
class MVDRAWING_API PurgePlan {
public:
  enum class Standing {
    Purgeable,
    Used,
    Needed,   // every drawing has it: spaces, layer 0, the standard styles ...
    External, // an external reference, or a part of one
    NoRecord  // not asked about, or no record that purging knows
  };
  // Someone who uses a candidate: a block or another record with everything it owns, any other object, or a variable.
  struct Use {
    OdDbObjectId by;      // null: the header's or the drawing's variable of that name
    std::string variable; // without the dollar sign
    std::size_t times = 0;
  };

  explicit PurgePlan(OdDbDatabase& database); // everything of all kinds
  PurgePlan(OdDbDatabase& database, const OdDbObjectIdArray& candidates);

  const OdDbObjectIdArray& purgeable() const { return purgeable_; } // in the order of the candidates
  Standing standingOf(OdDbObjectId id) const;
  std::vector<Use> usesOf(OdDbObjectId id) const; // by what stays; in order of ids, variables last

private:
  friend class PurgeWalk;
  OdDbObjectIdArray purgeable_;
  std::unordered_map<OdDbObjectId, Standing> standings_;
  std::unordered_map<OdDbObjectId, std::vector<Use>> uses_;
};

} // namespace drawing
