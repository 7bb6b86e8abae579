// Descriptions of classes: which members an object has and under which group codes files store them.
//
// A class is described once. Reading, writing, the canonical dump, the translation of references when objects are
// cloned, and the search for references to an object all use the same description. A class lists its sections (the
// groups after a subclass marker) after those of its base. Groups of a section that no field describes are preserved
// with the object and written after the fields of that section.
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

struct RawGroup;
class LoadContext;

// Kind of a member's value.
enum class FieldKind : std::uint8_t {
  kReal,
  kInt16,
  kInt32,
  kInt64,
  kBool,
  kText,
  kPoint3,
  kPoint2,
  kVector3,
  kReference
};

// A member of a class and its group. Fields are made by field() and the modifiers below.
struct Field {
  using Address = void* (*)(OdDbObject&);
  using ConstAddress = const void* (*)(const OdDbObject&);

  std::int16_t code = 0; // points: the code of x; y and z have it +10 and +20
  FieldKind kind = FieldKind::kReal;
  OdDb::SymbolTableKind byName = OdDb::kNoTable;    // a reference that files store as the name of a record
  OdDb::SymbolTableKind maybeName = OdDb::kNoTable; // some files store the name of the record instead of its handle
  OdDb::ReferenceType referenceType = OdDb::kHardPointerRef;
  OdDb::DwgVersion since = OdDb::kRelease2000; // absent in files of earlier versions
  bool degrees = false;                        // radians in memory, degrees in files
  bool optional = false;                       // not written if it equals the default
  bool readOnly = false;  // read under this code, written under another (files of other programs use either)
  bool relocated = false; // versions before `since` store it elsewhere
  double ifAbsent[3] = {0, 0, 0};
  Address at = nullptr;
  ConstAddress constAt = nullptr;

  // Modifiers: copies of the field with a property. angle: degrees in files. unless: not written if it equals that
  // value, which absence means. otherwise: absence means that value, and it is always written. unlessEmpty: the same as
  // unless for texts and null references. from: absent before that version. relocatedBefore: stored elsewhere before
  // that version. name, orName: stored as a record's name, or possibly so. ref: kind of reference. onlyRead: read under
  // this code, written under another one.
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
  constexpr Field otherwise(double x) const {
    return with([=](Field& f) { f.ifAbsent[0] = x; });
  }
  constexpr Field unlessEmpty() const { return unless(0); }
  constexpr Field from(OdDb::DwgVersion version) const {
    return with([=](Field& f) { f.since = version; });
  }
  constexpr Field relocatedBefore(OdDb::DwgVersion version) const {
    return with([=](Field& f) {
      f.since = version;
      f.relocated = true;
    });
  }
  constexpr Field name(OdDb::SymbolTableKind table) const {
    return with([=](Field& f) { f.byName = table; });
  }
  constexpr Field orName(OdDb::SymbolTableKind table) const {
    return with([=](Field& f) { f.maybeName = table; });
  }
  constexpr Field ref(OdDb::ReferenceType type) const {
    return with([=](Field& f) { f.referenceType = type; });
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

// Kind of the values of a type.
template <class T>
constexpr FieldKind fieldKindOf() {
  if constexpr (std::is_same_v<T, double>)
    return FieldKind::kReal;
  else if constexpr (std::is_same_v<T, bool>)
    return FieldKind::kBool;
  else if constexpr (std::is_same_v<T, OdString>)
    return FieldKind::kText;
  else if constexpr (std::is_same_v<T, OdGePoint3d>)
    return FieldKind::kPoint3;
  else if constexpr (std::is_same_v<T, OdGeVector3d>)
    return FieldKind::kVector3;
  else if constexpr (std::is_same_v<T, OdGePoint2d>)
    return FieldKind::kPoint2;
  else if constexpr (std::is_same_v<T, OdDbObjectId>)
    return FieldKind::kReference;
  else if constexpr (sizeof(T) == 2)
    return FieldKind::kInt16;
  else if constexpr (sizeof(T) == 4)
    return FieldKind::kInt32;
  else
    return FieldKind::kInt64;
}

// Class and type of a pointer to a member.
template <class M>
struct MemberOf;
// The same, for pointers to members.
template <class C, class T>
struct MemberOf<T C::*> {
  using Class = C;
  using Type = T;
};

// field<&OdDbLine::start_>(10): the member start_ is stored under codes 10, 20 and 30.
template <auto Member>
constexpr Field field(int code) {
  using Class = typename MemberOf<decltype(Member)>::Class;
  Field f;
  f.code = static_cast<std::int16_t>(code);
  f.kind = fieldKindOf<typename MemberOf<decltype(Member)>::Type>();
  f.at = [](OdDbObject& object) -> void* { return &(static_cast<Class&>(object).*Member); };
  f.constAt = [](const OdDbObject& object) -> const void* { return &(static_cast<const Class&>(object).*Member); };
  return f;
}

// Visits the references of an object, which it may change.
class MVDRAWING_API ReferenceVisitor {
public:
  virtual ~ReferenceVisitor();
  // Called for each reference; may change the id (cloning translates ids this way).
  virtual void visit(OdDbObjectId& id, OdDb::ReferenceType type) = 0;
};

// Visits the references of an object and leaves them.
class MVDRAWING_API ConstReferenceVisitor {
public:
  virtual ~ConstReferenceVisitor();
  virtual void visit(OdDbObjectId id, OdDb::ReferenceType type) = 0; // called for each reference
};

// Version of sections that are read but never written.
inline constexpr auto kNeverWritten = static_cast<OdDb::DwgVersion>(INT32_MAX);

// The groups of an object after a subclass marker.
struct SubclassLayout {
  const char* marker = ""; // subclass marker; "" for none
  std::vector<Field> fields;

  // For lists and other structures that fields cannot describe. `read` is called for each group that is not a field and
  // returns whether it has consumed it; `write` writes what `read` consumes, before the fields if `writeFirst` is set.
  bool (*read)(OdDbObject&, const RawGroup&, LoadContext&) = nullptr;
  void (*write)(const OdDbObject&, GroupSink&) = nullptr;
  bool writeFirst = false;
  OdDb::DwgVersion since = OdDb::kRelease2000; // absent in files of earlier versions
  const char* alias = "";                      // marker that some files have instead
};

// The sections of a class. A description is immutable and lives until the program ends.
class MVDRAWING_API Description {
public:
  // `base`: the description of the base class, null for none; it must outlive this one.
  Description(const Description* base, std::initializer_list<SubclassLayout> own);
  const std::vector<const SubclassLayout*>& subclasses() const { return subclasses_; } // those of the base first

private:
  std::vector<SubclassLayout> own_;
  std::vector<const SubclassLayout*> subclasses_;
};

} // namespace drawing
