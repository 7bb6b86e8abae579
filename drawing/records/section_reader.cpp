#include "drawing/records/section.h"

#include "Ge/GeUtil.h"
#include "drawing/model/load_context.h"
#include "drawing/records/visit_field.h"

#include <utility>

namespace drawing {

OdDbObjectId SubclassReader::reference(const Field& field, const RawGroup& group) {
  if (field.byName != OdDb::kNoTable)
    return context_.symbol(field.byName, group);
  if (field.maybeName != OdDb::kNoTable && !LoadContext::isHandle(group))
    return context_.symbol(field.maybeName, group);
  return context_.reference(group);
}

template <class T>
void SubclassReader::storeValue(T& value, const Field& field, const RawGroup& group) {
  double number = 0;
  std::int64_t whole = 0;
  if constexpr (std::is_same_v<T, OdString>) {
    value = context_.text(group);
  } else if constexpr (std::is_same_v<T, OdDbObjectId>) {
    value = reference(field, group);
  } else if constexpr (kCoordinates<T> != 0) {
    if (context_.real(group, number))
      value[(group.code - field.code) / 10] = number;
  } else if constexpr (std::is_same_v<T, double>) {
    if (context_.real(group, number))
      value = field.degrees ? number * (kPi / 180.0) : number;
  } else if constexpr (std::is_same_v<T, std::int16_t> || std::is_same_v<T, std::int32_t>) {
    if (context_.integer(group, whole, 8 * sizeof(T)))
      value = static_cast<T>(whole);
  } else if (context_.integer(group, whole)) {
    value = static_cast<T>(whole); // of a bool: whether it is not 0
  }
}

void SubclassReader::store(const Field& field, const RawGroup& group) {
  visitField(field, object_, [&](auto& value) { storeValue(value, field, group); });
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
      store(fields[i], group);
      return true;
    }
  }
  return section_.read != nullptr && section_.read(object_, group, context_);
}

} // namespace drawing
