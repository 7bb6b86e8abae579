// Names of entities and selection sets, the sets themselves, and the selection made before a command.
//
// A name is two values: what it names and which kind of name it is, so that an entity is never taken for a set.
#pragma once

#include "DbObjectId.h"
#include "morvane/export.h"

#include <map>
#include <unordered_set>
#include <vector>

namespace mvsi {

// 0 on success. RTERROR, and a null id, for {0, 0}, for the name of a set, and for an object whose drawing is gone.
MORVANE_API int mvsidbGetObjectId(OdDbObjectId& id, const long* name);
// 0 on success. RTERROR, and the name as it was, for an id that is not valid.
MORVANE_API int mvsidbGetAdsName(long* name, const OdDbObjectId& id);

// What was selected before the command.
class MORVANE_API RxSelectSet {
public:
  // Takes what is left of the pick-first selection in the current drawing. 0 when that is something, else RTERROR.
  // There is no filter but none.
  int impliedSelect(const void* filter = nullptr);
  // Appends the members that are not erased.
  int asIdArray(OdDbObjectIdArray& ids) const;
  // Highlights the member at that index, or all for -1, or takes the highlight away, and has the views drawn anew.
  int hilight(bool on, int index) const;

private:
  std::vector<OdDbObjectId> ids_;
};

} // namespace mvsi

namespace morvane {

// The selection sets of a host. Every operation answers a host result code; a name that is not that of a living set is
// RTERROR, {0, 0} included.
class MORVANE_API SelectionSets {
public:
  // What becomes pick-first is highlighted, what no longer is loses its highlight. The host keeps no grips.
  int setFirst(const long* pickFirst, const long* grips);
  int free(const long* set);
  int length(const long* set, int* count) const;
  // Adds an entity, or the members of another set, each once. An empty set name makes a new set. RTREJ for objects that
  // are no entities.
  int add(const long* member, const long* set, long* result);
  int memberAt(const long* set, int index, long* member) const;

  const std::vector<OdDbObjectId>& pickFirst() const { return pickFirst_; }

private:
  struct Set {
    std::vector<OdDbObjectId> members;
    std::unordered_set<OdDbObjectId> known;
  };
  const Set* find(const long* name) const;
  std::map<long, Set> sets_;
  std::vector<OdDbObjectId> pickFirst_;
  long lastNumber_ = 0; // numbers are not used twice, so a freed name stays dead
};

} // namespace morvane
