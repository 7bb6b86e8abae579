// Small drawings for tests, and short ways to put things into them.
#pragma once

#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "DbIdMapping.h"
#include "DbSymbolRecords.h"
#include "DbText.h"
#include "drawing/file.h"
#include "tests/support/print.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

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

// A new entity at the end of the block, open for write, with the drawing's defaults.
template <class T>
OdSmartPtr<T> addTo(OdDbObjectId block) {
  const OdSmartPtr<T> entity = T::createObject();
  entity->setDatabaseDefaults(block.database());
  forWrite<OdDbBlockTableRecord>(block)->appendEntity(entity.get());
  return entity;
}
OdDbObjectIdArray entitiesOf(OdDbObjectId block);
// Clones into the owner, of this or another drawing, where records that are there stay. The test fails when it cannot.
OdDbIdMapping cloned(const OdDbObjectIdArray& ids, OdDbObjectId owner);
// A new drawing with a gap in its numbering, so that a handle that was copied instead of translated names nothing.
OdDbDatabasePtr skewedDrawing();
std::vector<OdString> recordNames(const OdDbDatabase& database, OdDb::SymbolTableKind kind);

OdDbObjectId addLayer(OdDbDatabase& database, const OdString& name);
OdDbObjectId addBlock(OdDbDatabase& database, const OdString& name);
// Into model space unless a block is named.
OdDbObjectId addText(OdDbDatabase& database, const OdString& text, OdDbObjectId block = OdDbObjectId());
OdDbObjectId addReference(OdDbDatabase& database, OdDbObjectId block, OdDbObjectId into = OdDbObjectId());
OdDbObjectId addAttribute(OdDbObjectId reference, const OdString& tag, const OdString& value);

// A text DXF from the lines between its first section and its end, "code|value" each; the header with the version
// comes in front. An empty version leaves it out.
std::string dxf(const std::string& lines, const std::string& version = "AC1015", const std::string& codePage = "");
// Sections, tables and what stands in them, with the markers of files since R13.
std::string section(const std::string& name, const std::string& lines);
std::string table(const std::string& name, const std::string& records, const std::string& handle);
std::string blockRecord(const std::string& handle, const std::string& name);
std::string block(const std::string& handle, const std::string& name, const std::string& contents = "",
                  const std::string& flags = "0");
std::string insert(const std::string& handle, const std::string& name);
// Reads what must be a drawing; fails the test and throws when it is none.
drawing::ReadResult readWell(std::string_view text);

} // namespace tests
