#include "drawing/explode.h"

#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "DbIdMapping.h"
#include "DbSpatialFilter.h"
#include "drawing/cloning/explode_properties.h"

#include <algorithm>

namespace drawing {
namespace {

// Layers are unlocked while copies are moved that lie on them.
class AllUnlocked {
public:
  explicit AllUnlocked(OdDbDatabase& database) {
    const OdDbSymbolTablePtr table = database.getLayerTableId().safeOpenObject();
    for (const auto iterator = table->newIterator(); !iterator->done(); iterator->step()) {
      const OdDbLayerTableRecordPtr layer = iterator->getRecord(OdDb::kForWrite);
      if (!layer->isLocked())
        continue;
      layer->setIsLocked(false);
      locked_.push_back(layer->objectId());
    }
  }
  ~AllUnlocked() {
    for (const OdDbObjectId id : locked_)
      OdDbLayerTableRecordPtr(id.safeOpenObject(OdDb::kForWrite))->setIsLocked(true);
  }
  AllUnlocked(const AllUnlocked&) = delete;
  AllUnlocked& operator=(const AllUnlocked&) = delete;

private:
  std::vector<OdDbObjectId> locked_;
};

bool isFlat(const OdDbBlockTableRecord& block) {
  OdGeExtents3d extents;
  return block.getGeomExtents(extents) == eOk && extents.minPoint().z == block.origin().z &&
         extents.maxPoint().z == block.origin().z;
}

// Programs write 0 for the scale of z where there is nothing to scale; any other shows flat contents just so.
OdGeMatrix3d transformOf(const OdDbBlockReference& reference, const OdDbBlockTableRecord& block) {
  OdGeMatrix3d matrix = reference.blockTransform();
  if (reference.scaleFactors().sz == 0 && isFlat(block)) {
    const OdGeVector3d up = reference.normal();
    matrix.entry[0][2] = up.x;
    matrix.entry[1][2] = up.y;
    matrix.entry[2][2] = up.z;
  }
  return matrix;
}

// From one row or column to the next, in world coordinates.
std::vector<OdGeMatrix3d> instanceTransforms(const OdDbBlockReference& reference, const OdDbBlockTableRecord& block) {
  const OdGeMatrix3d first = transformOf(reference, block) * OdGeMatrix3d::translation(OdGePoint3d() - block.origin());
  const auto array = OdDbMInsertBlock::cast(const_cast<OdDbBlockReference*>(&reference));
  if (array.isNull())
    return {first};
  const OdGeMatrix3d axes = OdGeMatrix3d::planeToWorld(reference.normal()) *
                            OdGeMatrix3d::rotation(reference.rotation(), OdGeVector3d::kZAxis);
  std::vector<OdGeMatrix3d> transforms;
  for (int row = 0; row < std::max<int>(array->rows(), 1); ++row) {
    for (int column = 0; column < std::max<int>(array->columns(), 1); ++column) {
      const OdGeVector3d shift(column * array->columnSpacing(), row * array->rowSpacing(), 0);
      transforms.push_back(OdGeMatrix3d::translation(axes * shift) * first);
    }
  }
  return transforms;
}

ExplodeRefusal refusalOf(OdDbObjectId id) {
  const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(id.safeOpenObject());
  if (reference.isNull())
    return ExplodeRefusal::kNotAReference;
  if (reference->isOnLockedLayer())
    return ExplodeRefusal::kOnLockedLayer;
  const auto block = OdDbBlockTableRecord::cast(reference->blockTableRecord().safeOpenObject());
  if (block.isNull())
    return ExplodeRefusal::kNoDefinition;
  if (block->isFromExternalReference() || block->getName().find(L'|') >= 0)
    return ExplodeRefusal::kExternal;
  return block->explodable() ? ExplodeRefusal::kNone : ExplodeRefusal::kNotAllowed;
}

class Exploding {
public:
  Exploding(OdDbObjectId id, const ExplodeOptions& options)
      : reference_(id.safeOpenObject()), block_(reference_->blockTableRecord().safeOpenObject()),
        database_(*reference_->database()), options_(options), byBlock_(*reference_), unlocked_(database_) {}

