#include "drawing/records/section.h"

#include "Ge/GeUtil.h"
#include "drawing/model/load_context.h"

#include <utility>

namespace drawing {

OdDbObjectId SubclassReader::reference(const Field& field, const RawGroup& group) {
  if (field.byName != OdDb::kNoTable)
    return context_.symbol(field.byName, group);
  if (field.maybeName != OdDb::kNoTable && !LoadContext::isHandle(group))
    return context_.symbol(field.maybeName, group);
  return context_.reference(group);
}

bool SubclassReader::store(const Field& field, const RawGroup& group) {
  void* at = field.at(object_);
  const int component = (group.code - field.code) / 10;
  double number = 0;
  std::int64_t whole = 0;
  switch (field.kind) {
  case FieldKind::kReal:
    if (context_.real(group, number))
      *static_cast<double*>(at) = field.degrees ? number * (kPi / 180.0) : number;
    return true;
  case FieldKind::kPoint3:
  case FieldKind::kVector3:
  case FieldKind::kPoint2:
    if (context_.real(group, number))
      static_cast<double*>(at)[component] = number;
    return true;
  case FieldKind::kText:
    *static_cast<OdString*>(at) = context_.text(group);
    return true;
  case FieldKind::kReference:
    *static_cast<OdDbObjectId*>(at) = reference(field, group);
    return true;
  case FieldKind::kBool:
    if (context_.integer(group, whole))
      *static_cast<bool*>(at) = whole != 0;
    return true;
  case FieldKind::kInt16:
    if (context_.integer(group, whole, 16))
      *static_cast<std::int16_t*>(at) = static_cast<std::int16_t>(whole);
    return true;
  case FieldKind::kInt32:
    if (context_.integer(group, whole, 32))
      *static_cast<std::int32_t*>(at) = static_cast<std::int32_t>(whole);
    return true;
  case FieldKind::kInt64:
    if (context_.integer(group, whole))
      *static_cast<std::int64_t*>(at) = whole;
    return true;
  }
  return false;
}

namespace {

// Which component of the field the code is; -1 for none.
int componentOf(const Field& field, int code) {
  const int components = field.kind == FieldKind::kPoint3 || field.kind == FieldKind::kVector3 ? 3
                         : field.kind == FieldKind::kPoint2                                    ? 2
                                                                                               : 1;
  const int offset = code - field.code;
  return offset >= 0 && offset % 10 == 0 && offset / 10 < components ? offset / 10 : -1;
}

} // namespace

bool SubclassReader::markTaken(std::size_t field, int component) {
  if (field >= 64)
    return true;
  const std::uint64_t bit = std::uint64_t{1} << field;
  return (std::exchange(taken_[component], taken_[component] | bit) & bit) == 0;
}

bool SubclassReader::take(const RawGroup& group) {
  embedded_ = embedded_ || group.code == 101;
  if (embedded_)
    return section_.read != nullptr && section_.read(object_, group, context_);
  const auto& fields = section_.fields;
  for (std::size_t tried = 0; tried < fields.size(); ++tried) {
    const std::size_t i = next_ + tried < fields.size() ? next_ + tried : next_ + tried - fields.size();
    const int component = componentOf(fields[i], group.code);
    if (component >= 0 && markTaken(i, component)) {
      next_ = i;
      return store(fields[i], group);
    }
  }
  return section_.read != nullptr && section_.read(object_, group, context_);
}

} // namespace drawing
