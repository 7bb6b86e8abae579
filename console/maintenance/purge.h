// Purging and renaming as commands and subcommands do them.
#pragma once

#include "console/session/session.h"

#include "drawing/purge.h"

namespace console {

// A block, layer, style ... as it is reported in text and JSON.
struct NamedObject {
  std::string kind; // "block", "layer" ...
  OdString name;
  OdDbObjectId id;
};

// Those of the kinds, of all kinds when none is named, in the order of the kinds.
std::vector<NamedObject> objectsToPurge(OdDbDatabase& database, const std::vector<std::string>& kinds);
const std::vector<std::string>& purgeKindNames();

// Erases what can go and answers it.
std::vector<NamedObject> purge(OdDbDatabase& database, const std::vector<NamedObject>& objects);
// What can go.
std::vector<NamedObject> purgeable(OdDbDatabase& database, const std::vector<NamedObject>& objects);

// Why a thing stays.
struct KeptObject {
  NamedObject object;
  drawing::PurgePlan::Status status = drawing::PurgePlan::Status::kUsed;
  std::vector<drawing::PurgePlan::Use> uses;
};
std::vector<KeptObject> keptObjects(OdDbDatabase& database, const std::vector<NamedObject>& objects);
// "referenced by block "A" (2 times), arrow of dimension style "B" and 3 more"
OdString reasonOf(const KeptObject& kept);
NamedObject namedObject(OdDbObjectId id); // what uses something

} // namespace console
