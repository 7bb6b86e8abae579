#include "drawing/records/acds_records.h"

#include "drawing/model/object_store.h"

#include <algorithm>
#include <optional>

namespace drawing {

namespace {

constexpr std::string_view kSection = "ACDSDATA", kRecord = "ACDSRECORD", kSchema = "ACDSSCHEMA";
constexpr int kStart = 0, kNumber = 90, kName = 1, kHandle = 320;

struct Run {
  std::size_t first, end;
  bool isRecord;
};

// From each start to the next.
std::vector<Run> runsOf(const GroupList& groups) {
  std::vector<Run> runs;
  for (std::size_t i = groups.find(kStart); i < groups.size();) {
    const std::size_t end = groups.find(kStart, i + 1);
    runs.push_back({i, end, groups.textOf(groups[i]) == kRecord});
    i = end;
  }
  return runs;
}

std::size_t findIn(const GroupList& groups, const Run& run, int code) {
  return std::min(groups.find(code, run.first), run.end);
}

OdDbHandle handleIn(const GroupList& groups, const Run& run) {
  const std::size_t i = findIn(groups, run, kHandle);
  return i < run.end && groups[i].kind == GroupKind::kHandle ? static_cast<std::uint64_t>(groups[i].integer) : 0;
}

std::optional<std::int64_t> numberIn(const GroupList& groups, const Run& run) {
  const std::size_t i = findIn(groups, run, kNumber);
  return i < run.end && groups[i].kind == GroupKind::kInt32 ? std::optional(groups[i].integer) : std::nullopt;
}

std::string_view nameIn(const GroupList& groups, const Run& run) {
  const std::size_t i = findIn(groups, run, kName);
  return i < run.end ? groups.textOf(groups[i]) : std::string_view();
}

// Records state their schema by a number, and schemas have names.
std::string_view layoutNameOf(const GroupList& groups, std::int64_t number) {
  for (const Run& run : runsOf(groups)) {
    if (groups.textOf(groups[run.first]) == kSchema && numberIn(groups, run) == number)
      return nameIn(groups, run);
  }
  return {};
}

std::optional<std::int64_t> layoutNumberOf(const GroupList& groups, std::string_view name) {
  for (const Run& run : runsOf(groups)) {
    if (groups.textOf(groups[run.first]) == kSchema && nameIn(groups, run) == name)
      return numberIn(groups, run);
  }
  return std::nullopt;
}

OpaqueSection* sectionOf(OdDbDatabase& database) {
  for (OpaqueSection& subclass : database.opaqueSections()) {
    if (subclass.name == kSection)
      return &subclass;
  }
  return nullptr;
}

// The head and the layouts of another drawing's section.
OpaqueSection& makeSection(OdDbDatabase& database, const GroupList& like) {
  OpaqueSection made{std::string(kSection), {}, true};
  made.groups.append(like, 0, like.find(kStart));
  for (const Run& run : runsOf(like)) {
    if (!run.isRecord)
      made.groups.append(like, run.first, run.end - run.first);
  }
  database.opaqueSections().push_back(std::move(made));
  return database.opaqueSections().back();
}

void addRecord(GroupList& groups, const GroupList& record, OdDbHandle handle, std::int64_t layout) {
  const std::size_t first = groups.size();
  groups.append(record, 0, record.size());
  groups.setInteger(groups.find(kNumber, first), layout);
  groups.setInteger(groups.find(kHandle, first), static_cast<std::int64_t>(std::uint64_t{handle}));
}

} // namespace

void copyBodyRecords(const OdDbObject& source, const OdDbObject& copy) {
  const OpaqueSection* from = sectionOf(*source.database());
  if (from == nullptr)
    return;
  std::vector<std::pair<GroupList, std::string>> found; // records, and the names of their layouts
  for (const Run& run : runsOf(from->groups)) {
    const auto layout = numberIn(from->groups, run);
    if (!run.isRecord || !layout || handleIn(from->groups, run) != source.getDbHandle())
      continue;
    GroupList record;
    record.append(from->groups, run.first, run.end - run.first);
    found.emplace_back(std::move(record), layoutNameOf(from->groups, *layout));
  }
  if (found.empty())
    return;
  OpaqueSection* to = sectionOf(*copy.database());
  if (to == nullptr)
    to = &makeSection(*copy.database(), from->groups);
  for (const auto& [record, name] : found) {
    if (const auto layout = layoutNumberOf(to->groups, name))
      addRecord(to->groups, record, copy.getDbHandle(), *layout);
  }
}

GroupList aliveGroups(const OdDbDatabase& database, const OpaqueSection& subclass) {
  if (subclass.name != kSection)
    return subclass.groups;
  GroupList alive;
  alive.append(subclass.groups, 0, subclass.groups.find(kStart));
  bool anyRecord = false;
  for (const Run& run : runsOf(subclass.groups)) {
    const OdDbObject* object = run.isRecord ? lookup(database.store().find(handleIn(subclass.groups, run))) : nullptr;
    if (object != nullptr && object->isErased())
      continue;
    anyRecord = anyRecord || run.isRecord;
    alive.append(subclass.groups, run.first, run.end - run.first);
  }
  return subclass.madeForRecords && !anyRecord ? GroupList() : alive;
}

} // namespace drawing
