// The member that a field describes, with its type.
#pragma once

#include "drawing/detail/description.h"

#include <type_traits>

namespace drawing {

// Number of coordinates of a type; 0 for one that is neither point nor vector.
template <class T>
inline constexpr int kCoordinates = 0;
template <>
inline constexpr int kCoordinates<OdGePoint2d> = 2;
template <>
inline constexpr int kCoordinates<OdGePoint3d> = 3;
template <>
inline constexpr int kCoordinates<OdGeVector3d> = 3;

// A member of that type in an object, const if the object is.
template <class T>
T& memberAt(const Field& field, OdDbObject& object) {
  return *static_cast<T*>(field.at(object));
}
template <class T>
const T& memberAt(const Field& field, const OdDbObject& object) {
  return *static_cast<const T*>(field.constAt(object));
}

// Passes the member to the visitor, as a reference of its type, and returns what the visitor returns.
template <class Object, class Visitor>
auto visitField(const Field& field, Object& object, Visitor&& visitor) {
  switch (field.kind) {
  case FieldKind::kReal:
    return visitor(memberAt<double>(field, object));
  case FieldKind::kInt16:
    return visitor(memberAt<std::int16_t>(field, object));
  case FieldKind::kInt32:
    return visitor(memberAt<std::int32_t>(field, object));
  case FieldKind::kInt64:
    return visitor(memberAt<std::int64_t>(field, object));
  case FieldKind::kBool:
    return visitor(memberAt<bool>(field, object));
  case FieldKind::kText:
    return visitor(memberAt<OdString>(field, object));
  case FieldKind::kPoint3:
    return visitor(memberAt<OdGePoint3d>(field, object));
  case FieldKind::kPoint2:
    return visitor(memberAt<OdGePoint2d>(field, object));
  case FieldKind::kVector3:
    return visitor(memberAt<OdGeVector3d>(field, object));
  case FieldKind::kReference:
    break;
  }
  return visitor(memberAt<OdDbObjectId>(field, object));
}

} // namespace drawing
