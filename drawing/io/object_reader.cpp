#include "drawing/io/object_reader.h"

#include "drawing/io/class_lookup.h"
#include "drawing/model/load_context.h"
#include "drawing/opaque_objects.h"
#include "drawing/records/section.h"

#include <algorithm>
#include <optional>
#include <span>
#include <utility>

namespace drawing {

namespace {

bool hasMarkers(const Record& record) {
  for (const RawGroup& group : record) {
    if (group.code == 100)
      return true;
    if (group.code >= 1000)
      break;
  }
  return false;
}

// Where extended data begins: the first 1001 behind everything else.
std::size_t xDataStart(const Record& record) {
  std::size_t at = record.size();
  while (at > 1 && record[at - 1].code >= 1000)
    --at;
  while (at < record.size() && record[at].code != 1001)
    ++at;
  return at;
}

// The section of that marker, not before `from`; the number of sections when there is none.
std::size_t findSubclass(const std::vector<const SubclassLayout*>& sections, std::string_view marker,
                         std::size_t from) {
  std::size_t at = from;
  while (at < sections.size() && marker != sections[at]->marker &&
         (sections[at]->alias[0] == 0 || marker != sections[at]->alias))
    ++at;
  return at;
}

// Dimension styles have their handle under 105; 5 is the name of an arrow block in early versions, and a handle in
// files of programs that know no better.
int handleCode(const Record& record, OdDb::DwgVersion version) {
  if (record[0].text != "DIMSTYLE")
    return 5;
  for (const RawGroup& group : record) {
    if (group.code == 105)
      return 105;
  }
  return version < OdDb::kRelease13 ? 105 : 5;
}

// Properties that some programs write behind a later marker. Other codes of entities (48, 420, 440) mean something else
// there.
bool isCommonProperty(int code) {
  return code == 6 || code == 8 || code == 62 || code == 67 || code == 370 || code == 410;
}

// What every entity has.
const SubclassLayout& commonSubclass() {
  return *OdDbEntity::ownDescription().subclasses().front();
}

OdSmartPtr<OdDbObject> makeOpaque(std::string_view name, bool isEntity, bool unparsed) {
  if (isEntity) {
    auto* entity = new OdDbOpaqueEntity;
    entity->setDxfName(std::string(name));
    entity->setUnparsed(unparsed);
    return OdSmartPtr<OdDbObject>(entity);
  }
  auto* object = new OdDbOpaqueObject;
  object->setDxfName(std::string(name));
  object->setUnparsed(unparsed);
  return OdSmartPtr<OdDbObject>(object);
}

// Groups of entities that are not kept because they follow from where the entity is.
bool takeEntityInfo(const RawGroup& group, ReadObject& info, LoadContext& context) {
  std::int64_t whole = 0;
  if (group.code == 67) {
    info.inPaperSpace = context.integer(group, whole) && whole != 0;
    return true;
  }
  if (group.code == 410) {
    context.utf8(group); // its bytes count as text of the file
    return true;
  }
  return false;
}

} // namespace

// What is filled, and from which groups: those between the preamble of the record and its extended data.
struct ObjectReader::Filling {
  std::span<const RawGroup> groups;
  OdDbObject& object;
  bool isEntity;
  ReadObject& info;
  OdDbObject* second;
  const SubclassLayout* secondSubclass;
};

// The cursor over runs of groups: a marker, which the groups before the first one lack, and the groups up to the next.
class ObjectReader::RunCursor {
public:
  explicit RunCursor(std::span<const RawGroup> groups) : rest_(groups) { step(); }
  bool done() const { return marker_ == nullptr && groups_.empty(); }
  void step() {
    const bool hasMarker = !rest_.empty() && rest_.front().code == 100;
    marker_ = hasMarker ? &rest_.front() : nullptr;
    rest_ = rest_.subspan(hasMarker ? 1 : 0);
    std::size_t count = 0;
    while (count < rest_.size() && rest_[count].code != 100)
      ++count;
    groups_ = rest_.first(count);
    rest_ = rest_.subspan(count);
  }
  const RawGroup* marker() const { return marker_; } // null for none
  std::span<const RawGroup> groups() const { return groups_; }

private:
  std::span<const RawGroup> rest_, groups_;
  const RawGroup* marker_ = nullptr;
};

// Where the groups of one run go. `subclass` is null for a marker that the object's class does not have.
class ObjectReader::RunReader {
public:
  RunReader(const Filling& filling, const RawGroup* marker, const SubclassLayout* subclass, SubclassReader& common,
            LoadContext& context)
      : filling_(filling), pendingMarker_(marker), common_(common), context_(context),
        isCommon_(filling.isEntity && subclass == &commonSubclass()),
        takesCommon_(filling.isEntity && (subclass != nullptr || marker == nullptr)) {
    if (filling.secondSubclass != nullptr && marker != nullptr && marker->text == filling.secondSubclass->marker)
      second_.emplace(*filling.second, *filling.secondSubclass, context);
    if (subclass != nullptr && !isCommon_)
      own_.emplace(filling.object, *subclass, context);
    if (subclass == nullptr)
      keepMarker();
  }

