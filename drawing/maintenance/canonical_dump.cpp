#include "drawing/dump.h"

#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbSymbolTable.h"
#include "drawing/detail/sequence_owner.h"
#include "drawing/maintenance/dump_sink.h"
#include "drawing/model/object_store.h"
#include "drawing/model/symbol_name.h"
#include "drawing/model/symbol_table_kinds.h"
#include "drawing/records/acds_records.h"

#include <algorithm>
#include <unordered_map>

namespace drawing {

namespace {

// Names of all objects: each is called by its owner's name and its place there. Owners are named before what they own,
// in waves, so that no depth of ownership matters.
class Names {
public:
  explicit Names(const OdDbDatabase& database) {
    for (int kind = 0; kind < OdDb::kSymbolTableCount; ++kind)
      nameTable(database.getSymbolTableId(static_cast<OdDb::SymbolTableKind>(kind)));
    assign(database.getNamedObjectsDictionaryId(), "/");
    while (!open_.empty()) {
      const OdDbObjectId id = open_.back();
      open_.pop_back();
      nameOwned(*lookup(id), names_[id]);
    }
    for (OdDbObjectId id : database.allIds()) { // objects without an owner
      if (const OdDbObject* object = lookup(id); isAlive(object) && names_.find(id) == names_.end())
        assign(id, "?" + object->dxfName() + "#" + std::to_string(++strays_));
    }
  }

  std::string of(OdDbObjectId id) const {
    if (id.isNull())
      return "0";
    const auto found = names_.find(id);
    return found == names_.end() ? "gone" : found->second;
  }

private:
  void assign(OdDbObjectId id, const std::string& name) {
    if (isAlive(id) && names_.emplace(id, name).second)
      open_.push_back(id);
  }

  void nameTable(OdDbObjectId id) {
    const auto* table = getIf<OdDbSymbolTable>(id);
    if (table == nullptr)
      return;
    assign(id, table->dxfName());
    std::size_t ordinal = 0;
    for (OdDbObjectId member : table->members().ids()) {
      if (!isAlive(member))
        continue;
      std::string name = table->dxfName() + "/" + symbolName(member).toUtf8Lossless();
      if (names_.find(member) == names_.end() && !unique_.insert({name, 0}).second)
        name += "#" + std::to_string(++ordinal); // tiles of viewports share a name
      assign(member, name);
    }
  }

  void nameOwned(const OdDbObject& object, const std::string& name) {
    if (const auto* dictionary = OdDbDictionary::cast(&object).get()) {
      for (const OdDbDictionary::Entry& entry : dictionary->entries())
        assign(entry.id, name + (name == "/" ? "" : "/") + entry.name.toUtf8Lossless());
    }
    assign(object.extensionDictionary(), name + "!");
    std::vector<OdDbObjectId> owned;
    object.ownedObjects(owned);
    std::size_t ordinal = 0;
    for (OdDbObjectId id : owned) {
      if (isAlive(id))
        assign(id, name + "#" + std::to_string(ordinal++));
    }
  }

  std::unordered_map<OdDbObjectId, std::string> names_;
  std::unordered_map<std::string, int> unique_;
  std::vector<OdDbObjectId> open_;
  std::size_t strays_ = 0;
};

void dumpHeader(const OdDbDatabase& database, DumpSink& sink, std::string& out) {
  std::vector<const OdDbHeader::Variable*> variables;
  for (const OdDbHeader::Variable& variable : database.header().variables())
    variables.push_back(&variable);
  std::sort(variables.begin(), variables.end(), [](const auto* a, const auto* b) { return a->name < b->name; });
  for (const auto* variable : variables) {
    if (variable->name == "HANDSEED" || variable->name == "ACADVER" || variable->name == "DWGCODEPAGE")
      continue;
    out += "$" + variable->name + "\n";
    variable->groups.writeTo(sink);
  }
}

// Objects by handle, or by name where there are names.
DumpSink::Naming naming(const Names* names) {
  return [names](OdDbObjectId id) -> std::string {
    if (names != nullptr)
      return names->of(id);
    // An erased object and one that never existed are the same to a reader.
    return id.isNull() || id.isErased() ? (id.isNull() ? "0" : "gone") : std::string(id.getHandle().ascii());
  };
}

void dumpObject(const OdDbObject& object, DumpSink& sink, std::string& out) {
  out += sink.nameOf(object.objectId()) + " " + object.dxfName() + " of " + sink.nameOf(object.ownerId()) + "\n";
  dumpExtras(object, sink);
  dumpContents(object, sink);
}

} // namespace

std::string canonicalDump(const OdDbDatabase& database, DumpForm form) {
  std::string out;
  std::unique_ptr<Names> names;
  if (form == DumpForm::kWithoutHandles)
    names = std::make_unique<Names>(database);
  DumpSink sink(out, database, naming(names.get()), names != nullptr);
  dumpHeader(database, sink, out);
  std::vector<std::pair<std::string, const OdDbObject*>> objects;
  for (OdDbObjectId id : database.allIds()) {
    const OdDbObject* object = lookup(id);
    if (!isAlive(object) || object == &database.header())
      continue;
    const std::string handle = id.getHandle().ascii();
    objects.emplace_back(names ? names->of(id) : std::string(16 - handle.size(), '0') + handle, object);
  }
  std::stable_sort(objects.begin(), objects.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  for (const auto& [key, object] : objects)
    dumpObject(*object, sink, out);
  for (const OpaqueSection& subclass : database.opaqueSections()) {
    const GroupList groups = aliveGroups(database, subclass);
    if (groups.empty() && subclass.madeForRecords)
      continue;
    out += "section " + subclass.name + "\n";
    groups.writeTo(sink);
  }
  return out;
}

std::string canonicalName(OdDbObjectId id) {
  const OdDbDatabase* database = id.database();
  return database == nullptr ? "gone" : Names(*database).of(id);
}

} // namespace drawing
