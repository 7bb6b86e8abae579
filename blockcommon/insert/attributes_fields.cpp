#include "blockcommon/insert/attributes_fields.h"

#include "DbField.h"
#include "blockcommon/attributes.h"
#include "blockcommon/selections.h"

namespace insertCommon {

bool isKeptByField(const OdDbBlockReference& reference, const OdDbAttributeDefinition& definition) {
  if (reference.database() == nullptr || !OdDbField::hasFields(definition))
    return false;
  const OdDbFieldPtr field = OdDbField::getField(definition, L"TEXT").safeOpenObject();
  return field.isNull();
}

bool processAttributesFieldsForInsert(OdSmartPtr<OdDbBlockReference> pRef, OdDbObjectIdArray& ids) {
  if (pRef.isNull())
    return false;
  OdDbObjectIdArray definitions, attributes;
  getAllAttributeDefinesOfBlk(pRef, definitions);
  getAllAttributesOfBlkRef(pRef, attributes);
  if (definitions.size() != attributes.size())
    return false;
  for (OdDbObjectIdArray::size_type i = 0; i < definitions.size(); ++i) {
    if (!ids.contains(attributes[i]))
      continue;
    const OdDbAttributeDefinitionPtr definition = definitions[i].safeOpenObject();
    if (definition.isNull())
      continue;
    const CMvAutoUnLockEntityLayer unlocked(attributes[i]);
    const OdDbAttributePtr attribute = attributes[i].safeOpenObject(OdDb::kForWrite);
    if (!attribute.isNull())
      isKeptByField(*pRef, *definition);
  }
  return true;
}

namespace {

void evaluateTextField(const OdDbAttributeDefinition& definition) {
  constexpr int kOnDemand = 32;
  const OdDbFieldPtr field = OdDbField::getField(definition, L"TEXT").safeOpenObject();
  if (field.isNull())
    return;
  for (int i = 0; i < field->childCount(); ++i)
    field->getChild(i, OdDb::kForWrite)->evaluate(kOnDemand, definition.database());
}

} // namespace

// Deliberate: only an iterator that has come to its end is walked on, so contents keep the values computed last.
void updateFiledAttributeDefines(const OdDbObjectId& blockId) {
  if (!blockId.isValid())
    return;
  const OdDbBlockTableRecordPtr block = blockId.safeOpenObject();
  if (block.isNull() || !block->hasAttributeDefinitions())
    return;
  for (auto it = block->newIterator(); it->done();) {
    const OdDbEntityPtr entity = it->entity();
    if (entity.isNull())
      return;
    it->step();
    const OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::cast(entity);
    if (!definition.isNull() && !definition->isConstant() && OdDbField::hasFields(*definition))
      evaluateTextField(*definition);
  }
}

} // namespace insertCommon
