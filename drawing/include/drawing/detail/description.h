// Descriptions of classes: which members an object has and under which group codes files hold them.
//
// A class is described once. Reading, writing, the canonical dump, the translation of references when objects are
// cloned, and the search for whoever refers to an object all walk the same description. A class lists its sections
// (the runs of groups behind a subclass marker); its base's sections come first. Whatever a file holds in a section
// and no field describes is carried with the object and written back behind that section's fields.
#pragma once

#include "Ge/GePoint2d.h"
#include "Ge/GeVector3d.h"
#include "drawing/detail/groups.h"

#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <type_traits>
#include <vector>

namespace drawing {

struct Pair;
class LoadContext;

enum class FieldKind : std::uint8_t { Real, Int16, Int32, Int64, Bool, Text, Point3, Point2, Vector3, Reference };

struct Field {
  using Address = void* (*)(OdDbObject&);

  std::int16_t code = 0; // points: the code of x; y and z follow at +10 and +20
  FieldKind kind = FieldKind::Real;
  OdDb::SymbolTableKind byName = OdDb::kNoTable;    // a reference that files hold as a record's name
  OdDb::SymbolTableKind maybeName = OdDb::kNoTable; // some files hold the record's name instead of its handle
  OdDb::ReferenceType holds = OdDb::kHardPointerRef;
  OdDb::DwgVersion since = OdDb::kRelease2000; // files of earlier versions do not have it
  bool degrees = false;                        // radians in memory, degrees in files
  bool optional = false;                       // not written when it equals the default
  bool readOnly = false;  // read under this code, written under another (files of other programs use either)
  bool elsewhere = false; // versions before `since` hold it in another place
  double ifAbsent[3] = {0, 0, 0};
  Address at = nullptr;

  // Modifiers, for use in descriptions.
  constexpr Field angle() const {
    return with([](Field& f) { f.degrees = true; });
  }
  constexpr Field unless(double x, double y = 0, double z = 0) const {
    return with([=](Field& f) {
      f.optional = true;
      f.ifAbsent[0] = x;
      f.ifAbsent[1] = y;
      f.ifAbsent[2] = z;
    });
  }
  constexpr Field otherwise(double x) const { // what files without it mean; written all the same
    return with([=](Field& f) { f.ifAbsent[0] = x; });
  }
  constexpr Field unlessEmpty() const { return unless(0); } // texts, null references
  constexpr Field from(OdDb::DwgVersion version) const {
    return with([=](Field& f) { f.since = version; });
  }
  constexpr Field elsewhereBefore(OdDb::DwgVersion version) const {
    return with([=](Field& f) {
      f.since = version;
      f.elsewhere = true;
    });
  }
  constexpr Field name(OdDb::SymbolTableKind table) const {
    return with([=](Field& f) { f.byName = table; });
  }
  constexpr Field orName(OdDb::SymbolTableKind table) const {
    return with([=](Field& f) { f.maybeName = table; });
  }
  constexpr Field ref(OdDb::ReferenceType type) const {
    return with([=](Field& f) { f.holds = type; });
  }
  constexpr Field onlyRead() const {
    return with([](Field& f) { f.readOnly = true; });
  }

private:
  template <class F>
  constexpr Field with(F change) const {
    Field f = *this;
    change(f);
    return f;
  }
};

template <class T>
constexpr FieldKind fieldKindOf() {
  if constexpr (std::is_same_v<T, double>)
    return FieldKind::Real;
  else if constexpr (std::is_same_v<T, bool>)
    return FieldKind::Bool;
  else if constexpr (std::is_same_v<T, OdString>)
    return FieldKind::Text;
  else if constexpr (std::is_same_v<T, OdGePoint3d>)
    return FieldKind::Point3;
  else if constexpr (std::is_same_v<T, OdGeVector3d>)
    return FieldKind::Vector3;
  else if constexpr (std::is_same_v<T, OdGePoint2d>)
    return FieldKind::Point2;
  else if constexpr (std::is_same_v<T, OdDbObjectId>)
    return FieldKind::Reference;
  else if constexpr (sizeof(T) == 2)
    return FieldKind::Int16;
  else if constexpr (sizeof(T) == 4)
    return FieldKind::Int32;
  else
    return FieldKind::Int64;
}

template <class M>
struct MemberOf;
template <class C, class T>
struct MemberOf<T C::*> {
  using Class = C;
  using Type = T;
};

// field<&OdDbLine::start_>(10): the member start_ stands under codes 10, 20 and 30.
template <auto Member>
constexpr Field field(int code) {
  using Class = typename MemberOf<decltype(Member)>::Class;
  Field f;
  f.code = static_cast<std::int16_t>(code);
  f.kind = fieldKindOf<typename MemberOf<decltype(Member)>::Type>();
  f.at = [](OdDbObject& object) -> void* { return &(static_cast<Class&>(object).*Member); };
  return f;
}

// Visits references: may change the id in place (cloning translates them so).
class MVDRAWING_API ReferenceVisitor {
public:
  virtual ~ReferenceVisitor();
  virtual void visit(OdDbObjectId& id, OdDb::ReferenceType type) = 0;
};

// Of sections that only other programs write.
inline constexpr auto kNeverWritten = static_cast<OdDb::DwgVersion>(INT32_MAX);

struct Section {
  const char* marker = ""; // the subclass marker; "" for none
  std::vector<Field> fields;

  // For lists and other shapes that no table of fields can describe. `read` is asked for every group that is no field
  // and answers whether it took it; `write` writes what `read` takes. `first` says that write comes before the fields.
  bool (*read)(OdDbObject&, const Pair&, LoadContext&) = nullptr;
  void (*write)(const OdDbObject&, GroupSink&) = nullptr;
  bool writeFirst = false;
  OdDb::DwgVersion since = OdDb::kRelease2000; // older files have no such section
  const char* alias = "";                      // a marker that some files have in its place
};

class MVDRAWING_API Description {
public:
  Description(const Description* base, std::initializer_list<Section> own);
  const std::vector<const Section*>& sections() const { return sections_; } // the base's first

private:
  std::vector<Section> own_;
  std::vector<const Section*> sections_;
};

} // namespace drawing
