#include "tests/support/dynamic_blocks.h"

#include "DbDictionary.h"

namespace tests {

void setData(OdDbObjectId id, const OdString& application, int code, OdDbObjectId reference, const OdString& text) {
  OdDbDatabase& database = *id.database();
  if (database.symbol(OdDb::kRegAppTable, application).isNull()) {
    const OdSmartPtr<OdDbRegAppTableRecord> record = OdDbRegAppTableRecord::createObject();
    record->setName(application);
    forWrite<OdDbSymbolTable>(database.getRegAppTableId())->add(record.get());
  }
  const OdResBufPtr chain = OdResBuf::newRb(1001, application);
  chain->setNext(OdResBuf::newInt(1070, 1))
      ->setNext(reference.isNull() ? OdResBuf::newRb(code, text) : OdResBuf::newRb(code, reference));
  forWrite<OdDbObject>(id)->setXData(chain.get());
}

void makeDynamic(OdDbObjectId block) {
  const auto extension = forWrite<OdDbBlockTableRecord>(block)->createExtensionDictionary();
  forWrite<OdDbDictionary>(extension)->setAt(L"ACAD_ENHANCEDBLOCK", OdDbDictionary::createObject().get());
}

void markShape(OdDbObjectId shape, OdDbObjectId definition) {
  setData(shape, L"AcDbBlockRepBTag", 1005, definition);
}

OdDbObjectId addShape(OdDbObjectId definition) {
  const OdDbObjectId shape = addBlock(*definition.database(), L"*U");
  markShape(shape, definition);
  return shape;
}

} // namespace tests