  Exploded run() {
    splitContents();
    const std::vector<OdGeMatrix3d> transforms = instanceTransforms(*reference_, *block_);
    if (transforms.size() * (contents_.size() + 1) > options_.objects) {
      result_.refusal = ExplodeRefusal::kTooMuch;
      return result_;
    }
    for (const OdGeMatrix3d& transform : transforms)
      putCopies(transform);
    if (!result_.unplaceable.empty())
      return rollBack();
    putTexts(transforms.front());
    result_.clipLost = !OdDbSpatialFilter::of(*reference_).isNull();
    reference_->upgradeOpen();
    reference_->erase();
    return result_;
  }

private:
  void splitContents() {
    for (const OdDbObjectId id : block_->drawOrder()) {
      const OdDbEntityPtr entity = OdDbEntity::cast(id.safeOpenObject());
      if (entity.isNull())
        continue;
      const auto definition = OdDbAttributeDefinition::cast(entity);
      if (definition.isNull() || !options_.attributesAsText)
        contents_.append(id);
      else if (definition->isConstant())
        constants_.push_back(definition);
    }
  }

  void putCopies(const OdGeMatrix3d& transform) {
    const OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
    mapping->setDestDb(&database_);
    mapping->setObjectLimit(options_.objects);
    if (const OdResult reason = database_.deepCloneObjects(contents_, reference_->blockId(), *mapping); reason != eOk)
      throw OdError(reason);
    for (const OdDbIdPair& pair : mapping->pairs()) {
      if (pair.isPrimary() && pair.isCloned())
        finish(pair, transform);
    }
  }

  void finish(const OdDbIdPair& pair, const OdGeMatrix3d& transform) {
    const OdDbEntityPtr copy = pair.value().safeOpenObject(OdDb::kForWrite);
    result_.made.append(pair.value());
    if (copy->transformBy(transform) == eOk)
      byBlock_.applyTo(pair.value());
    else if (!isKnown(pair.key()))
      result_.unplaceable.push_back({copy->dxfName(), pair.key()});
  }
  bool isKnown(OdDbObjectId object) const {
    return std::any_of(result_.unplaceable.begin(), result_.unplaceable.end(),
                       [&](const auto& one) { return one.object == object; });
  }

  Exploded rollBack() {
    for (const OdDbObjectId id : result_.made)
      id.safeOpenObject(OdDb::kForWrite)->erase();
    result_.made.clear();
    result_.refusal = ExplodeRefusal::kCannotPlace;
    return result_;
  }

  void putTexts(const OdGeMatrix3d& transform) {
    for (const auto iterator = reference_->attributeIterator(); !iterator->done(); iterator->step()) {
      const OdDbAttributePtr attribute = iterator->entity();
      if (!options_.attributesAsText || attribute->isInvisible())
        ++result_.valuesLost;
      else
        putText(*attribute);
    }
    for (const OdDbAttributeDefinitionPtr& definition : constants_) {
      const OdDbAttributePtr constant = OdDbAttribute::createObject();
      constant->setAttributeFromBlock(definition.get(), transform);
      if (!constant->isInvisible())
        putText(*constant);
    }
  }

  void putText(const OdDbAttribute& attribute) {
    OdDbEntityPtr text = attribute.getMTextAttribute();
    if (text.isNull()) {
      const OdDbTextPtr line = OdDbText::createObject();
      line->setTextFrom(attribute);
      text = line;
    }
    text->setPropertiesFrom(attribute);
    const OdDbBlockTableRecordPtr space = reference_->blockId().safeOpenObject(OdDb::kForWrite);
    const OdDbObjectId id = space->appendEntity(text.get());
    byBlock_.applyTo(id);
    result_.made.append(id);
  }

  OdDbBlockReferencePtr reference_;
  OdDbBlockTableRecordPtr block_;
  OdDbDatabase& database_;
  const ExplodeOptions& options_;
  const ByBlockProperties byBlock_;
  const AllUnlocked unlocked_;
  OdDbObjectIdArray contents_;
  std::vector<OdDbAttributeDefinitionPtr> constants_;
  Exploded result_;
};

} // namespace

Exploded explodeReference(OdDbObjectId reference, const ExplodeOptions& options) {
  Exploded result;
  result.refusal = refusalOf(reference);
  return result.refusal == ExplodeRefusal::kNone ? Exploding(reference, options).run() : result;
}

} // namespace drawing
