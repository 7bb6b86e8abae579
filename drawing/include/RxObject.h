// Run-time classes: the base of every counted object, class descriptors and their registry.
//
// Objects are counted by their smart pointers (SmartPtr.h); the count is not atomic, so an object belongs to one thread
// at a time. A class declares MVDRAWING_DECLARE_CLASS in its body and MVDRAWING_DEFINE_CLASS (or the _ABSTRACT form)
// once in a source file; the descriptor is registered when the library is loaded and lives until the program ends. The
// registry must not be changed while other threads use it.
#pragma once

#include "OdError.h"
#include "OdString.h"
#include "SmartPtr.h"
#include "drawing/export.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

class OdRxClass;

// Base of all counted objects. An object is deleted when its last pointer is released.
class MVDRAWING_API OdRxObject {
public:
  OdRxObject() = default;
  OdRxObject(const OdRxObject&) {} // a copy has its own count
  OdRxObject& operator=(const OdRxObject&) { return *this; }
  virtual ~OdRxObject();

  // Every class has these: its descriptor; the object as this class or the protocol extension of this class, null for
  // null and for others (see queryX); the descriptor of the object's class; whether that is `wanted` or derived from
  // it.
  static OdRxClass* desc();
  static OdSmartPtr<OdRxObject> cast(const OdRxObject* object);
  virtual OdRxClass* isA() const;
  bool isKindOf(const OdRxClass* wanted) const;

  // The object itself if it is of that class, else the protocol extension of that class that its class has, else null.
  // The caller owns one reference to the result.
  virtual OdRxObject* queryX(const OdRxClass* wanted) const;

  // Count of references; smart pointers call these.
  void addRef() const { ++references_; }
  void release() const {
    if (--references_ == 0)
      onLastRelease();
  }
  std::uint32_t referenceCount() const { return references_; }

protected:
  // Called when the last reference is released: deletes the object.
  virtual void onLastRelease() const;

private:
  mutable std::uint32_t references_ = 0;
};

using OdRxObjectPtr = OdSmartPtr<OdRxObject>;

// Descriptor of a class: its name, its parent, a function that creates an object, and its protocol extensions.
class MVDRAWING_API OdRxClass : public OdRxObject {
public:
  using Maker = OdRxObject* (*)();

  // Registers itself. `parent` and `maker` may be null; the maker of an abstract class is. Descriptors are created by
  // the ODRX_DEFINE macros and never destroyed.
  OdRxClass(const char* name, OdRxClass* parent, Maker maker, const char* dxfName);
  ~OdRxClass() override;

  static OdRxClass* desc(); // descriptor of the class of descriptors
  OdRxClass* isA() const override;

  // Names (the name in DXF files is empty for classes that files do not name), parent (null for OdRxObject), and
  // whether the class is `other` or derived from it.
  const std::string& utf8Name() const { return name_; }
  const std::string& dxfName() const { return dxfName_; }
  OdString name() const;
  OdRxClass* parent() const { return parent_; }
  bool isDerivedFrom(const OdRxClass* other) const;

  // A new object; null if the class is abstract or was removed from the registry.
  OdRxObjectPtr create() const;

  // Protocol extensions: one object per protocol class, inherited by derived classes unless they have their own. The
  // class holds a reference to the extension. setExtension replaces and returns the old one, removeExtension removes
  // and returns it; both return null if there was none. extensionFor returns null if there is none; the caller does not
  // own the result.
  OdRxObjectPtr setExtension(OdRxClass* protocol, OdRxObject* extension);
  OdRxObject* extensionFor(const OdRxClass* protocol) const;
  OdRxObjectPtr removeExtension(OdRxClass* protocol);

private:
  std::string name_;
  std::string dxfName_;
  OdRxClass* parent_;
  Maker maker_;
  std::map<const OdRxClass*, OdRxObjectPtr> extensions_;
};

// All registered classes by name and by DXF name; names are case-sensitive.
class MVDRAWING_API ClassRegistry {
public:
  // Look-up: null if there is none. remove makes create() of the class return null; objects that exist are not
  // affected.
  OdRxClass* find(std::string_view name) const;
  OdRxClass* findByDxfName(std::string_view dxfName) const;
  bool has(const OdRxClass* registered) const;
  void add(OdRxClass* registered);
  void remove(const OdRxClass* registered);

private:
  std::map<std::string, OdRxClass*, std::less<>> byName_;
  std::map<std::string, OdRxClass*, std::less<>> byDxfName_;
};

// The registry of the program; never destroyed.
MVDRAWING_API ClassRegistry& classRegistry();

// Declares the members that every class has, in the class body.
#define MVDRAWING_DECLARE_CLASS(Class)                                                                                 \
  static OdRxClass* desc();                                                                                            \
  static OdSmartPtr<Class> cast(const OdRxObject* object);                                                             \
  static OdSmartPtr<Class> createObject();                                                                             \
  OdRxClass* isA() const override

// Defines them in a source file; `maker` creates an object, null for abstract classes.
#define MVDRAWING_DEFINE_CLASS_WITH(Class, Base, maker, dxfName)                                                       \
  OdRxClass* Class::desc() {                                                                                           \
    static OdRxClass* const descriptor = new OdRxClass(#Class, Base::desc(), maker, dxfName);                          \
    return descriptor;                                                                                                 \
  }                                                                                                                    \
  OdSmartPtr<Class> Class::cast(const OdRxObject* object) {                                                            \
    return OdSmartPtr<Class>(queryAs<Class>(object), kTakeReference);                                                  \
  }                                                                                                                    \
  OdSmartPtr<Class> Class::createObject() {                                                                            \
    return OdSmartPtr<Class>(desc()->create());                                                                        \
  }                                                                                                                    \
  OdRxClass* Class::isA() const {                                                                                      \
    return Class::desc();                                                                                              \
  }                                                                                                                    \
  [[maybe_unused]] static OdRxClass* const registered##Class = Class::desc()

// The same for a class that can be created; dxfName is its entity or record name in DXF files, or "".
#define MVDRAWING_DEFINE_CLASS(Class, Base, dxfName)                                                                   \
  MVDRAWING_DEFINE_CLASS_WITH(Class, Base, ([]() -> OdRxObject* { return new Class; }), dxfName)

// The same for an abstract class.
#define MVDRAWING_DEFINE_ABSTRACT_CLASS(Class, Base) MVDRAWING_DEFINE_CLASS_WITH(Class, Base, nullptr, "")

// queryX with the type of the result; null for a null object.
template <class T>
T* queryAs(const OdRxObject* object) {
  return object == nullptr ? nullptr : static_cast<T*>(object->queryX(T::desc()));
}
