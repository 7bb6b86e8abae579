#include "DbDictionary.h"

#include "DbDatabase.h"
#include "DbIdMapping.h"
#include "drawing/model/load_context.h"
#include "drawing/model/object_store.h"

#include "drawing/model/setters.h"
#include "drawing/model/visit_references.h"
#include <algorithm>
#include <unordered_map>

using drawing::field;

MVDRAWING_DEFINE_OBJECT(OdDbDictionary, OdDbObject, "DICTIONARY");
MVDRAWING_DEFINE_OBJECT(OdDbDictionaryWithDefault, OdDbDictionary, "ACDBDICTIONARYWDFLT");
MVDRAWING_DEFINE_OBJECT(OdDbXrecord, OdDbObject, "XRECORD");
MVDRAWING_DEFINE_OBJECT(OdDbDictionaryVar, OdDbObject, "DICTIONARYVAR");
MVDRAWING_DEFINE_OBJECT(OdDbHeader, OdDbObject, "");

const drawing::Description& OdDbDictionary::ownDescription() {
  static const drawing::Description description(
      &OdDbObject::ownDescription(),
      {{"AcDbDictionary",
        {field<&OdDbDictionary::hardOwner_>(280).unless(0), field<&OdDbDictionary::mergeStyle_>(281)},
        &readGroup,
        &writeGroups}});
  return description;
}

bool OdDbDictionary::readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context) {
  auto& dictionary = static_cast<OdDbDictionary&>(object);
  if (group.code == 3) {
    // A name whose object never comes stays in the list, without one.
    dictionary.entries_.push_back({context.text(group), OdDbObjectId()});
    dictionary.awaitsObject_ = true;
    dictionary.index_.drop();
    return true;
  }
  if (group.code != 350 && group.code != 360)
    return false;
  // An id without a name before it belongs to nothing that we know; it is carried.
  if (!dictionary.awaitsObject_)
    return false;
  dictionary.hardOwner_ = dictionary.hardOwner_ || group.code == 360;
  dictionary.entries_.back().id = context.reference(group);
  dictionary.awaitsObject_ = false;
  return true;
}

void OdDbDictionary::writeGroups(const OdDbObject& object, drawing::GroupSink& sink) {
  const auto& dictionary = static_cast<const OdDbDictionary&>(object);
  for (const Entry& entry : dictionary.entries_) {
    if (OdDbObject* member = drawing::lookup(entry.id); member != nullptr && member->isErased())
      continue;
    sink.text(3, entry.name);
    sink.reference(dictionary.hardOwner_ ? 360 : 350, entry.id);
  }
}

// The first place of each name and id.
struct OdDbDictionary::Index {
  struct FoldHash {
    std::size_t operator()(const OdString& text) const { return foldHash(text); }
  };
  struct FoldEqual {
    bool operator()(const OdString& a, const OdString& b) const { return a.iCompare(b) == 0; }
  };
  std::unordered_map<OdString, std::size_t, FoldHash, FoldEqual> byName;
  std::unordered_map<OdDbObjectId, std::size_t> byId;
  void add(const Entry& entry, std::size_t index) {
    byName.emplace(entry.name, index);
    byId.emplace(entry.id, index);
  }
};

// Most dictionaries hold an entry or two; an index would cost more than it saves.
const OdDbDictionary::Index* OdDbDictionary::index() const {
  constexpr std::size_t kLinearSearchLimit = 16;
  if (entries_.size() <= kLinearSearchLimit)
    return nullptr;
  if (index_.get() == nullptr) {
    Index& made = index_.make();
    for (std::size_t i = 0; i < entries_.size(); ++i)
      made.add(entries_[i], i);
  }
  return index_.get();
}

std::size_t OdDbDictionary::indexOf(const OdString& name) const {
  if (const Index* known = index(); known != nullptr) {
    const auto found = known->byName.find(name);
    return found == known->byName.end() ? entries_.size() : found->second;
  }
  const auto found = std::find_if(entries_.begin(), entries_.end(),
                                  [&name](const Entry& entry) { return entry.name.iCompare(name) == 0; });
  return static_cast<std::size_t>(found - entries_.begin());
}

OdDbObjectId OdDbDictionary::getAt(const OdString& name) const {
  // A file may hold a name twice; one whose object is erased stands for nothing.
  for (std::size_t i = indexOf(name); i < entries_.size(); ++i) {
    if (!entries_[i].id.isErased() && entries_[i].name.iCompare(name) == 0)
      return entries_[i].id;
  }
  return {};
}

OdDbObjectId OdDbDictionary::setAt(const OdString& name, OdDbObject* object) {
  assertWriteEnabled();
  if (!isResident())
    throw OdError(eNotInDatabase);
  if (OdDbObjectPtr old = getAt(name).safeOpenObject(OdDb::kForWrite); !old.isNull() && old.get() != object)
    old->erase();
  const OdDbObjectId id = object->isResident() ? object->objectId() : database()->addObject(object, objectId());
  setAt(name, id);
  return id;
}

void OdDbDictionary::setAt(const OdString& name, OdDbObjectId id) {
  assertWriteEnabled();
  const std::size_t index = indexOf(name);
  if (index < entries_.size()) {
    entries_[index].id = id;
    index_.drop();
    return;
  }
  entries_.push_back({name, id});
  if (index_.get() != nullptr)
    index_.get()->add(entries_.back(), index);
}

