// Run-time classes: the root of every counted object, class descriptors and their registry.
//
// Objects are counted by their smart pointers (SmartPtr.h). A class declares ODRX_DECLARE_MEMBERS in its body and
// ODRX_DEFINE_MEMBERS (or the _ABSTRACT form) once in a source file; the descriptor enters the registry when the
// library is loaded.
#pragma once

#include "OdError.h"
#include "OdPlatform.h"
#include "OdString.h"
#include "SmartPtr.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

class OdRxClass;

class MVDRAWING_API OdRxObject {
public:
  OdRxObject() = default;
  OdRxObject(const OdRxObject&) {} // a copy starts with its own count
  OdRxObject& operator=(const OdRxObject&) { return *this; }
  virtual ~OdRxObject();

  static OdRxClass* desc();
  static OdSmartPtr<OdRxObject> cast(const OdRxObject* object);

  virtual OdRxClass* isA() const;

  // The object itself when it is of that class, else its class's protocol extension of that class, else null.
  // The caller owns one reference of the answer.
  virtual OdRxObject* queryX(const OdRxClass* wanted) const;

  bool isKindOf(const OdRxClass* wanted) const;

  void addRef() const { ++references_; }
  void release() const {
    if (--references_ == 0)
      onLastRelease();
  }
  std::uint32_t numRefs() const { return references_; }

protected:
  // Called when the last smart pointer lets go; the ordinary object ends itself.
  virtual void onLastRelease() const;

private:
  mutable std::uint32_t references_ = 0;
};

using OdRxObjectPtr = OdSmartPtr<OdRxObject>;

// Describes a class: its name, its parent, how to make one, and the protocol extensions hung on it.
class MVDRAWING_API OdRxClass : public OdRxObject {
public:
  using Maker = OdRxObject* (*)();

  OdRxClass(const char* name, OdRxClass* parent, Maker maker, const char* dxfName);
  ~OdRxClass() override;

  static OdRxClass* desc();
  OdRxClass* isA() const override;

  const std::string& asciiName() const { return name_; }
  const std::string& dxfName() const { return dxfName_; } // empty for classes that no file names
  OdString name() const;
  OdRxClass* myParent() const { return parent_; }
  bool isDerivedFrom(const OdRxClass* other) const;

  // A new object, or null when the class is abstract or was taken out of the registry.
  OdRxObjectPtr create() const;

  // Protocol extensions: one object a protocol class, inherited by derived classes unless they have their own.
  // The class holds a reference to the extension. addX replaces and answers the old one; getX answers null when none.
  OdRxObjectPtr addX(OdRxClass* protocol, OdRxObject* extension);
  OdRxObject* getX(const OdRxClass* protocol) const;
  OdRxObjectPtr delX(OdRxClass* protocol);

private:
  std::string name_;
  std::string dxfName_;
  OdRxClass* parent_;
  Maker maker_;
  std::map<const OdRxClass*, OdRxObjectPtr> extensions_;
};

// All registered classes, by name.
class MVDRAWING_API OdRxClassRegistry {
public:
  OdRxClass* find(std::string_view name) const; // null when there is none
  OdRxClass* findByDxfName(std::string_view dxfName) const;
  bool has(const OdRxClass* registered) const;
  void add(OdRxClass* registered);
  void remove(const OdRxClass* registered); // its create() answers null from now on

private:
  std::map<std::string, OdRxClass*, std::less<>> byName_;
  std::map<std::string, OdRxClass*, std::less<>> byDxfName_;
};

MVDRAWING_API OdRxClassRegistry& odrxClassDictionary();

#define ODRX_DECLARE_MEMBERS(Class)                                                                                    \
  static OdRxClass* desc();                                                                                            \
  static OdSmartPtr<Class> cast(const OdRxObject* object);                                                             \
  static OdSmartPtr<Class> createObject();                                                                             \
  OdRxClass* isA() const override

#define ODRX_DEFINE_MEMBERS_WITH(Class, Base, maker, dxfName)                                                          \
  OdRxClass* Class::desc() {                                                                                           \
    static OdRxClass* const descriptor = new OdRxClass(#Class, Base::desc(), maker, dxfName);                          \
    return descriptor;                                                                                                 \
  }                                                                                                                    \
  OdSmartPtr<Class> Class::cast(const OdRxObject* object) {                                                            \
    return OdSmartPtr<Class>(odrxQueryX<Class>(object), kOdRxObjAttach);                                               \
  }                                                                                                                    \
  OdSmartPtr<Class> Class::createObject() {                                                                            \
    return OdSmartPtr<Class>(desc()->create());                                                                        \
  }                                                                                                                    \
  OdRxClass* Class::isA() const {                                                                                      \
    return Class::desc();                                                                                              \
  }                                                                                                                    \
  [[maybe_unused]] static OdRxClass* const registered##Class = Class::desc()

// A class that can be made; dxfName is its record or entity name in drawing files, or "".
#define ODRX_DEFINE_MEMBERS(Class, Base, dxfName)                                                                      \
  ODRX_DEFINE_MEMBERS_WITH(Class, Base, ([]() -> OdRxObject* { return new Class; }), dxfName)

#define ODRX_DEFINE_MEMBERS_ABSTRACT(Class, Base) ODRX_DEFINE_MEMBERS_WITH(Class, Base, nullptr, "")

// queryX with the answer's type; null for a null object.
template <class T>
T* odrxQueryX(const OdRxObject* object) {
  return object == nullptr ? nullptr : static_cast<T*>(object->queryX(T::desc()));
}
