// Small drawings for tests, and short ways to put things into them.
#pragma once

#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "DbSymbolRecords.h"
#include "DbText.h"
#include "tests/support/print.h"

#include <gtest/gtest.h>

#include <string>

namespace tests {

// The object behind an id, open for write; fails the test and throws when it does not open.
template <class T>
OdSmartPtr<T> forWrite(OdDbObjectId id) {
  return OdSmartPtr<T>(id.safeOpenObject(OdDb::kForWrite));
}
template <class T>
OdSmartPtr<T> forRead(OdDbObjectId id) {
  return OdSmartPtr<T>(id.safeOpenObject(OdDb::kForRead));
}

OdDbObjectId addLayer(OdDbDatabase& database, const OdString& name);
OdDbObjectId addBlock(OdDbDatabase& database, const OdString& name);
// Into model space unless a block is named.
OdDbObjectId addText(OdDbDatabase& database, const OdString& text, OdDbObjectId block = OdDbObjectId());
OdDbObjectId addReference(OdDbDatabase& database, OdDbObjectId block, OdDbObjectId into = OdDbObjectId());
OdDbObjectIdArray entitiesOf(OdDbObjectId block);
OdDbObjectId addAttribute(OdDbObjectId reference, const OdString& tag, const OdString& value);

// A text DXF from the lines between its first section and its end, "code|value" each; the header with the version
// comes in front. An empty version leaves it out.
std::string dxf(const std::string& lines, const std::string& version = "AC1015", const std::string& codePage = "");
// A section with these lines.
std::string section(const std::string& name, const std::string& lines);

} // namespace tests
