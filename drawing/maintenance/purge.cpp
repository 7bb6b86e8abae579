#include "drawing/purge.h"

#include "DbBlockTable.h"
#include "DbDictionary.h"
#include "DbSymbolRecords.h"
#include "drawing/maintenance/names_in_text.h"
#include "drawing/model/object_store.h"
#include "drawing/model/reserved_names.h"

#include <algorithm>
#include <unordered_set>

namespace drawing {

const std::vector<PurgeKind>& purgeKinds() {
  static const std::vector<PurgeKind> kinds = {
      {"block", OdDb::kBlockTable, nullptr},
      {"layer", OdDb::kLayerTable, nullptr},
      {"line type", OdDb::kLinetypeTable, nullptr},
      {"text style", OdDb::kTextStyleTable, nullptr},
      {"dimension style", OdDb::kDimStyleTable, nullptr},
      {"group", OdDb::kNoTable, L"ACAD_GROUP"},
      {"multiline style", OdDb::kNoTable, L"ACAD_MLINESTYLE"},
      {"multileader style", OdDb::kNoTable, L"ACAD_MLEADERSTYLE"},
      {"table style", OdDb::kNoTable, L"ACAD_TABLESTYLE"},
      {"material", OdDb::kNoTable, L"ACAD_MATERIAL"},
      {"detail view style", OdDb::kNoTable, L"ACAD_DETAILVIEWSTYLE"},
      {"section view style", OdDb::kNoTable, L"ACAD_SECTIONVIEWSTYLE"},
      {"application", OdDb::kRegAppTable, nullptr},
  };
  return kinds;
}

namespace {

const OdDbDictionary* dictionaryOf(const OdDbDatabase& database, const wchar_t* name) {
  const auto* root = getIf<OdDbDictionary>(database.getNamedObjectsDictionaryId());
  return root == nullptr ? nullptr : getIf<OdDbDictionary>(root->getAt(name));
}

PurgePlan::Status protectedStatus(OdDbObjectId id) {
  const OdDbObject* object = lookup(id);
  if (!isAlive(object))
    return PurgePlan::Status::kNoRecord;
  if (const auto* record = dynamic_cast<const OdDbSymbolTableRecord*>(object)) {
    if (isExternal(*record))
      return PurgePlan::Status::kExternal;
    return isNeeded(*record) ? PurgePlan::Status::kNeeded : PurgePlan::Status::kPurgeable;
  }
  const auto* dictionary = getIf<OdDbDictionary>(object->ownerId());
  if (dictionary == nullptr)
    return PurgePlan::Status::kNoRecord;
  const bool needed = isAnyOf(dictionary->nameAt(id), {L"Standard", L"ByLayer", L"ByBlock", L"Global"});
  return needed ? PurgePlan::Status::kNeeded : PurgePlan::Status::kPurgeable;
}

} // namespace

// What an object refers to, its reactors excepted: they are only notified of changes.
class PurgeCollector final : public ConstReferenceVisitor {
public:
  void begin(const OdDbObject& object) {
    ids.clear();
    const auto* extras = object.extrasOrNull();
    reactors_.clear();
    if (extras != nullptr)
      reactors_.insert(extras->reactors.begin(), extras->reactors.end());
  }
  void visit(OdDbObjectId id, OdDb::ReferenceType type) override {
    const auto reactor = type == OdDb::kSoftPointerRef ? reactors_.find(id) : reactors_.end();
    if (reactor != reactors_.end())
      reactors_.erase(reactor);
    else if (!id.isNull())
      ids.push_back(id);
  }
  std::vector<OdDbObjectId> ids;

private:
  std::unordered_multiset<OdDbObjectId> reactors_;
};

OdDbObjectIdArray objectsOfKind(const OdDbDatabase& database, const PurgeKind& kind) {
  OdDbObjectIdArray ids;
  const auto add = [&ids](OdDbObjectId id) {
    if (isAlive(id))
      ids.append(id);
  };
  if (const auto* table = getIf<OdDbSymbolTable>(
          kind.table == OdDb::kNoTable ? OdDbObjectId() : database.getSymbolTableId(kind.table))) {
    for (OdDbObjectId id : table->members().ids())
      add(id);
  }
  const auto* dictionary = kind.dictionary == nullptr ? nullptr : dictionaryOf(database, kind.dictionary);
  for (std::size_t i = 0; dictionary != nullptr && i < dictionary->numEntries(); ++i)
    add(dictionary->entries()[i].id);
  return ids;
}

// A candidate and everything below it are one unit: it stays when a unit that stays, or anything outside all units,
// refers to it.
class PurgeTraversal {
public:
  PurgeTraversal(OdDbDatabase& database, const OdDbObjectIdArray& candidates, PurgePlan& plan)
      : database_(database), candidates_(candidates), plan_(plan), units_(database.store().count(), kUnknown) {}

