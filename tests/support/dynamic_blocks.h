// The marks of dynamic blocks and their shapes in files.
#pragma once

#include "DbDictionary.h"
#include "tests/support/drawings.h"

namespace tests {

// Extended data of the application: a reference to an object, or the text when that is null.
inline void setData(OdDbObjectId id, const OdString& application, int code, OdDbObjectId reference,
                    const OdString& text = {}) {
  OdDbDatabase& database = *id.database();
  if (database.symbol(OdDb::kRegAppTable, application).isNull()) {
    const OdSmartPtr<OdDbRegAppTableRecord> record = OdDbRegAppTableRecord::createObject();
    record->setName(application);
    forWrite<OdDbSymbolTable>(database.getRegAppTableId())->add(record.get());
  }
  const OdResBufPtr chain = OdResBuf::make(1001, application);
  chain->setNext(OdResBuf::makeInteger(1070, 1))
      ->setNext(reference.isNull() ? OdResBuf::make(code, text) : OdResBuf::make(code, reference));
  forWrite<OdDbObject>(id)->setXData(chain.get());
}

inline void makeDynamic(OdDbObjectId block) {
  const auto extension = forWrite<OdDbBlockTableRecord>(block)->createExtensionDictionary();
  forWrite<OdDbDictionary>(extension)->setAt(L"ACAD_ENHANCEDBLOCK", OdDbDictionary::createObject().get());
}

inline void markShape(OdDbObjectId shape, OdDbObjectId definition) {
  setData(shape, L"AcDbBlockRepBTag", 1005, definition);
}

// A new anonymous block.
inline OdDbObjectId addShape(OdDbObjectId definition) {
  const OdDbObjectId shape = addBlock(*definition.database(), L"*U");
  markShape(shape, definition);
  return shape;
}

} // namespace tests
