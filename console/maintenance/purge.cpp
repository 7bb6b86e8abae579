#include "console/maintenance/purge.h"
#include "console/messages/catalog/purge.h"

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

OdDbObjectIdArray idsOf(const std::vector<NamedObject>& objects) {
  OdDbObjectIdArray ids;
  for (const NamedObject& object : objects)
    ids.append(object.id);
  return ids;
}

OdString ascii(const std::string& text) {
  return OdString::fromUtf8(text);
}

OdString useText(const KeptObject& kept, const PurgePlan::Use& use) {
  if (use.by.isNull())
    return render(msg::kUseByVariable, {ascii(use.variable)});
  const NamedObject by = namedObject(use.by);
  if (by.kind == "dimension style" && kept.object.kind == "block")
    return render(msg::kUseByArrow, {by.name});
  if (by.kind == "block")
    return render(msg::kUseByBlock, {by.name, count(use.times)});
  if (by.kind == "space")
    return render(msg::kUseBySpace, {by.name, count(use.times)});
  return render(msg::kUseByRecord, {by.name, count(use.times), ascii(by.kind)});
}

} // namespace

const std::vector<std::string>& purgeKindNames() {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> all;
    for (const drawing::PurgeKind& kind : drawing::purgeKinds())
      all.emplace_back(kind.name);
    return all;
  }();
  return names;
}

std::vector<NamedObject> objectsToPurge(OdDbDatabase& database, const std::vector<std::string>& kinds) {
  std::vector<NamedObject> objects;
  for (const drawing::PurgeKind& kind : drawing::purgeKinds()) {
    if (!kinds.empty() && std::find(kinds.begin(), kinds.end(), kind.name) == kinds.end())
      continue;
    for (OdDbObjectId id : drawing::objectsOfKind(database, kind))
      objects.push_back({kind.name, purgeName(id), id});
  }
  return objects;
}

std::vector<NamedObject> purgeable(OdDbDatabase& database, const std::vector<NamedObject>& objects) {
  OdDbObjectIdArray ids = idsOf(objects);
  database.purge(ids);
  std::vector<NamedObject> found;
  OdDbObjectIdArray::size_type next = 0;
  for (const NamedObject& object : objects) {
    if (next < ids.size() && ids[next] == object.id) {
      found.push_back(object);
      ++next;
    }
  }
  return found;
}

std::vector<NamedObject> purge(OdDbDatabase& database, const std::vector<NamedObject>& objects) {
  std::vector<NamedObject> purged = purgeable(database, objects);
  for (const NamedObject& object : purged)
    OdDbObjectPtr(object.id.safeOpenObject(OdDb::kForWrite))->erase();
  return purged;
}

std::vector<KeptObject> keptObjects(OdDbDatabase& database, const std::vector<NamedObject>& objects) {
  const PurgePlan plan(database, idsOf(objects));
  std::vector<KeptObject> kept;
  for (const NamedObject& object : objects) {
    if (const auto status = plan.statusOf(object.id); status != PurgePlan::Status::kPurgeable)
      kept.push_back({object, status, plan.usesOf(object.id)});
  }
  return kept;
}

NamedObject namedObject(OdDbObjectId id) {
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

OdString reasonOf(const KeptObject& kept) {
  if (kept.status == PurgePlan::Status::kNeeded)
    return render(msg::kUseNeeded);
  if (kept.status == PurgePlan::Status::kExternal)
    return render(msg::kUseExternal);
  constexpr std::size_t kMaxNames = 5;
  OdString reason;
  for (std::size_t i = 0; i < kept.uses.size() && i < kMaxNames; ++i)
    reason += (i == 0 ? OdString() : OdString(L", ")) + useText(kept, kept.uses[i]);
  return kept.uses.size() <= kMaxNames ? reason
                                       : reason + L" " + render(msg::kUseMore, {count(kept.uses.size() - kMaxNames)});
}

} // namespace console