  void run() {
    for (OdDbObjectId id : candidates_) {
      const auto status = id.database() == &database_ ? protectedStatus(id) : PurgePlan::Status::kNoRecord;
      plan_.statuses_[id] = status;
      if (status == PurgePlan::Status::kPurgeable)
        units_[id.number()] = id.number();
      const auto* style = getIf<OdDbTextStyleTableRecord>(id);
      if (style != nullptr && style->isShapeFile() && isCandidate(id))
        shapeFiles_.push_back(id);
    }
    for (OdDbObjectId id : database_.allIds()) {
      OdDbObject* object = lookup(id);
      if (isAlive(object) && object != &database_.header())
        collect(*object);
    }
    collectVariables();
    mark();
    for (OdDbObjectId id : candidates_) {
      if (plan_.statuses_[id] == PurgePlan::Status::kPurgeable)
        plan_.purgeable_.append(id);
    }
  }

private:
  static constexpr std::uint32_t kUnknown = UINT32_MAX, kOutside = 0;

  std::uint32_t unitOf(OdDbObjectId id) {
    std::vector<std::uint32_t> path;
    std::uint32_t number = id.number();
    while (number != 0 && units_[number] == kUnknown) {
      units_[number] = kOutside; // a chain of owners that bites its tail ends here
      path.push_back(number);
      const OdDbObject* object = database_.store().object(OdDbObjectId(id.serial(), number));
      number = object == nullptr ? 0 : object->ownerId().number();
    }
    const std::uint32_t unit = number == 0 ? kOutside : units_[number];
    for (const std::uint32_t passed : path)
      units_[passed] = unit;
    return unit;
  }

  // Whom a report names: the record that owns the object, else the object itself.
  OdDbObjectId topLevelUser(const OdDbObject& object) const {
    constexpr int kSearchLimit = 64; // owners of owners; damaged drawings may have rings
    const OdDbObject* at = &object;
    for (int step = 0; at != nullptr && step < kSearchLimit; ++step) {
      if (at->isKindOf(OdDbSymbolTableRecord::desc()))
        return at->objectId();
      at = lookup(at->ownerId());
    }
    return object.objectId();
  }

  bool isCandidate(OdDbObjectId id) const {
    return id.serial() == database_.store().serial() && id.number() < units_.size() &&
           units_[id.number()] == id.number() && !id.isNull();
  }

  void collect(const OdDbObject& object) {
    collector_.begin(object);
    object.visitReferences(collector_);
    std::vector<OdDbObjectId>& ids = collector_.ids;
    if (object.ownerId() == groups() && isCandidate(object.objectId()))
      collectGroup(object, ids);
    collectNames(object, ids);
    // A shape stores the name of its shape and not its file.
    if (!shapeFiles_.empty() && object.dxfName() == "SHAPE")
      ids.insert(ids.end(), shapeFiles_.begin(), shapeFiles_.end());
    for (OdDbObjectId id : ids) {
      if (isCandidate(id) && lookup(id)->ownerId() != object.objectId())
        use(object, id);
    }
  }

  OdDbObjectId groups() const {
    const auto* dictionary = dictionaryOf(database_, L"ACAD_GROUP");
    return dictionary == nullptr ? OdDbObjectId() : dictionary->objectId();
  }

  // A group lives by its members.
  void collectGroup(const OdDbObject& group, const std::vector<OdDbObjectId>& members) {
    for (OdDbObjectId id : members) {
      const auto* entity = getIf<OdDbEntity>(id);
      if (isAlive(entity))
        use(*entity, group.objectId());
    }
  }

  // A record that is named and referred to by one object is used once.
  void collectNames(const OdDbObject& object, std::vector<OdDbObjectId>& ids) {
    names_.clear();
    collectTextualReferences(object, names_);
    if (names_.empty())
      return;
    std::unordered_set<OdDbObjectId> known(ids.begin(), ids.end());
    for (const TextualReference& name : names_) {
      const GroupList& list = listOf(object, name);
      const OdDbObjectId id = database_.symbol(name.kind, list.stringOf(list[name.at]));
      if (!id.isNull() && known.insert(id).second)
        ids.push_back(id);
    }
  }

