// The definition that a reference stands for.
#pragma once

#include "DbBlockTable.h"
#include "DbDynBlockReference.h"

namespace RefUtils {

inline OdDbObjectId definitionId(const OdDbBlockReference& reference) {
  const OdDbDynBlockReference dynamic(&reference);
  return dynamic.isDynamicBlock() ? dynamic.dynamicBlockTableRecord() : reference.blockTableRecord();
}

// Null when it does not open; throws when it is not a definition.
inline OdDbBlockTableRecordPtr definitionOf(const OdDbBlockReference& reference) {
  return definitionId(reference).safeOpenObject();
}

} // namespace RefUtils
