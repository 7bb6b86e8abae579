#include "drawing/io/object_reader.h"

#include "drawing/io/class_lookup.h"
#include "drawing/model/load_context.h"
#include "drawing/opaque_objects.h"
#include "drawing/records/section.h"

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

} // namespace

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
      takeEntityInfo(record[i], info);
  }
  readXData(record, xData, *info.object);
  ++context_.report().counts.unparsed;
  return info;
}

void ObjectReader::fill(const Record& record, OdDbObject& object, ReadObject& info, OdDbObject* second,
                        const SubclassLayout* secondSubclass) {
  const std::size_t from = readPreamble(record, object, info);
  if (hasMarkers(record))
    fillSubclasses(record, from, object, info, second, secondSubclass);
  else
    fillWithoutMarkers(record, from, object, info, second, secondSubclass);
  readXData(record, xDataStart(record), object);
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
  context_.addIssue({"dxf.stray-group", Severity::kLost, 0, -1, 0, "", "", "stray group", "it is skipped"}, &group);
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

// Groups of entities that are not kept because they follow from where the entity is.
bool ObjectReader::takeEntityInfo(const RawGroup& group, ReadObject& info) {
  std::int64_t whole = 0;
  if (group.code == 67) {
    info.inPaperSpace = context_.integer(group, whole) && whole != 0;
    return true;
  }
  if (group.code == 410) {
    info.layoutName = context_.text(group);
    return true;
  }
  return false;
}

void ObjectReader::fillSubclasses(const Record& record, std::size_t from, OdDbObject& object, ReadObject& info,
                                  OdDbObject* second, const SubclassLayout* secondSubclass) {
  static const SubclassLayout none;
  const auto& subclasses = object.description().subclasses();
  const std::size_t xData = xDataStart(record);
  const bool isEntity = object.isKindOf(OdDbEntity::desc());
  SubclassReader common(object, isEntity ? commonSubclass() : none, context_);
  std::size_t nextSubclass = 0;
  std::size_t i = from;
  GroupList* unmodelled = nullptr;
  while (i < xData) {
    const bool hasMarker = record[i].code == 100;
    const std::string_view marker = hasMarker ? record[i].text : std::string_view();
    const std::size_t match = hasMarker ? findSubclass(subclasses, marker, nextSubclass) : subclasses.size();
    const bool known = match < subclasses.size();
    nextSubclass = known ? match + 1 : nextSubclass;
    const bool isCommon = isEntity && known && subclasses[match] == &commonSubclass();
    SubclassReader own(object, known ? *subclasses[match] : none, context_);
    const bool forSecond = secondSubclass != nullptr && marker == secondSubclass->marker;
    SubclassReader other(forSecond ? *second : object, forSecond ? *secondSubclass : none, context_);
    bool takesCommon = isEntity && (known || !hasMarker);
    bool markerAppended = !hasMarker; // whether the carried groups of this section have their marker yet
    if (hasMarker && !known) {
      context_.append(object.extrasForLoad().unmodelledGroups, record[i]);
      markerAppended = true;
    }
    for (i += hasMarker ? 1 : 0; i < xData && record[i].code != 100; ++i) {
      if (record[i].code == 66 && isEntity)
        info.attributesFollow = true;
      takesCommon = takesCommon && record[i].code != 101; // an embedded object has groups of its own
      if (other.take(record[i]) || (!isCommon && own.take(record[i])))
        continue;
      const bool mayBeCommon = takesCommon && (isCommon || isCommonProperty(record[i].code));
      if (mayBeCommon && (common.take(record[i]) || takeEntityInfo(record[i], info)))
        continue;
      unmodelled = &object.extrasForLoad().unmodelledGroups;
      if (!markerAppended)
        context_.append(*unmodelled, record[i - 1].code == 100 ? record[i - 1]
                                                               : RawGroup{100, RawGroup::Form::kText, marker, 0, 0, 0});
      markerAppended = true;
      context_.append(*unmodelled, record[i]);
    }
  }
}

// Files of early versions have no markers: every group goes to the first section that takes it.
void ObjectReader::fillWithoutMarkers(const Record& record, std::size_t from, OdDbObject& object, ReadObject& info,
                                      OdDbObject* second, const SubclassLayout* secondSubclass) {
  std::vector<SubclassReader> readers;
  if (secondSubclass != nullptr)
    readers.emplace_back(*second, *secondSubclass, context_);
  for (const SubclassLayout* subclass : object.description().subclasses())
    readers.emplace_back(object, *subclass, context_);
  const std::size_t xData = xDataStart(record);
  const bool isEntity = object.isKindOf(OdDbEntity::desc());
  for (std::size_t i = from; i < xData; ++i) {
    if (record[i].code == 66 && isEntity)
      info.attributesFollow = true;
    bool taken = isEntity && takeEntityInfo(record[i], info);
    for (std::size_t r = 0; r < readers.size() && !taken; ++r)
      taken = readers[r].take(record[i]);
    if (!taken)
      context_.append(object.extrasForLoad().unmodelledGroups, record[i]);
  }
}

void ObjectReader::readXData(const Record& record, std::size_t from, OdDbObject& object) {
  for (std::size_t i = from; i < record.size(); ++i)
    context_.append(object.extrasForLoad().xData, record[i]);
}

} // namespace drawing
