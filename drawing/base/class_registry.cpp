#include "RxObject.h"

namespace drawing {

void throwNullPointer() {
  throw OdError(eNullObjectPtr);
}

void throwWrongClass(const OdRxObject* object, const OdRxClass* wanted) {
  throw OdError_NotThatKindOfClass(object->isA(), wanted);
}

} // namespace drawing

OdRxObject::~OdRxObject() = default;

OdRxClass* OdRxObject::desc() {
  static OdRxClass* const descriptor = new OdRxClass("OdRxObject", nullptr, nullptr, "");
  return descriptor;
}

OdSmartPtr<OdRxObject> OdRxObject::cast(const OdRxObject* object) {
  return OdSmartPtr<OdRxObject>(queryAs<OdRxObject>(object), kTakeReference);
}

OdRxClass* OdRxObject::isA() const {
  return desc();
}

OdRxObject* OdRxObject::queryX(const OdRxClass* wanted) const {
  auto* result = isKindOf(wanted) ? const_cast<OdRxObject*>(this) : isA()->extensionFor(wanted);
  if (result != nullptr)
    result->addRef();
  return result;
}

bool OdRxObject::isKindOf(const OdRxClass* wanted) const {
  return isA()->isDerivedFrom(wanted);
}

void OdRxObject::onLastRelease() const {
  delete this;
}

OdRxClass::OdRxClass(const char* name, OdRxClass* parent, Maker maker, const char* dxfName)
    : name_(name), dxfName_(dxfName), parent_(parent), maker_(maker) {
  addRef(); // descriptors live as long as the program
  classRegistry().add(this);
}

OdRxClass::~OdRxClass() = default;

OdRxClass* OdRxClass::desc() {
  static OdRxClass* const descriptor = new OdRxClass("OdRxClass", OdRxObject::desc(), nullptr, "");
  return descriptor;
}

OdRxClass* OdRxClass::isA() const {
  return desc();
}

OdString OdRxClass::name() const {
  return OdString::fromUtf8(name_);
}

bool OdRxClass::isDerivedFrom(const OdRxClass* other) const {
  for (const OdRxClass* at = this; at != nullptr; at = at->parent_) {
    if (at == other)
      return true;
  }
  return false;
}

OdRxObjectPtr OdRxClass::create() const {
  if (maker_ == nullptr || !classRegistry().has(this))
    return nullptr;
  return OdRxObjectPtr(maker_());
}

OdRxObjectPtr OdRxClass::setExtension(OdRxClass* protocol, OdRxObject* extension) {
  OdRxObjectPtr& slot = extensions_[protocol];
  return std::exchange(slot, OdRxObjectPtr(extension));
}

OdRxObject* OdRxClass::extensionFor(const OdRxClass* protocol) const {
  for (const OdRxClass* at = this; at != nullptr; at = at->parent_) {
    if (auto found = at->extensions_.find(protocol); found != at->extensions_.end())
      return found->second.get();
  }
  return nullptr;
}

OdRxObjectPtr OdRxClass::removeExtension(OdRxClass* protocol) {
  auto found = extensions_.find(protocol);
  if (found == extensions_.end())
    return nullptr;
  OdRxObjectPtr old = found->second;
  extensions_.erase(found);
  return old;
}

OdRxClass* ClassRegistry::find(std::string_view name) const {
  auto found = byName_.find(name);
  return found == byName_.end() ? nullptr : found->second;
}

OdRxClass* ClassRegistry::findByDxfName(std::string_view dxfName) const {
  auto found = byDxfName_.find(dxfName);
  return found == byDxfName_.end() ? nullptr : found->second;
}

bool ClassRegistry::has(const OdRxClass* registered) const {
  return find(registered->utf8Name()) == registered;
}

void ClassRegistry::add(OdRxClass* registered) {
  byName_[registered->utf8Name()] = registered;
  if (!registered->dxfName().empty())
    byDxfName_[registered->dxfName()] = registered;
}

void ClassRegistry::remove(const OdRxClass* registered) {
  byName_.erase(registered->utf8Name());
  byDxfName_.erase(registered->dxfName());
}

ClassRegistry& classRegistry() {
  static auto* const registry = new ClassRegistry; // never destroyed: descriptors outlive static objects
  return *registry;
}
