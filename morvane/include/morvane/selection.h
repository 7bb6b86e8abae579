// Names of entities and selection sets, the sets themselves, and the selection made before a command.
//
// A name is two values: the number of what it names and the kind of name, so that an entity is never mistaken for a
// set. {0, 0} is the empty name.
#pragma once

#include "DbObjectId.h"
#include "morvane/export.h"

#include <map>
#include <unordered_set>
#include <vector>

namespace mvsi {

// Id of an entity name. 0 on success; RTERROR and a null id for the empty name, the name of a set, an object whose
// drawing is closed, and without a host.
MORVANE_API int mvsidbGetObjectId(OdDbObjectId& id, const long* name);
// Entity name of an id. 0 on success; RTERROR, and the name unchanged, for an id that is not valid and without a host.
MORVANE_API int mvsidbGetAdsName(long* name, const OdDbObjectId& id);

// The selection that was made before a command.
class MORVANE_API RxSelectSet {
public:
  // Copies the members of the pick-first selection that are in the current drawing and not erased. 0, or RTERROR if
  // there are none, without a document and without a host. The filter is ignored.
  int impliedSelect(const void* filter = nullptr);
  // Appends the members that are not erased. 0, or RTERROR without a host.
  int asIdArray(OdDbObjectIdArray& ids) const;
  // Switches the highlight of the member at that index, or of all for -1, on or off and redraws the views. 0, or
  // RTERROR for an index outside and without a host.
  int hilight(bool on, int index) const;

private:
  std::vector<OdDbObjectId> ids_;
};

} // namespace mvsi

namespace morvane {

// The selection sets of a host. Every operation returns RTNORM, or RTERROR for a name that is not that of an existing
// set and for null results.
class MORVANE_API SelectionSets {
public:
  // Makes the members of a set the pick-first selection, which is highlighted; null or empty: no selection. Grips must
  // be null, empty or a set, and are otherwise ignored.
  int setFirst(const long* pickFirst, const long* grips);
  int free(const long* set);                     // deletes a set; its name stays invalid
  int length(const long* set, int* count) const; // number of members, erased ones included
  // Adds an entity, or the members of another set, without duplicates. An empty set name creates a set. `result`
  // receives the name of the set and may be `set`. RTREJ for an object that is not an entity.
  int add(const long* member, const long* set, long* result);
  int memberAt(const long* set, int index, long* member) const; // entity name of a member; RTERROR for an index outside

  const std::vector<OdDbObjectId>& pickFirst() const { return pickFirst_; } // the selection, erased objects included

private:
  struct Set {
    std::vector<OdDbObjectId> members;
    std::unordered_set<OdDbObjectId> known;
  };
  const Set* find(const long* name) const;
  std::map<long, Set> sets_;
  std::vector<OdDbObjectId> pickFirst_;
  long lastNumber_ = 0; // numbers are not reused, so the name of a deleted set stays invalid
};

} // namespace morvane
