#include "DbObjectId.h"

#include "DbDatabase.h"
#include "drawing/model/object_store.h"

#include <charconv>

using drawing::Store;

const OdDbObjectId OdDbObjectId::kNull;

std::string OdDbHandle::ascii() const {
  char text[17];
  const auto end = std::to_chars(text, text + sizeof text, value_, 16).ptr;
  for (char* c = text; c != end; ++c)
    *c = *c >= 'a' ? static_cast<char>(*c - 32) : *c;
  return {text, end};
}

bool OdDbObjectId::isValid() const {
  return !isNull() && Store::of(*this) != nullptr;
}

bool OdDbObjectId::isErased() const {
  const OdDbObject* object = drawing::lookup(*this);
  return object == nullptr || object->isErased();
}

OdDbDatabase* OdDbObjectId::database() const {
  const Store* store = Store::of(*this);
  return store == nullptr ? nullptr : store->database();
}

OdDbHandle OdDbObjectId::getHandle() const {
  const Store* store = Store::of(*this);
  return store == nullptr || !store->contains(number()) ? OdDbHandle(0) : store->handle(*this);
}

OdRxClass* OdDbObjectId::objectClass() const {
  const OdDbObject* object = drawing::lookup(*this);
  return object == nullptr ? nullptr : object->isA();
}

OdResult OdDbObjectId::openObject(OdDbObjectPtr& object, OdDb::OpenMode mode, bool openErased) const {
  object = nullptr;
  if (isNull())
    return eNullObjectId;
  if (!isValid())
    return eDatabaseGone;
  OdDbObject* found = drawing::lookup(*this);
  if (found == nullptr)
    return eObjectDoesNotOpen;
  if (found->isErased() && !openErased)
    return eWasErased;
  if (mode == OdDb::kForWrite && found->isOnLockedLayer())
    return eOnLockedLayer;
  if (mode == OdDb::kForWrite)
    found->writable_ = true;
  object = found;
  return eOk;
}

OdDbObjectPtr OdDbObjectId::safeOpenObject(OdDb::OpenMode mode, bool openErased) const {
  OdDbObjectPtr object;
  openObject(object, mode, openErased);
  return object;
}
