// Sections that are kept as files hold them, because the order of their groups carries the meaning, and what matrices
// do to values in them.
#pragma once

#include "Ge/GeMatrix3d.h"
#include "Ge/GeVector3d.h"
#include "drawing/detail/description.h"
#include "drawing/model/load_context.h"

#include <span>
#include <vector>

namespace drawing {

// Takes every group. One whose value cannot be read spoils the record: it might be a place.
template <auto Member>
bool readRawGroup(OdDbObject& object, const RawGroup& group, LoadContext& context) {
  GroupList& groups = static_cast<typename MemberOf<decltype(Member)>::Class&>(object).*Member;
  context.append(groups, group);
  if (groups[groups.size() - 1].kind == GroupKind::kUnparsed)
    context.fail(group, "the value does not fit its group code");
  return true;
}

template <auto Member>
void writeRawGroups(const OdDbObject& object, GroupSink& sink) {
  (static_cast<const typename MemberOf<decltype(Member)>::Class&>(object).*Member).writeTo(sink);
}

template <auto Member>
SubclassLayout rawSubclass(const char* marker) {
  return {marker, {}, readRawGroup<Member>, writeRawGroups<Member>};
}

enum class GeometricRole : std::uint8_t {
  kPoint,     // a place: three groups, at steps of ten in the code
  kDirection, // a unit vector
  kVector,    // with its length
  kNormal,    // a unit vector square to a plane, on the side where the image of the old one lies
  kLength
};

struct GroupRole {
  std::int16_t code;
  GeometricRole role;
};

// Moves the values of groups `first` to `end` - 1 that the table names. Translations move places only.
void transformRawGroups(GroupList& groups, std::size_t first, std::size_t end, std::span<const GroupRole> table,
                        const OdGeMatrix3d& matrix, double lengthScale);

// The three coordinates at group i; false when other groups stand there.
bool tripleAt(const GroupList& groups, std::size_t i, OdGePoint3d& point);
void setTripleAt(GroupList& groups, std::size_t i, const OdGePoint3d& point);

// The first value under that code; `absent` when there is none of the kind.
double rawReal(const GroupList& groups, int code, double absent = 0);
std::int64_t rawInteger(const GroupList& groups, int code, std::int64_t absent = 0);
OdGePoint3d rawPoint(const GroupList& groups, int code, const OdGePoint3d& absent = {});
OdString rawText(const GroupList& groups, int code);
OdDbObjectId rawReference(const GroupList& groups, int code);

// The exact unit map: nothing moves.
bool isIdentity(const OdGeMatrix3d& matrix);

} // namespace drawing
