// Purging and renaming as commands and sub-verbs do them.
#pragma once

#include "console/session/session.h"

#include "drawing/purge.h"

namespace console {

// A block, layer, style ... as people and machines are told of it.
struct NamedThing {
  std::string kind; // "block", "layer" ...
  OdString name;
  OdDbObjectId id;
};

// Those of the kinds, of all kinds when none is named, in the order of the kinds.
std::vector<NamedThing> thingsToPurge(OdDbDatabase& database, const std::vector<std::string>& kinds);
const std::vector<std::string>& purgeKindNames();

// Erases what can go and answers it.
std::vector<NamedThing> purge(OdDbDatabase& database, const std::vector<NamedThing>& things);
// What can go.
std::vector<NamedThing> purgeable(OdDbDatabase& database, const std::vector<NamedThing>& things);

// Why a thing stays.
struct KeptThing {
  NamedThing thing;
  drawing::PurgePlan::Status status = drawing::PurgePlan::Status::Used;
  std::vector<drawing::PurgePlan::Use> uses;
};
std::vector<KeptThing> keptThings(OdDbDatabase& database, const std::vector<NamedThing>& things);
// "referenced by block "A" (2 times), arrow of dimension style "B" and 3 more"
OdString reasonOf(const KeptThing& kept);
NamedThing thingOf(OdDbObjectId id); // what uses something

} // namespace console
