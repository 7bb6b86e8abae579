#include "console/attributes/attributes.h"

#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "DbDynBlockReference.h"
#include "DbField.h"
#include "morvane/drawing_tools.h"

namespace console {
namespace {

std::vector<const char*> flagsOf(const OdDbAttribute& attribute) {
  std::vector<const char*> flags;
  const std::pair<bool, const char*> all[] = {{attribute.isInvisible(), "invisible"},
                                              {attribute.isConstant(), "constant"},
                                              {attribute.isPreset(), "preset"},
                                              {attribute.isVerifiable(), "verify"},
                                              {attribute.isMTextAttribute(), "multi-line"}};
  for (const auto& [set, name] : all) {
    if (set)
      flags.push_back(name);
  }
  return flags;
}

} // namespace

OdString effectiveBlockName(const OdDbBlockReference& reference) {
  const OdDbObjectId dynamic = OdDbDynBlockReference(&reference).dynamicBlockTableRecord();
  const OdDbObjectId block = dynamic.isNull() ? reference.blockTableRecord() : dynamic;
  const OdDbBlockTableRecordPtr record = OdDbBlockTableRecord::cast(block.safeOpenObject());
  return record.isNull() ? OdString() : record->getName();
}

OdString attributeName(const AttributeRow& row) {
  return row.ordinal == 1 ? row.tag : row.tag + L"#" + OdString(std::to_wstring(row.ordinal));
}

ReferenceAttributes::ReferenceAttributes(const OdDbBlockReference& reference) {
  OdString block;
  for (auto it = reference.attributeIterator(); !it->done(); it->step()) {
    const OdDbAttributePtr attribute = it->entity();
    if (attribute.isNull())
      continue;
    if (rows_.empty())
      block = effectiveBlockName(reference);
    const int ordinal = tags_.add(attribute->tag());
    rows_.push_back({reference.objectId(), attribute->objectId(), block, attribute->tag(), ordinal,
                     attribute->textString(), flagsOf(*attribute)});
  }
}

const AttributeRow* ReferenceAttributes::at(std::optional<std::size_t> index) const {
  return index ? &rows_[*index] : nullptr;
}

std::vector<AttributeRow> attributesOf(const OdDbDatabase& database) {
  std::vector<AttributeRow> rows;
  const OdDbSymbolTablePtr table = database.getBlockTableId().safeOpenObject();
  for (auto iterator = table->newIterator(); !iterator->done(); iterator->step()) {
    const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(iterator->getRecord());
    if (block.isNull() || block->isFromExternalReference())
      continue;
    for (auto it = block->newIterator(); !it->done(); it->step()) {
      const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(it->entity());
      if (reference.isNull() || !reference->hasAttributes())
        continue;
      const ReferenceAttributes attributes(*reference);
      rows.insert(rows.end(), attributes.rows().begin(), attributes.rows().end());
    }
  }
  return rows;
}

ValueChange changeValue(OdDbObjectId id, OdString value) {
  const OdDbAttributePtr attribute = id.safeOpenObject();
  if (qzutads::isObjLocked(id, true) || qzutads::isObjLocked(attribute->ownerId(), true))
    return ValueChange::kLocked;
  if (attribute->isConstant())
    return ValueChange::kConstant;
  if (attribute->isMTextAttribute()) {
    value.replace(L"\r\n", L"\n");
    value.replace(L"\n", L"\\P");
  } else if (value.findOneOf(L"\r\n") >= 0) {
    return ValueChange::kLines;
  }
  if (attribute->textString().str() == value.str())
    return ValueChange::kSame;
  const OdDbAttributePtr writing = id.safeOpenObject(OdDb::kForWrite);
  writing->setTextString(value);
  return OdDbField::removeField(*writing) == eOk ? ValueChange::kSetWithoutField : ValueChange::kSet;
}

} // namespace console