OdDbObjectId OdDbDictionary::remove(const OdString& name) {
  assertWriteEnabled();
  const std::size_t index = indexOf(name);
  if (index == entries_.size())
    return {};
  const OdDbObjectId id = entries_[index].id;
  entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(index));
  index_.drop();
  return id;
}

OdString OdDbDictionary::nameAt(OdDbObjectId id) const {
  if (const Index* known = index(); known != nullptr) {
    const auto found = known->byId.find(id);
    return found == known->byId.end() ? OdString() : entries_[found->second].name;
  }
  const auto found =
      std::find_if(entries_.begin(), entries_.end(), [id](const Entry& entry) { return entry.id == id; });
  return found == entries_.end() ? OdString() : found->name;
}

MVDRAWING_SETTER(OdDbDictionary, setTreatElementsAsHard, bool, hardOwner_)

void OdDbDictionary::visitReferences(drawing::ReferenceVisitor& visitor) {
  OdDbObject::visitReferences(visitor);
  bool changed = false;
  for (Entry& entry : entries_) {
    const OdDbObjectId before = entry.id;
    visitor.visit(entry.id, hardOwner_ ? OdDb::kHardOwnershipRef : OdDb::kSoftOwnershipRef);
    changed = changed || entry.id != before;
  }
  if (changed)
    index_.drop();
}

void OdDbDictionary::visitReferences(drawing::ConstReferenceVisitor& visitor) const {
  OdDbObject::visitReferences(visitor);
  for (const Entry& entry : entries_)
    visitor.visit(entry.id, hardOwner_ ? OdDb::kHardOwnershipRef : OdDb::kSoftOwnershipRef);
}

void OdDbDictionary::ownedObjects(std::vector<OdDbObjectId>& ids) const {
  OdDbObject::ownedObjects(ids);
  for (const Entry& entry : entries_) {
    const OdDbObject* member = drawing::lookup(entry.id);
    if (member != nullptr && member->ownerId() == objectId())
      ids.push_back(entry.id);
  }
}

void OdDbDictionary::afterClone(const OdDbObject&, OdDbIdMapping&) {
  // Entries whose objects were not cloned are not in the copy.
  entries_.erase(std::remove_if(entries_.begin(), entries_.end(), [](const Entry& entry) { return entry.id.isNull(); }),
                 entries_.end());
  index_.drop();
}

const drawing::Description& OdDbDictionaryWithDefault::ownDescription() {
  static const drawing::Description description(
      &OdDbDictionary::ownDescription(),
      {{"AcDbDictionaryWithDefault", {field<&OdDbDictionaryWithDefault::default_>(340)}}});
  return description;
}

const drawing::Description& OdDbXrecord::ownDescription() {
  static const drawing::Description description(
      &OdDbObject::ownDescription(),
      {{"AcDbXrecord", {field<&OdDbXrecord::mergeStyle_>(280)}, &readGroup, &writeGroups}});
  return description;
}

bool OdDbXrecord::readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context) {
  context.append(static_cast<OdDbXrecord&>(object).groups_, group);
  return true;
}

void OdDbXrecord::writeGroups(const OdDbObject& object, drawing::GroupSink& sink) {
  static_cast<const OdDbXrecord&>(object).groups_.writeTo(sink);
}

drawing::GroupList& OdDbXrecord::groupsForWrite() {
  assertWriteEnabled();
  return groups_;
}

OdResBufPtr OdDbXrecord::values() const {
  return OdResBuf::fromGroups(groups_, 0, groups_.size());
}

void OdDbXrecord::setValues(const OdResBuf* chain) {
  assertWriteEnabled();
  groups_.clear();
  OdResBuf::toGroups(chain, groups_);
}

void OdDbXrecord::ownedObjects(std::vector<OdDbObjectId>& ids) const {
  OdDbObject::ownedObjects(ids);
  drawing::listOwned(groups_, objectId(), ids);
}

MVDRAWING_VISIT_REFERENCES(OdDbXrecord, OdDbObject, drawing::visitGroups(groups_, visitor);)

const drawing::Description& OdDbDictionaryVar::ownDescription() {
  static const drawing::Description description(
      &OdDbObject::ownDescription(),
      {{"DictionaryVariables", {field<&OdDbDictionaryVar::schema_>(280), field<&OdDbDictionaryVar::value_>(1)}}});
  return description;
}

MVDRAWING_SETTER(OdDbDictionaryVar, setValue, const OdString&, value_)

const drawing::Description& OdDbHeader::ownDescription() {
  return OdDbObject::ownDescription();
}

const drawing::GroupList* OdDbHeader::find(std::string_view name) const {
  const auto found = index_.find(std::string(name));
  return found == index_.end() ? nullptr : &variables_[found->second].groups;
}

drawing::GroupList& OdDbHeader::at(std::string_view name) {
  assertWriteEnabled();
  const auto [found, isNew] = index_.emplace(std::string(name), variables_.size());
  if (isNew)
    variables_.push_back({std::string(name), {}});
  return variables_[found->second].groups;
}

void OdDbHeader::visitReferences(drawing::ReferenceVisitor& visitor) {
  for (Variable& variable : variables_)
    drawing::visitGroups(variable.groups, visitor);
}

void OdDbHeader::visitReferences(drawing::ConstReferenceVisitor& visitor) const {
  for (const Variable& variable : variables_)
    drawing::visitGroups(variable.groups, visitor);
}
