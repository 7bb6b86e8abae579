#include "blockcommon/insert/attributes_defaults.h"

#include "blockcommon/attributes.h"
#include "morvane/drawing_tools.h"

namespace insertCommon {
namespace {

// Where the block's contents lie in the world. Both origins are taken away in block coordinates.
OdGeMatrix3d placement(const OdDbBlockReference& reference, const OdGePoint3d& blockOrigin,
                       const OdGePoint3d& spaceOrigin) {
  const OdGePoint3d& zero = OdGePoint3d::kOrigin;
  const OdGeVector3d shift(zero.x - ((blockOrigin.x - zero.x) + spaceOrigin.x),
                           zero.y - ((blockOrigin.y - zero.y) + spaceOrigin.y),
                           zero.z - ((blockOrigin.z - zero.z) + spaceOrigin.z));
  OdGeMatrix3d matrix = reference.blockTransform();
  matrix *= OdGeMatrix3d::translation(shift);
  return matrix;
}

} // namespace

OdDbObjectId appendWithDefault(OdDbBlockReference& reference, const OdDbAttributeDefinition& definition,
                               const OdGeMatrix3d& placed) {
  const OdDbAttributePtr attribute = OdDbAttribute::createObject();
  attribute->setAttributeFromBlock(&definition, placed);
  if (definition.isPreset())
    attribute->setTextString(definition.textString());
  return reference.appendAttribute(attribute.get());
}

bool addDefaultAttributeToBlk(OdSmartPtr<OdDbBlockReference> pRef) {
  if (pRef.isNull() || pRef->database() == nullptr || pRef->blockTableRecord().isNull())
    return false;
  const OdDbBlockTableRecordPtr block = pRef->blockTableRecord().safeOpenObject();
  const OdDbBlockTableRecordPtr space = qzutads::currentSpaceId().safeOpenObject();
  if (block.isNull() || space.isNull())
    return false;
  const OdGeMatrix3d placed = placement(*pRef, block->origin(), space->origin());
  for (auto it = block->newIterator(); !it->done(); it->step()) {
    const OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::cast(it->entity());
    if (!definition.isNull() && !definition->isConstant())
      appendWithDefault(*pRef, *definition, placed);
  }
  return true;
}

} // namespace insertCommon
