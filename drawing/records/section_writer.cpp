#include "DbBlockTable.h"
#include "DbSymbolTable.h"
#include "Ge/GeUtil.h"
#include "drawing/model/object_store.h"
#include "drawing/model/symbol_name.h"
#include "drawing/records/section.h"
#include "drawing/records/visit_field.h"

#include <charconv>
#include <cmath>

namespace drawing {

namespace {

bool isDefault(const Field& field, const OdDbObject& object) {
  return visitField(field, object, [&field](const auto& value) {
    using T = std::decay_t<decltype(value)>;
    if constexpr (std::is_same_v<T, OdString>) {
      return value.isEmpty();
    } else if constexpr (std::is_same_v<T, OdDbObjectId>) {
      return value.isNull();
    } else if constexpr (kCoordinates<T> != 0) {
      bool equal = true;
      for (int i = 0; i < kCoordinates<T>; ++i)
        equal = equal && value[i] == field.ifAbsent[i];
      return equal;
    } else {
      return static_cast<double>(value) == field.ifAbsent[0];
    }
  });
}

// Degrees for a file. A text of 15 digits is preferred; where it does not lead back to the very same radians, a
// neighbour that does is looked for. Angles that no number of degrees stands for come out with 15 digits, and reading
// those and writing them again changes nothing more.
double degreesForFile(double radians) {
  const double plain = radians * (180.0 / kPi);
  const auto readsBack = [radians](double degrees) { return degrees * (kPi / 180.0) == radians; };
  char text[40];
  const auto end = std::to_chars(text, text + sizeof text, plain, std::chars_format::scientific, 14).ptr;
  double rounded = plain;
  std::from_chars(text, end, rounded);
  if (readsBack(rounded))
    return rounded;
  double below = plain, above = plain;
  for (int i = 0; i < 4; ++i) {
    if (readsBack(below))
      return below;
    if (readsBack(above))
      return above;
    below = std::nextafter(below, -HUGE_VAL);
    above = std::nextafter(above, HUGE_VAL);
  }
  return rounded;
}

void writeField(const Field& field, const OdDbObject& object, GroupSink& sink) {
  visitField(field, object, [&](const auto& value) {
    using T = std::decay_t<decltype(value)>;
    if constexpr (std::is_same_v<T, OdString>) {
      sink.text(field.code, value);
    } else if constexpr (std::is_same_v<T, OdDbObjectId>) {
      if (field.byName == OdDb::kNoTable)
        sink.reference(field.code, value);
      else
        sink.text(field.code, symbolName(value));
    } else if constexpr (kCoordinates<T> != 0) {
      for (int i = 0; i < kCoordinates<T>; ++i)
        sink.real(field.code + 10 * i, value[i]);
    } else if constexpr (std::is_same_v<T, double>) {
      sink.real(field.code, field.degrees ? degreesForFile(value) : value);
    } else {
      sink.integer(field.code, value);
    }
  });
}

// kNoNumber for what is not a number of at most 32 bits.
double numberIn(const Field& field, const OdDbObject& object) {
  return visitField(field, object, [](const auto& value) {
    using T = std::decay_t<decltype(value)>;
    if constexpr (std::is_arithmetic_v<T> && !std::is_same_v<T, std::int64_t>)
      return static_cast<double>(value);
    else
      return GroupSink::kNoNumber;
  });
}

// Carried groups stand behind the marker of their section; those before any marker belong to no section.
class UnmodelledGroups {
public:
  explicit UnmodelledGroups(const GroupList* groups) : groups_(groups) {}

  // Writes the part that stood in the next section of that marker, if it comes next.
  void writeAt(const char* marker, GroupSink& sink) {
    if (groups_ == nullptr || at_ >= groups_->size())
      return;
    const Group& group = (*groups_)[at_];
    if (group.code == 100 && groups_->textOf(group) == marker)
      writeRun(at_ + 1, sink);
  }
  // Writes what stood before any marker.
  void writePreamble(GroupSink& sink) {
    if (groups_ != nullptr && !groups_->empty() && (*groups_)[0].code != 100)
      writeRun(0, sink);
  }
  void writeRest(GroupSink& sink) {
    if (groups_ != nullptr)
      groups_->writeTo(sink, at_, groups_->size() - at_);
  }

private:
  void writeRun(std::size_t from, GroupSink& sink) {
    const std::size_t end = groups_->find(100, from);
    groups_->writeTo(sink, from, end - from);
    at_ = end;
  }
  const GroupList* groups_;
  std::size_t at_ = 0;
};

} // namespace

void writeSubclass(const OdDbObject& object, const SubclassLayout& subclass, GroupSink& sink) {
  if (subclass.write != nullptr && subclass.writeFirst)
    subclass.write(object, sink);
  for (const Field& field : subclass.fields) {
    const bool tooNew = field.since > sink.version() && !(field.optional && sink.keepsNewer());
    const bool isDefaultValue = (field.optional || tooNew) && isDefault(field, object);
    if (tooNew && !isDefaultValue && !field.readOnly && !field.relocated)
      sink.omitted(field.code, subclass.marker, numberIn(field, object));
    if (field.readOnly || tooNew || isDefaultValue)
      continue;
    writeField(field, object, sink);
  }
  if (subclass.write != nullptr && !subclass.writeFirst)
    subclass.write(object, sink);
}

void writeSubclasses(const OdDbObject& object, GroupSink& sink) {
  UnmodelledGroups unmodelled(object.unmodelledGroupsOrNull());
  unmodelled.writePreamble(sink);
  for (const SubclassLayout* subclass : object.description().subclasses()) {
    if (subclass->since > sink.version())
      continue;
    if (subclass->marker[0] != 0)
      sink.utf8(100, subclass->marker);
    writeSubclass(object, *subclass, sink);
    unmodelled.writeAt(subclass->marker, sink);
  }
  unmodelled.writeRest(sink);
}

} // namespace drawing