  void use(const OdDbObject& by, OdDbObjectId used) {
    const std::uint32_t from = unitOf(by.objectId());
    if (from == used.number())
      return;
    const OdDbObjectId user = topLevelUser(by);
    ++times_[(static_cast<std::uint64_t>(user.number()) << 32) | used.number()];
    edges_.emplace_back(from, used.number());
  }

  void collectVariables() {
    for (const OdDbHeader::Variable& variable : database_.header().variables()) {
      for (std::size_t i = 0; i < variable.groups.size(); ++i) {
        if (variable.groups[i].kind == GroupKind::kReference)
          useByVariable(variable.name, variable.groups.idOf(variable.groups[i]));
      }
    }
    for (const NameVariable& variable : nameVariables())
      useByVariable(variable.variable, namedBy(database_, variable));
  }

  void useByVariable(const std::string& variable, OdDbObjectId id) {
    if (!isCandidate(id))
      return;
    edges_.emplace_back(kOutside, id.number());
    variables_[id].push_back({OdDbObjectId(), variable, 1});
  }

  void mark() {
    std::sort(edges_.begin(), edges_.end());
    edges_.erase(std::unique(edges_.begin(), edges_.end()), edges_.end());
    std::vector<std::uint32_t> open{kOutside};
    std::unordered_set<std::uint32_t> staying{kOutside};
    while (!open.empty()) {
      const std::uint32_t from = open.back();
      open.pop_back();
      for (auto edge = std::lower_bound(edges_.begin(), edges_.end(), std::pair(from, std::uint32_t{0}));
           edge != edges_.end() && edge->first == from; ++edge) {
        if (staying.insert(edge->second).second)
          open.push_back(edge->second);
      }
    }
    collectUses(staying);
  }

  void collectUses(const std::unordered_set<std::uint32_t>& staying) {
    const std::uint32_t serial = database_.store().serial();
    for (const auto& [key, times] : times_) {
      const OdDbObjectId used(serial, static_cast<std::uint32_t>(key));
      const OdDbObjectId user(serial, static_cast<std::uint32_t>(key >> 32));
      if (staying.count(used.number()) == 0 || staying.count(unitOf(user)) == 0)
        continue;
      plan_.uses_[used].push_back({user, "", times});
    }
    for (auto& [used, uses] : plan_.uses_)
      std::sort(uses.begin(), uses.end(), [](const auto& a, const auto& b) { return a.by < b.by; });
    for (auto& [used, uses] : variables_)
      plan_.uses_[used].insert(plan_.uses_[used].end(), uses.begin(), uses.end());
    for (auto& [id, status] : plan_.statuses_) {
      if (status == PurgePlan::Status::kPurgeable && staying.count(id.number()) != 0)
        status = PurgePlan::Status::kUsed;
    }
  }

  OdDbDatabase& database_;
  const OdDbObjectIdArray& candidates_;
  PurgePlan& plan_;
  std::vector<std::uint32_t> units_; // by object number: the candidate above, or kOutside
  PurgeCollector collector_;
  std::vector<TextualReference> names_;
  std::vector<OdDbObjectId> shapeFiles_; // candidates
  std::vector<std::pair<std::uint32_t, std::uint32_t>> edges_;
  std::unordered_map<std::uint64_t, std::size_t> times_; // by holder and candidate
  std::unordered_map<OdDbObjectId, std::vector<PurgePlan::Use>> variables_;
};

PurgePlan::PurgePlan(OdDbDatabase& database) {
  OdDbObjectIdArray all;
  for (const PurgeKind& kind : purgeKinds())
    all.append(objectsOfKind(database, kind));
  PurgeTraversal(database, all, *this).run();
}

PurgePlan::PurgePlan(OdDbDatabase& database, const OdDbObjectIdArray& candidates) {
  PurgeTraversal(database, candidates, *this).run();
}

PurgePlan::Status PurgePlan::statusOf(OdDbObjectId id) const {
  const auto found = statuses_.find(id);
  return found == statuses_.end() ? Status::kNoRecord : found->second;
}

std::vector<PurgePlan::Use> PurgePlan::usesOf(OdDbObjectId id) const {
  const auto found = uses_.find(id);
  return found == uses_.end() ? std::vector<Use>() : found->second;
}

} // namespace drawing

OdResult OdDbDatabase::purge(OdDbObjectIdArray& ids) {
  ids = drawing::PurgePlan(*this, ids).purgeable();
  return eOk;
}
