#include "drawing/compare.h"

#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbSymbolTable.h"
#include "drawing/maintenance/dump_sink.h"
#include "drawing/model/object_store.h"
#include "drawing/model/symbol_name.h"
#include "drawing/names.h"

#include <set>
#include <unordered_map>

namespace drawing {
namespace {

std::string foldedName(const OdDbSymbolTableRecord& record) {
  OdString name = record.getName();
  return name.makeLower().toUtf8Lossless();
}

// The records that an object names.
class NamedRecords : public ConstReferenceVisitor {
public:
  explicit NamedRecords(const OdDbObject& object) { object.visitReferences(*this); }
  void visit(OdDbObjectId id, OdDb::ReferenceType) override {
    if (getIf<OdDbSymbolTableRecord>(id) != nullptr)
      ids.push_back(id);
  }
  std::vector<OdDbObjectId> ids;
};

// Where files hold names of records, names that compare stand.
class ContentSink : public DumpSink {
public:
  using DumpSink::DumpSink;
  std::unordered_map<std::string, std::string> names; // of the object that is written

  void utf8(int code, std::string_view text) override {
    const bool mayBeName = code == 2 || code == 3 || (code >= 6 && code <= 8);
    const auto found = mayBeName ? names.find(std::string(text)) : names.end();
    DumpSink::utf8(code, found == names.end() ? text : found->second);
  }
};

// What a definition holds, as text; and the definitions that it names, in the order in which they are met first.
class ContentText {
public:
  explicit ContentText(OdDbObjectId block) : block_(block) {
    const auto* record = getIf<OdDbBlockTableRecord>(block);
    std::size_t ordinal = 0;
    for (const OdDbObjectId id : record->drawOrder()) {
      if (isAlive(id))
        assign(id, "#" + std::to_string(ordinal++));
    }
    for (std::size_t at = 0; at < owned_.size(); ++at) // grows meanwhile
      nameOwned(owned_[at]);
    write(*block.database());
  }

  const std::string& text() const { return text_; }
  const std::vector<OdDbObjectId>& nested() const { return nested_; }

private:
  void assign(OdDbObjectId id, const std::string& name) {
    if (isAlive(id) && names_.emplace(id, name).second)
      owned_.push_back(id);
  }

  void nameOwned(OdDbObjectId id) {
    const OdDbObject& object = *lookup(id);
    const std::string name = names_[id];
    if (const auto* dictionary = OdDbDictionary::cast(&object).get()) {
      for (const OdDbDictionary::Entry& entry : dictionary->entries())
        assign(entry.id, name + "/" + entry.name.toUtf8Lossless());
    }
    assign(object.extensionDictionary(), name + "!");
    std::vector<OdDbObjectId> parts;
    object.ownedObjects(parts);
    std::size_t ordinal = 0;
    for (const OdDbObjectId part : parts)
      assign(part, name + "." + std::to_string(ordinal++));
  }

  std::string nameOf(OdDbObjectId id) {
    if (id.isNull() || !isAlive(id))
      return "0";
    if (id == block_)
      return "self";
    if (const auto found = names_.find(id); found != names_.end())
      return found->second;
    const auto* record = getIf<OdDbSymbolTableRecord>(id);
    if (record == nullptr)
      return "outside " + lookup(id)->dxfName();
    return record->isKindOf(OdDbBlockTableRecord::desc()) ? nestedName(id) : foldedName(*record);
  }

  std::string nestedName(OdDbObjectId id) {
    const auto [found, isNew] = places_.emplace(id, nested_.size());
    if (isNew)
      nested_.push_back(id);
    return "definition " + std::to_string(found->second);
  }

  void write(const OdDbDatabase& database) {
    ContentSink sink(
        text_, database, [this](OdDbObjectId id) { return nameOf(id); }, true);
    for (const OdDbObjectId id : owned_) {
      const OdDbObject& object = *lookup(id);
      sink.names.clear();
      for (const OdDbObjectId record : NamedRecords(object).ids)
        sink.names.emplace(symbolName(record).toUtf8Lossless(), nameOf(record));
      text_ += names_[id] + " " + object.dxfName() + "\n";
      dumpContents(object, sink);
    }
  }

  OdDbObjectId block_;
  std::unordered_map<OdDbObjectId, std::string> names_;
  std::vector<OdDbObjectId> owned_;
  std::unordered_map<OdDbObjectId, std::size_t> places_;
  std::vector<OdDbObjectId> nested_;
  std::string text_;
};

std::string recordText(const OdDbObject& record) {
  std::string text;
  const auto naming = [](OdDbObjectId id) {
    const auto* named = getIf<OdDbSymbolTableRecord>(id);
    return named == nullptr ? std::string("outside") : foldedName(*named);
  };
  ContentSink sink(text, *record.database(), naming, true);
  for (const OdDbObjectId named : NamedRecords(record).ids)
    sink.names.emplace(symbolName(named).toUtf8Lossless(), naming(named));
  sink.names[symbolName(record.objectId()).toUtf8Lossless()] = "self";
  dumpContents(record, sink);
  return text;
}

// Where the block's contents are taken hold of. A space has the drawing's base point.
OdGePoint3d baseOf(OdDbObjectId block) {
  const auto* record = getIf<OdDbBlockTableRecord>(block);
  const bool isModel = block == block.database()->getModelSpaceId();
  return isModel ? block.database()->getINSBASE() : record->origin();
}

} // namespace

bool sameDefinition(OdDbObjectId one, OdDbObjectId other) {
  std::vector<std::pair<OdDbObjectId, OdDbObjectId>> open{{one, other}};
  std::set<std::pair<OdDbObjectId, OdDbObjectId>> seen;
  while (!open.empty()) {
    const auto [left, right] = open.back();
    open.pop_back();
    if (left == right || !seen.insert({left, right}).second)
      continue;
    if (getIf<OdDbBlockTableRecord>(left) == nullptr || getIf<OdDbBlockTableRecord>(right) == nullptr)
      return false;
    const ContentText a(left), b(right);
    if (!(baseOf(left) == baseOf(right)) || a.text() != b.text())
      return false;
    for (std::size_t at = 0; at < a.nested().size(); ++at)
      open.emplace_back(a.nested()[at], b.nested()[at]);
  }
  return true;
}

bool sameRecord(OdDbObjectId one, OdDbObjectId other) {
  const auto* left = getIf<OdDbSymbolTableRecord>(one);
  const auto* right = getIf<OdDbSymbolTableRecord>(other);
  if (left == nullptr || right == nullptr || left->isA() != right->isA() || left->isA() == OdDbBlockTableRecord::desc())
    return false;
  return recordText(*left) == recordText(*right);
}

} // namespace drawing
