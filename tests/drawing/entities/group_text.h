// Entities out of the groups that files hold, and back.
#pragma once

#include "DbDatabase.h"
#include "DbEntity.h"
#include "drawing/io/class_lookup.h"
#include "drawing/model/load_context.h"
#include "drawing/records/section.h"
#include "drawing/report.h"
#include "tests/support/drawings.h"

#include <charconv>
#include <deque>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace tests {

class PlainDecoder : public drawing::TextDecoder {
public:
  std::string_view decode(std::string_view bytes, std::string&) override { return bytes; }
};

// "10 1.5|20 2|100 AcDbLine": groups of a record behind its name.
inline std::vector<drawing::RawGroup> rawGroupsOf(std::string_view groups) {
  std::vector<drawing::RawGroup> rawGroups;
  while (!groups.empty()) {
    const std::string_view one = groups.substr(0, groups.find('|'));
    groups.remove_prefix(std::min(one.size() + 1, groups.size()));
    const std::size_t space = std::min(one.find(' '), one.size());
    drawing::RawGroup group;
    std::from_chars(one.data(), one.data() + space, group.code);
    group.text = one.substr(std::min(space + 1, one.size()));
    rawGroups.push_back(group);
  }
  return rawGroups;
}

// The same form again. References are written as handles.
class TextSink : public drawing::GroupSink {
public:
  void utf8(int code, std::string_view value) override { add(code, std::string(value)); }
  void real(int code, double value) override {
    char digits[40];
    add(code, std::string(digits, std::to_chars(digits, digits + sizeof digits, value == 0 ? 0.0 : value).ptr));
  }
  void integer(int code, std::int64_t value) override { add(code, std::to_string(value)); }
  void reference(int code, OdDbObjectId id) override { add(code, id.getHandle().ascii()); }
  void handle(int code, OdDbHandle value) override { add(code, value.ascii()); }
  void binary(int code, std::string_view bytes) override { add(code, std::string(bytes)); }
  void unparsed(int code, std::string_view value) override { add(code, std::string(value)); }
  std::string text;

private:
  void add(int code, const std::string& value) {
    text += (text.empty() ? "" : "|") + std::to_string(code) + " " + value;
  }
};

inline std::string written(const OdDbObject& object) {
  TextSink sink;
  drawing::writeSubclasses(object, sink);
  return sink.text;
}

class Loader {
public:
  OdDbDatabasePtr database = OdDbDatabase::create();

  OdDbEntityPtr load(std::string_view dxfName, std::string_view groups) {
    const std::vector<drawing::RawGroup> rawGroups = rawGroupsOf(groups);
    OdRxClass* chosen = drawing::chooseClass(dxfName, rawGroups);
    OdDbEntityPtr entity = chosen->create();
    fill(*entity, rawGroups);
    return entity;
  }
  // On layer 0 at the end of model space, open for write.
  OdDbEntityPtr add(std::string_view dxfName, std::string_view groups) {
    OdDbEntityPtr entity = load(dxfName, groups);
    entity->setLayer(database->getLayerZeroId());
    forWrite<OdDbBlockTableRecord>(database->getModelSpaceId())->appendEntity(entity.get());
    entity->upgradeOpen();
    return entity;
  }

private:
  void fill(OdDbObject& object, const std::vector<drawing::RawGroup>& rawGroups) {
    drawing::LoadContext context(*database, decoder_, report_);
    const drawing::SubclassLayout* subclass = nullptr;
    std::unique_ptr<drawing::SubclassReader> reader;
    bool embedded = false;
    for (const drawing::RawGroup& group : rawGroups) {
      if (group.code == 100) {
        subclass = nullptr;
        for (const drawing::SubclassLayout* one : object.description().subclasses())
          subclass = one->marker == group.text ? one : subclass;
        reader = subclass == nullptr ? nullptr : std::make_unique<drawing::SubclassReader>(object, *subclass, context);
        if (reader == nullptr)
          context.append(object.extrasForLoad().unmodelledGroups, group);
        continue;
      }
      embedded = embedded || group.code == 101;
      if (reader == nullptr || (!(embedded && subclass->read(object, group, context)) && !reader->take(group)))
        context.append(object.extrasForLoad().unmodelledGroups, group);
    }
  }

  PlainDecoder decoder_;
  drawing::Report report_;
};

} // namespace tests
