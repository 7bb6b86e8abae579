// Purging: records and styles that are not used in the drawing.
#pragma once

#include "DbDatabase.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace drawing {

// A kind of objects that can be purged: the records of a table, or the entries of a dictionary in the named-objects
// dictionary.
struct PurgeKind {
  const char* name;            // "block", "layer", "table style" ... for reports
  OdDb::SymbolTableKind table; // kNoTable: a dictionary
  const wchar_t* dictionary;   // null for tables
};
// All kinds, in the order of reports.
MVDRAWING_API const std::vector<PurgeKind>& purgeKinds();
// All objects of the kind that are not erased, in order of addition.
MVDRAWING_API OdDbObjectIdArray objectsOfKind(const OdDbDatabase& database, const PurgeKind& kind);

// Which of the candidates can be purged, and the reasons for the others. It is computed in one traversal of the drawing
// and valid until the drawing changes. All references count except ownership and persistent reactors: ids in
// properties, in extended data and in preserved groups, and names that are stored as text (layers in extended data,
// current styles of the header, dimension arrowheads of old styles ...). Candidates that are used only by candidates
// that can be purged can be purged with them.
class MVDRAWING_API PurgePlan {
public:
  // Status of an object.
  enum class Status {
    kPurgeable,
    kUsed,
    kNeeded,   // mandatory in every drawing: spaces, layer 0, the standard styles ...
    kExternal, // an external reference, or dependent on one
    kNoRecord  // not a candidate, or not a kind that can be purged
  };
  // A use of a candidate: a block or another record with everything that it owns, any other object, or a variable.
  struct Use {
    OdDbObjectId by;      // null: the variable of that name in the header or in the dictionary of variables
    std::string variable; // without the dollar sign
    std::size_t times = 0;
  };

  // For all objects of all kinds, or for these candidates. The drawing is not changed.
  explicit PurgePlan(OdDbDatabase& database);
  PurgePlan(OdDbDatabase& database, const OdDbObjectIdArray& candidates);

  // Purgeable candidates in their order; status of an object; uses of a candidate by objects that are not purged, in
  // order of ids, variables last.
  const OdDbObjectIdArray& purgeable() const { return purgeable_; }
  Status statusOf(OdDbObjectId id) const;
  std::vector<Use> usesOf(OdDbObjectId id) const;

private:
  friend class PurgeTraversal;
  OdDbObjectIdArray purgeable_;
  std::unordered_map<OdDbObjectId, Status> statuses_;
  std::unordered_map<OdDbObjectId, std::vector<Use>> uses_;
};

} // namespace drawing
