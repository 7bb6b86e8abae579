// The annotative properties of objects, kept as extended data of two applications.
#include "DbAnnotativeObjectPE.h"
#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbDimension.h"
#include "DbMText.h"
#include "DbPaperOrientationPE.h"
#include "DbSymbolRecords.h"
#include "drawing/model/object_store.h"
#include "drawing/model/registered_app.h"

#include <optional>

MVDRAWING_DEFINE_ABSTRACT_CLASS(OdDbAnnotativeObjectPE, OdRxObject);
MVDRAWING_DEFINE_ABSTRACT_CLASS(OdDbPaperOrientationPE, OdRxObject);

using drawing::getIf;
using drawing::WriteScope;

namespace {

const OdString kAnnotative = L"AcadAnnotative";
const OdString kOrientation = L"AcadAnnoPO";
const OdString kContextData = L"AcDbContextDataManager";
const OdString kScales = L"ACDB_ANNOTATIONSCALES";
constexpr int kWhole = 1070;

// The last whole number of the application's data: the flag, behind a version where there is one.
std::optional<bool> storedFlag(const OdDbObject& object, const OdString& application) {
  std::optional<bool> flag;
  const OdResBufPtr chain = object.xData(application);
  for (const OdResBuf* at = chain.get(); at != nullptr; at = at->next().get()) {
    if (at->groupCode() == kWhole)
      flag = at->getInt() != 0;
  }
  return flag;
}

void store(OdDbObject& object, const OdResBufPtr& chain) {
  if (object.database() != nullptr)
    drawing::registerApplication(*object.database(), chain->getString());
  object.setXData(chain.get());
}

void removeData(OdDbObject& object, const OdString& application) {
  if (!object.xData(application).isNull())
    object.setXData(OdResBuf::make(1001, application).get());
}

const OdDbDictionary* contextData(const OdDbObject& object) {
  const auto* extension = getIf<OdDbDictionary>(object.extensionDictionary());
  return extension == nullptr ? nullptr : getIf<OdDbDictionary>(extension->getAt(kContextData));
}

bool hasScales(const OdDbObject& object) {
  const OdDbDictionary* data = contextData(object);
  const auto* scales = data == nullptr ? nullptr : getIf<OdDbDictionary>(data->getAt(kScales));
  return scales != nullptr && scales->numEntries() != 0;
}

void removeContextData(OdDbObject& object) {
  const OdDbDictionary* data = contextData(object);
  if (data == nullptr)
    return;
  auto& extension = *getIf<OdDbDictionary>(object.extensionDictionary());
  const WriteScope scope(extension);
  extension.remove(kContextData);
  const OdDbObjectPtr gone = data->objectId().safeOpenObject(OdDb::kForWrite);
  gone->erase();
}

class Annotative : public OdDbAnnotativeObjectPE {
public:
  bool annotative(OdDbObject* object) const override {
    if (object == nullptr)
      return false;
    const std::optional<bool> flag = storedFlag(*object, kAnnotative);
    return flag.has_value() ? *flag : hasScales(*object);
  }

  OdResult setAnnotative(OdDbObject* object, bool annotative) override {
    if (object == nullptr)
      return eNullObjectPtr;
    object->assertWriteEnabled();
    if (!annotative) {
      removeData(*object, kAnnotative);
      removeContextData(*object);
      return eOk;
    }
    const OdResBufPtr chain = OdResBuf::make(1001, kAnnotative);
    chain->setNext(OdResBuf::make(1000, OdString(L"AnnotativeData")))
        ->setNext(OdResBuf::make(1002, OdString(L"{")))
        ->setNext(OdResBuf::makeInteger(kWhole, 1)) // version
        ->setNext(OdResBuf::makeInteger(kWhole, 1))
        ->setNext(OdResBuf::make(1002, OdString(L"}")));
    store(*object, chain);
    return eOk;
  }
};

class AnnotativeReference final : public Annotative {
public:
  bool annotative(OdDbObject* object) const override {
    return Annotative::annotative(object) || (object != nullptr && byDefinition(*object));
  }

  OdResult setAnnotative(OdDbObject* object, bool annotative) override {
    if (object != nullptr && !annotative && byDefinition(*object)) {
      object->assertWriteEnabled();
      return eNotApplicable;
    }
    return Annotative::setAnnotative(object, annotative);
  }

private:
  bool byDefinition(const OdDbObject& object) const {
    return Annotative::annotative(drawing::lookup(static_cast<const OdDbBlockReference&>(object).blockTableRecord()));
  }
};

class PaperOrientation final : public OdDbPaperOrientationPE {
public:
  bool paperOrientation(OdDbObject* object) const override {
    return object != nullptr && storedFlag(*object, kOrientation).value_or(false);
  }

  OdResult setPaperOrientation(OdDbObject* object, bool matches) override {
    if (object == nullptr)
      return eNullObjectPtr;
    object->assertWriteEnabled();
    if (!matches) {
      removeData(*object, kOrientation);
      return eOk;
    }
    const OdResBufPtr chain = OdResBuf::make(1001, kOrientation);
    chain->setNext(OdResBuf::makeInteger(kWhole, 1));
    store(*object, chain);
    return eOk;
  }
};

// The kinds that can be annotative; derived kinds with them.
[[maybe_unused]] const bool kRegistered = [] {
  const OdRxObjectPtr annotative(new Annotative), orientation(new PaperOrientation);
  for (OdRxClass* kind : {
           OdDbBlockTableRecord::desc(),
           OdDbText::desc(),
           OdDbMText::desc(),
           OdDbDimension::desc(),
           OdDbTextStyleTableRecord::desc(),
           OdDbDimStyleTableRecord::desc(),
           OdDbBlockReference::desc(),
       }) {
    kind->setExtension(OdDbAnnotativeObjectPE::desc(), annotative.get());
    kind->setExtension(OdDbPaperOrientationPE::desc(), orientation.get());
  }
  const OdRxObjectPtr reference(new AnnotativeReference);
  OdDbBlockReference::desc()->setExtension(OdDbAnnotativeObjectPE::desc(), reference.get());
  return true;
}();

} // namespace
