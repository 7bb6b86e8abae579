#include "tests/support/drawings.h"

#include "tests/support/oracles.h"

namespace tests {

namespace {

template <class Record>
OdDbObjectId addRecord(OdDbObjectId table, const OdString& name) {
  const OdSmartPtr<Record> record = Record::createObject();
  record->setName(name);
  return forWrite<OdDbSymbolTable>(table)->add(record.get());
}

} // namespace

OdDbObjectIdArray entitiesOf(OdDbObjectId block) {
  OdDbObjectIdArray ids;
  for (auto iterator = forRead<OdDbBlockTableRecord>(block)->newIterator(); !iterator->done(); iterator->step())
    ids.append(iterator->objectId());
  return ids;
}

OdDbIdMapping cloned(const OdDbObjectIdArray& ids, OdDbObjectId owner) {
  OdDbIdMapping mapping;
  OdDbDatabase& source = *ids.first().database();
  EXPECT_EQ(owner.database() == &source ? source.deepCloneObjects(ids, owner, mapping)
                                        : source.wblockCloneObjects(ids, owner, mapping, OdDb::kDrcIgnore),
            eOk);
  return mapping;
}

OdDbDatabasePtr skewedDrawing() {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  skewHandles(*database);
  return database;
}

std::vector<OdString> recordNames(const OdDbDatabase& database, OdDb::SymbolTableKind kind) {
  std::vector<OdString> names;
  const auto table = forRead<OdDbSymbolTable>(database.getSymbolTableId(kind));
  for (auto iterator = table->newIterator(); !iterator->done(); iterator->step())
    names.push_back(iterator->getRecord()->getName());
  return names;
}

OdDbObjectId addLayer(OdDbDatabase& database, const OdString& name) {
  return addRecord<OdDbLayerTableRecord>(database.getLayerTableId(), name);
}

OdDbObjectId addBlock(OdDbDatabase& database, const OdString& name) {
  return addRecord<OdDbBlockTableRecord>(database.getBlockTableId(), name);
}

OdDbObjectId addText(OdDbDatabase& database, const OdString& text, OdDbObjectId block) {
  const auto entity = addTo<OdDbText>(block.isNull() ? database.getModelSpaceId() : block);
  entity->setTextString(text);
  entity->setHeight(2.5);
  return entity->objectId();
}

OdDbObjectId addReference(OdDbDatabase& database, OdDbObjectId block, OdDbObjectId into) {
  const OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
  reference->setDatabaseDefaults(&database);
  reference->setBlockTableRecord(block);
  const OdDbObjectId owner = into.isNull() ? database.getModelSpaceId() : into;
  return forWrite<OdDbBlockTableRecord>(owner)->appendEntity(reference.get());
}

OdDbObjectId addAttribute(OdDbObjectId reference, const OdString& tag, const OdString& value) {
  const OdDbAttributePtr attribute = OdDbAttribute::createObject();
  attribute->setDatabaseDefaults(reference.database());
  attribute->setTag(tag);
  attribute->setTextString(value);
  return forWrite<OdDbBlockReference>(reference)->appendAttribute(attribute.get());
}

std::string dxf(const std::string& lines, const std::string& version, const std::string& codePage) {
  std::string header = version.empty() ? "" : "9|$ACADVER\n1|" + version + "\n";
  if (!codePage.empty())
    header += "9|$DWGCODEPAGE\n3|" + codePage + "\n";
  std::string text = (header.empty() ? "" : section("HEADER", header)) + lines + "0|EOF\n";
  for (char& c : text) {
    if (c == '|')
      c = '\n';
  }
  return text;
}

std::string section(const std::string& name, const std::string& lines) {
  return "0|SECTION\n2|" + name + "\n" + lines + "0|ENDSEC\n";
}

std::string table(const std::string& name, const std::string& records, const std::string& handle) {
  return "0|TABLE\n2|" + name + "\n5|" + handle + "\n100|AcDbSymbolTable\n70|9\n" + records + "0|ENDTAB\n";
}

std::string blockRecord(const std::string& handle, const std::string& name) {
  return "0|BLOCK_RECORD\n5|" + handle + "\n100|AcDbSymbolTableRecord\n100|AcDbBlockTableRecord\n2|" + name + "\n";
}

std::string block(const std::string& handle, const std::string& name, const std::string& contents,
                  const std::string& flags) {
  return "0|BLOCK\n330|" + handle + "\n100|AcDbEntity\n8|0\n100|AcDbBlockBegin\n2|" + name + "\n70|" + flags +
         "\n10|0\n20|0\n30|0\n" + contents + "0|ENDBLK\n100|AcDbEntity\n8|0\n100|AcDbBlockEnd\n";
}

std::string insert(const std::string& handle, const std::string& name) {
  return "0|INSERT\n5|" + handle + "\n100|AcDbEntity\n8|0\n100|AcDbBlockReference\n2|" + name + "\n10|0\n20|0\n30|0\n";
}

drawing::ReadResult readWell(std::string_view text) {
  drawing::ReadResult read = drawing::readDrawingFromMemory(text);
  EXPECT_FALSE(read.database.isNull()) << read.message;
  if (read.database.isNull())
    throw OdError(read.result);
  return read;
}

} // namespace tests
