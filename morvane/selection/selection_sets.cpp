#include "morvane/host.h"
#include "morvane/selection.h"

#include "DbEntity.h"

namespace morvane {
namespace {

// The second value of a name.
constexpr long kEntityName = 1;
constexpr long kSetName = 2;

bool isEmptyName(const long* name) {
  return name == nullptr || (name[0] == 0 && name[1] == 0);
}

void writeEntityName(const OdDbObjectId& id, long* name) {
  name[0] = static_cast<long>((static_cast<std::uint64_t>(id.serial()) << 32) | id.number());
  name[1] = kEntityName;
}

OdDbObjectId readEntityName(const long* name) {
  if (name == nullptr || name[1] != kEntityName)
    return OdDbObjectId();
  const auto bits = static_cast<std::uint64_t>(name[0]);
  return OdDbObjectId(static_cast<std::uint32_t>(bits >> 32), static_cast<std::uint32_t>(bits));
}

bool isEntity(const OdDbObjectId& id) {
  const OdRxClass* kind = id.isValid() ? id.objectClass() : nullptr;
  return kind != nullptr && kind->isDerivedFrom(OdDbEntity::desc());
}

// Erased ones too: undo may bring them back.
void setHighlight(const OdDbObjectId& id, bool on) {
  if (const OdDbEntityPtr entity = OdDbEntity::cast(id.safeOpenObject(OdDb::kForRead, true)); !entity.isNull())
    entity->highlight(on);
}

} // namespace

const SelectionSets::Set* SelectionSets::find(const long* name) const {
  if (name == nullptr || name[1] != kSetName)
    return nullptr;
  const auto found = sets_.find(name[0]);
  return found == sets_.end() ? nullptr : &found->second;
}

int SelectionSets::setFirst(const long* pickFirst, const long* grips) {
  const Set* set = find(pickFirst);
  const bool known = (isEmptyName(pickFirst) || set != nullptr) && (isEmptyName(grips) || find(grips) != nullptr);
  if (!known)
    return RTERROR;
  std::vector<OdDbObjectId> picked = set == nullptr ? std::vector<OdDbObjectId>() : set->members;
  for (const OdDbObjectId& id : pickFirst_)
    setHighlight(id, false);
  pickFirst_ = std::move(picked);
  for (const OdDbObjectId& id : pickFirst_)
    setHighlight(id, true);
  return RTNORM;
}

int SelectionSets::free(const long* set) {
  if (find(set) == nullptr)
    return RTERROR;
  sets_.erase(set[0]);
  return RTNORM;
}

int SelectionSets::length(const long* set, int* count) const {
  const Set* found = find(set);
  if (found == nullptr || count == nullptr)
    return RTERROR;
  *count = static_cast<int>(found->members.size());
  return RTNORM;
}

// `set` is read to the end before `result` is written: they may be one.
int SelectionSets::add(const long* member, const long* set, long* result) {
  if (member == nullptr || result == nullptr || (!isEmptyName(set) && find(set) == nullptr))
    return RTERROR;
  std::vector<OdDbObjectId> ids;
  if (const Set* other = find(member)) {
    ids = other->members;
  } else {
    const OdDbObjectId id = readEntityName(member);
    if (!id.isValid())
      return RTERROR;
    if (!isEntity(id))
      return RTREJ;
    ids.push_back(id);
  }
  const long number = isEmptyName(set) ? ++lastNumber_ : set[0];
  Set& target = sets_[number];
  for (const OdDbObjectId& id : ids) {
    if (target.known.insert(id).second)
      target.members.push_back(id);
  }
  result[0] = number;
  result[1] = kSetName;
  return RTNORM;
}

int SelectionSets::memberAt(const long* set, int index, long* member) const {
  const Set* found = find(set);
  if (found == nullptr || member == nullptr || index < 0 || static_cast<std::size_t>(index) >= found->members.size())
    return RTERROR;
  writeEntityName(found->members[static_cast<std::size_t>(index)], member);
  return RTNORM;
}

} // namespace morvane

namespace mvsi {

int mvsidbGetObjectId(OdDbObjectId& id, const long* name) {
  const bool admitted = morvane::admitCall("mvsidbGetObjectId") != nullptr;
  id = morvane::readEntityName(name);
  if (admitted && id.isValid())
    return 0;
  id = OdDbObjectId();
  return RTERROR;
}

int mvsidbGetAdsName(long* name, const OdDbObjectId& id) {
  if (morvane::admitCall("mvsidbGetAdsName") == nullptr || name == nullptr || !id.isValid())
    return RTERROR;
  morvane::writeEntityName(id, name);
  return 0;
}

int RxSelectSet::impliedSelect(const void*) {
  ids_.clear();
  morvane::Host* host = morvane::admitCall("impliedSelect");
  const MvsiApDocument* document = host == nullptr ? nullptr : host->documents().current();
  if (document == nullptr)
    return RTERROR;
  for (const OdDbObjectId& id : host->selections().pickFirst()) {
    if (!id.isErased() && id.database() == document->database())
      ids_.push_back(id);
  }
  return ids_.empty() ? RTERROR : 0;
}

int RxSelectSet::asIdArray(OdDbObjectIdArray& ids) const {
  if (morvane::admitCall("asIdArray") == nullptr)
    return RTERROR;
  for (const OdDbObjectId& id : ids_) {
    if (id.isValid() && !id.isErased())
      ids.append(id);
  }
  return 0;
}

int RxSelectSet::hilight(bool on, int index) const {
  constexpr int kAll = -1;
  morvane::Host* host = morvane::admitCall("hilight");
  if (host == nullptr || index < kAll || index >= static_cast<int>(ids_.size()))
    return RTERROR;
  for (std::size_t at = 0; at < ids_.size(); ++at) {
    if (index == kAll || static_cast<std::size_t>(index) == at)
      morvane::setHighlight(ids_[at], on);
  }
  host->documents().refresh(host->documents().current());
  return 0;
}

} // namespace mvsi
