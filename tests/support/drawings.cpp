#include "tests/support/drawings.h"

namespace tests {

namespace {

template <class Record>
OdDbObjectId addRecord(OdDbObjectId table, const OdString& name) {
  const OdSmartPtr<Record> record = Record::createObject();
  record->setName(name);
  return forWrite<OdDbSymbolTable>(table)->add(record.get());
}

OdDbObjectId append(OdDbDatabase& database, OdDbObjectId block, OdDbEntity* entity) {
  return forWrite<OdDbBlockTableRecord>(block.isNull() ? database.getModelSpaceId() : block)->appendOdDbEntity(entity);
}

} // namespace

OdDbObjectId addLayer(OdDbDatabase& database, const OdString& name) {
  return addRecord<OdDbLayerTableRecord>(database.getLayerTableId(), name);
}

OdDbObjectId addBlock(OdDbDatabase& database, const OdString& name) {
  return addRecord<OdDbBlockTableRecord>(database.getBlockTableId(), name);
}

OdDbObjectId addText(OdDbDatabase& database, const OdString& text, OdDbObjectId block) {
  const OdSmartPtr<OdDbText> entity = OdDbText::createObject();
  entity->setDatabaseDefaults(&database);
  entity->setTextString(text);
  entity->setHeight(2.5);
  return append(database, block, entity.get());
}

OdDbObjectId addReference(OdDbDatabase& database, OdDbObjectId block, OdDbObjectId into) {
  const OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
  reference->setDatabaseDefaults(&database);
  reference->setBlockTableRecord(block);
  return append(database, into, reference.get());
}

OdDbObjectId addAttribute(OdDbObjectId reference, const OdString& tag, const OdString& value) {
  const OdDbAttributePtr attribute = OdDbAttribute::createObject();
  attribute->setDatabaseDefaults(reference.database());
  attribute->setTag(tag);
  attribute->setTextString(value);
  return forWrite<OdDbBlockReference>(reference)->appendAttribute(attribute.get());
}

OdDbObjectIdArray entitiesOf(OdDbObjectId block) {
  OdDbObjectIdArray ids;
  for (const auto walk = forRead<OdDbBlockTableRecord>(block)->newIterator(); !walk->done(); walk->step())
    ids.append(walk->objectId());
  return ids;
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

} // namespace tests
