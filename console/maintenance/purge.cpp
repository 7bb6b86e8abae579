#include "console/maintenance/purge.h"

#include "DbBlockTable.h"
#include "DbDictionary.h"
#include "DbSymbolRecords.h"

#include <algorithm>

namespace console {
namespace {

using drawing::PurgePlan;

OdString purgeName(OdDbObjectId id) {
  const OdDbObjectPtr object = id.safeOpenObject();
  if (const auto* record = dynamic_cast<const OdDbSymbolTableRecord*>(object.get()))
    return record->getName();
  const OdDbObjectPtr owner = object.isNull() ? OdDbObjectPtr() : object->ownerId().safeOpenObject();
  const auto* dictionary = dynamic_cast<const OdDbDictionary*>(owner.get());
  return dictionary == nullptr ? OdString() : dictionary->nameAt(id);
}

OdDbObjectIdArray idsOf(const std::vector<NamedThing>& things) {
  OdDbObjectIdArray ids;
  for (const NamedThing& thing : things)
    ids.append(thing.id);
  return ids;
}

OdString ascii(const std::string& text) {
  return OdString::fromUtf8(text);
}

OdString useText(const KeptThing& kept, const PurgePlan::Use& use) {
  if (use.by.isNull())
    return render(Text::kUseByVariable, {ascii(use.variable)});
  const NamedThing by = thingOf(use.by);
  if (by.kind == "dimension style" && kept.thing.kind == "block")
    return render(Text::kUseByArrow, {by.name});
  if (by.kind == "block")
    return render(Text::kUseByBlock, {by.name, count(use.times)});
  if (by.kind == "space")
    return render(Text::kUseBySpace, {by.name, count(use.times)});
  return render(Text::kUseByRecord, {by.name, count(use.times), ascii(by.kind)});
}

} // namespace

const std::vector<std::string>& purgeKindNames() {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> all;
    for (const drawing::PurgeKind& kind : drawing::purgeKinds())
      all.push_back(kind.name);
    return all;
  }();
  return names;
}

std::vector<NamedThing> thingsToPurge(OdDbDatabase& database, const std::vector<std::string>& kinds) {
  std::vector<NamedThing> things;
  for (const drawing::PurgeKind& kind : drawing::purgeKinds()) {
    if (!kinds.empty() && std::find(kinds.begin(), kinds.end(), kind.name) == kinds.end())
      continue;
    for (OdDbObjectId id : drawing::objectsOfKind(database, kind))
      things.push_back({kind.name, purgeName(id), id});
  }
  return things;
}

std::vector<NamedThing> purgeable(OdDbDatabase& database, const std::vector<NamedThing>& things) {
  OdDbObjectIdArray ids = idsOf(things);
  database.purge(ids);
  std::vector<NamedThing> found;
  OdDbObjectIdArray::size_type next = 0;
  for (const NamedThing& thing : things) {
    if (next < ids.size() && ids[next] == thing.id) {
      found.push_back(thing);
      ++next;
    }
  }
  return found;
}

std::vector<NamedThing> purge(OdDbDatabase& database, const std::vector<NamedThing>& things) {
  std::vector<NamedThing> purged = purgeable(database, things);
  for (const NamedThing& thing : purged)
    OdDbObjectPtr(thing.id.safeOpenObject(OdDb::kForWrite))->erase();
  return purged;
}

std::vector<KeptThing> keptThings(OdDbDatabase& database, const std::vector<NamedThing>& things) {
  const PurgePlan plan(database, idsOf(things));
  std::vector<KeptThing> kept;
  for (const NamedThing& thing : things) {
    if (const auto status = plan.statusOf(thing.id); status != PurgePlan::Status::Purgeable)
      kept.push_back({thing, status, plan.usesOf(thing.id)});
  }
  return kept;
}

NamedThing thingOf(OdDbObjectId id) {
  const OdDbObjectPtr object = id.safeOpenObject();
  if (const auto* block = dynamic_cast<const OdDbBlockTableRecord*>(object.get()))
    return {block->isLayout() ? "space" : "block", block->getName(), id};
  const auto* record = dynamic_cast<const OdDbSymbolTableRecord*>(object.get());
  for (const drawing::PurgeKind& kind : drawing::purgeKinds()) {
    if (record != nullptr && record->tableKind() == kind.table)
      return {kind.name, record->getName(), id};
  }
  if (object.isNull())
    return {"object", ascii(id.getHandle().ascii()), id};
  const OdString name = purgeName(id);
  return {object->dxfName(), name.isEmpty() ? ascii(id.getHandle().ascii()) : name, id};
}

OdString reasonOf(const KeptThing& kept) {
  if (kept.status == PurgePlan::Status::Needed)
    return render(Text::kUseNeeded);
  if (kept.status == PurgePlan::Status::External)
    return render(Text::kUseExternal);
  constexpr std::size_t kMost = 5;
  OdString reason;
  for (std::size_t i = 0; i < kept.uses.size() && i < kMost; ++i)
    reason += (i == 0 ? OdString() : OdString(L", ")) + useText(kept, kept.uses[i]);
  return kept.uses.size() <= kMost ? reason : reason + L" " + render(Text::kUseMore, {count(kept.uses.size() - kMost)});
}

} // namespace console