  void take(const RawGroup& group) {
    takesCommon_ = takesCommon_ && group.code != 101; // an embedded object has groups of its own
    if ((second_ && second_->take(group)) || (own_ && own_->take(group)) || takeCommon(group))
      return;
    keepMarker();
    context_.append(filling_.object.extrasForLoad().unmodelledGroups, group);
  }

private:
  bool takeCommon(const RawGroup& group) {
    return takesCommon_ && (isCommon_ || isCommonProperty(group.code)) &&
           (common_.take(group) || takeEntityInfo(group, filling_.info, context_));
  }
  // The marker before the first group of the run that is kept with it; at once for a subclass that is not modelled.
  void keepMarker() {
    if (const RawGroup* marker = std::exchange(pendingMarker_, nullptr))
      context_.append(filling_.object.extrasForLoad().unmodelledGroups, *marker);
  }

  const Filling& filling_;
  const RawGroup* pendingMarker_; // null once it is kept, and for none
  SubclassReader& common_;
  LoadContext& context_;
  const bool isCommon_;
  bool takesCommon_;
  std::optional<SubclassReader> second_, own_;
};

ReadObject ObjectReader::read(const Record& record, bool isEntity) {
  const std::string_view name = record[0].text;
  ReadObject info;
  context_.begin(name, record[0].line);
  if (OdRxClass* known = chooseClass(name, record);
      known != nullptr && known->isDerivedFrom(OdDbEntity::desc()) == isEntity) {
    info.object = known->create();
    fill(record, *info.object, info);
    if (context_.failed())
      return readUnparsed(record, isEntity);
    ++context_.report().counts.read;
    return info;
  }
  info.object = makeOpaque(name, isEntity, false);
  fill(record, *info.object, info);
  if (context_.failed())
    return readUnparsed(record, isEntity);
  ++context_.report().counts.opaque;
  return info;
}

// Everything except handle, owner and attached data is preserved byte for byte.
ReadObject ObjectReader::readUnparsed(const Record& record, bool isEntity) {
  ReadObject info;
  info.object = makeOpaque(record[0].text, isEntity, true);
  const std::size_t xData = xDataStart(record);
  for (std::size_t i = readPreamble(record, *info.object, info); i < xData; ++i) {
    context_.append(info.object->extrasForLoad().unmodelledGroups, record[i]);
    if (record[i].code == 67)
      takeEntityInfo(record[i], info, context_);
  }
  readXData(record, xData, *info.object);
  ++context_.report().counts.unparsed;
  return info;
}

void ObjectReader::fill(const Record& record, OdDbObject& object, ReadObject& info, OdDbObject* second,
                        const SubclassLayout* secondSubclass) {
  const std::size_t from = readPreamble(record, object, info);
  const std::size_t xData = xDataStart(record);
  const std::size_t end = std::max(from, xData); // an application group that is not closed may include extended data
  const bool isEntity = object.isKindOf(OdDbEntity::desc());
  const Filling filling{{record.data() + from, end - from}, object, isEntity, info, second, secondSubclass};
  if (hasMarkers(record))
    fillSubclasses(filling);
  else
    fillWithoutMarkers(filling);
  readXData(record, xData, object);
}

// Handle, application groups and owner stand in front of the first marker.
std::size_t ObjectReader::readPreamble(const Record& record, OdDbObject& object, ReadObject& info) {
  const int handle = handleCode(record, context_.database().fileInfo().version);
  std::size_t i = 1;
  while (i < record.size()) {
    const RawGroup& group = record[i];
    if (group.code == handle && info.handle == 0) {
      context_.handle(group, info.handle);
      context_.setHandle(info.handle);
    } else if (group.code == 102) {
      i = readApplicationGroup(record, i, object);
      continue;
    } else if (group.code == 330 && info.owner.isNull()) {
      info.owner = context_.reference(group);
    } else {
      break;
    }
    ++i;
  }
  return i;
}

// Lists of reactors and of the extension dictionary hold nothing else.
void ObjectReader::skip(const RawGroup& group) {
  context_.addIssue(
      {.code = "dxf.stray-group", .severity = Severity::kLost, .found = "stray group", .done = "it is skipped"},
      &group);
}

std::size_t ObjectReader::readApplicationGroup(const Record& record, std::size_t at, OdDbObject& object) {
  std::size_t end = at + 1;
  while (end < record.size() && record[end].code != 102 && record[end].code != 100)
    ++end;
  const bool closed = end < record.size() && record[end].code == 102;
  const std::string_view name = record[at].text;
  auto& extras = object.extrasForLoad();
  if (name == "{ACAD_REACTORS") {
    for (std::size_t i = at + 1; i < end; ++i) {
      if (record[i].code == 330)
        extras.reactors.push_back(context_.reference(record[i]));
      else
        skip(record[i]);
    }
  } else if (name == "{ACAD_XDICTIONARY") {
    for (std::size_t i = at + 1; i < end; ++i) {
      if ((record[i].code == 360 || record[i].code == 350) && extras.extensionDictionary.isNull())
        extras.extensionDictionary = context_.reference(record[i]);
      else
        skip(record[i]);
    }
  } else {
    for (std::size_t i = at; i < end + (closed ? 1 : 0); ++i)
      context_.append(extras.applicationGroups, record[i]);
  }
  return end + (closed ? 1 : 0);
}

namespace {

// The subclass of a run, searched from `next` on, which moves to the one after it; null if there is none.
const SubclassLayout* subclassOf(const std::vector<const SubclassLayout*>& subclasses, const RawGroup* marker,
                                 std::size_t& next) {
  const std::size_t match = marker == nullptr ? subclasses.size() : findSubclass(subclasses, marker->text, next);
  if (match >= subclasses.size())
    return nullptr;
  next = match + 1;
  return subclasses[match];
}

} // namespace

void ObjectReader::fillSubclasses(const Filling& filling) {
  const auto& subclasses = filling.object.description().subclasses();
  SubclassReader common(filling.object, commonSubclass(), context_);
  std::size_t nextSubclass = 0;
  for (RunCursor run(filling.groups); !run.done(); run.step()) {
    const SubclassLayout* subclass = subclassOf(subclasses, run.marker(), nextSubclass);
    RunReader reader(filling, run.marker(), subclass, common, context_);
    for (const RawGroup& group : run.groups())
      reader.take(group);
  }
}

// Files of early versions have no markers: every group goes to the first section that takes it.
void ObjectReader::fillWithoutMarkers(const Filling& filling) {
  std::vector<SubclassReader> readers;
  if (filling.secondSubclass != nullptr)
    readers.emplace_back(*filling.second, *filling.secondSubclass, context_);
  for (const SubclassLayout* subclass : filling.object.description().subclasses())
    readers.emplace_back(filling.object, *subclass, context_);
  for (const RawGroup& group : filling.groups) {
    bool taken = filling.isEntity && takeEntityInfo(group, filling.info, context_);
    for (std::size_t r = 0; r < readers.size() && !taken; ++r)
      taken = readers[r].take(group);
    if (!taken)
      context_.append(filling.object.extrasForLoad().unmodelledGroups, group);
  }
}

void ObjectReader::readXData(const Record& record, std::size_t from, OdDbObject& object) {
  for (std::size_t i = from; i < record.size(); ++i)
    context_.append(object.extrasForLoad().xData, record[i]);
}

} // namespace drawing
