#include "DbBlockTable.h"
#include "DbSymbolTable.h"
#include "Ge/GeUtil.h"
#include "drawing/model/load_context.h"
#include "drawing/model/object_store.h"
#include "drawing/model/symbol_name.h"
#include "drawing/records/section.h"

#include <charconv>
#include <cmath>

namespace drawing {

namespace {

bool isDefault(const Field& field, const void* at) {
  const auto equals = [&](int i, double value) { return value == field.ifAbsent[i]; };
  switch (field.kind) {
  case FieldKind::kReal:
    return equals(0, *static_cast<const double*>(at));
  case FieldKind::kPoint3:
  case FieldKind::kVector3: {
    const auto* p = static_cast<const double*>(at);
    return equals(0, p[0]) && equals(1, p[1]) && equals(2, p[2]);
  }
  case FieldKind::kPoint2: {
    const auto* p = static_cast<const double*>(at);
    return equals(0, p[0]) && equals(1, p[1]);
  }
  case FieldKind::kText:
    return static_cast<const OdString*>(at)->isEmpty();
  case FieldKind::kReference:
    return static_cast<const OdDbObjectId*>(at)->isNull();
  case FieldKind::kBool:
    return equals(0, *static_cast<const bool*>(at) ? 1 : 0);
  case FieldKind::kInt16:
    return equals(0, *static_cast<const std::int16_t*>(at));
  case FieldKind::kInt32:
    return equals(0, *static_cast<const std::int32_t*>(at));
  case FieldKind::kInt64:
    return equals(0, static_cast<double>(*static_cast<const std::int64_t*>(at)));
  }
  return false;
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

void writeField(const Field& field, const void* at, GroupSink& sink) {
  const int code = field.code;
  switch (field.kind) {
  case FieldKind::kReal: {
    const double value = *static_cast<const double*>(at);
    sink.real(code, field.degrees ? degreesForFile(value) : value);
    return;
  }
  case FieldKind::kPoint3:
  case FieldKind::kVector3:
  case FieldKind::kPoint2: {
    const auto* p = static_cast<const double*>(at);
    sink.real(code, p[0]);
    sink.real(code + 10, p[1]);
    if (field.kind != FieldKind::kPoint2)
      sink.real(code + 20, p[2]);
    return;
  }
  case FieldKind::kText:
    sink.text(code, *static_cast<const OdString*>(at));
    return;
  case FieldKind::kReference: {
    const auto id = *static_cast<const OdDbObjectId*>(at);
    if (field.byName == OdDb::kNoTable)
      sink.reference(code, id);
    else
      sink.text(code, symbolName(id));
    return;
  }
  case FieldKind::kBool:
    sink.integer(code, *static_cast<const bool*>(at) ? 1 : 0);
    return;
  case FieldKind::kInt16:
    sink.integer(code, *static_cast<const std::int16_t*>(at));
    return;
  case FieldKind::kInt32:
    sink.integer(code, *static_cast<const std::int32_t*>(at));
    return;
  case FieldKind::kInt64:
    sink.integer(code, *static_cast<const std::int64_t*>(at));
    return;
  }
}

double numberIn(const Field& field, const void* at) {
  switch (field.kind) {
  case FieldKind::kReal:
    return *static_cast<const double*>(at);
  case FieldKind::kBool:
    return *static_cast<const bool*>(at) ? 1 : 0;
  case FieldKind::kInt16:
    return *static_cast<const std::int16_t*>(at);
  case FieldKind::kInt32:
    return *static_cast<const std::int32_t*>(at);
  default:
    return GroupSink::kNoNumber;
  }
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
    const void* at = field.constAt(object);
    const bool tooNew = field.since > sink.version() && !(field.optional && sink.keepsNewer());
    const bool isDefaultValue = (field.optional || tooNew) && isDefault(field, at);
    if (tooNew && !isDefaultValue && !field.readOnly && !field.relocated)
      sink.omitted(field.code, subclass.marker, numberIn(field, at));
    if (field.readOnly || tooNew || isDefaultValue)
      continue;
    writeField(field, at, sink);
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
