// Cloning into a definition, and the associations of cloned dimensions.
#include "DbDatabase.h"
#include "DbDimension.h"
#include "DbIdMapping.h"
#include "DbSymbolRecords.h"
#include "Ge/GeUtil.h"
#include "blockcommon/creation.h"
#include "morvane/drawing_tools.h"
#include "morvane/result_codes.h"

#include <optional>
#include <vector>

namespace blockUtils {

namespace {

// Holds layers unlocked; locks them again in the order in which they were unlocked, whatever happens, the host
// giving out included.
class UnlockedLayers {
public:
  UnlockedLayers() = default;
  ~UnlockedLayers() {
    for (const OdDbObjectId& id : layers_)
      lock(id);
  }
  UnlockedLayers(const UnlockedLayers&) = delete;
  UnlockedLayers& operator=(const UnlockedLayers&) = delete;

  void addLayerOf(const OdDbObjectId& entityId) {
    if (!qzutads::isObjLocked(entityId, true))
      return;
    const OdDbEntityPtr entity = OdDbEntity::cast(entityId.safeOpenObject().get());
    if (entity.isNull())
      return;
    const OdDbObjectId id = entity->layerId();
    const auto layer = OdDbLayerTableRecord::cast(id.safeOpenObject(OdDb::kForWrite).get());
    if (layer.isNull() || !layer->isLocked())
      return;
    layers_.push_back(id);
    layer->setIsLocked(false);
  }

private:
  // Opened past the host, whose every call may fail.
  static void lock(const OdDbObjectId& id) noexcept {
    try {
      const auto layer = OdDbLayerTableRecord::cast(id.safeOpenObject(OdDb::kForWrite).get());
      if (!layer.isNull())
        layer->setIsLocked(true);
    } catch (...) { // without memory for the undo record; the other layers still get their turn
    }
  }

  std::vector<OdDbObjectId> layers_;
};

// How far the X axis of the matrix is turned from that of the world, about the matrix's Z axis.
double rotationAbout(const OdGeMatrix3d& matrix) {
  OdGePoint3d origin;
  OdGeVector3d x, y, z;
  matrix.getCoordSystem(origin, x, y, z);
  return OdGeVector3d::kXAxis.angleTo(x, z);
}

// The association the host knows of, else the first reactor of the dimension that is one.
OdDbObjectId associationOf(const OdDbObjectId& dimensionId) {
  OdDbObjectId association;
  mvsi::mvdbGetDimAssocId(dimensionId, association);
  if (association.isValid())
    return association;
  const OdDbObjectPtr dimension = dimensionId.safeOpenObject();
  for (const OdDbObjectId& reactor : dimension->getPersistentReactors()) {
    if (!OdDbDimAssoc::cast(reactor.safeOpenObject().get()).isNull())
      return reactor;
  }
  return OdDbObjectId::kNull;
}

void postAssociation(const OdDbObjectId& dimensionId) {
  const OdDbObjectId id = associationOf(dimensionId);
  if (!id.isValid())
    return;
  OdSmartPtr<OdDbDimAssoc> association = id.safeOpenObject(OdDb::kForWrite);
  OdDbObjectId posted;
  if (postDimAssoc(association, dimensionId, posted) == RTNORM || !posted.isValid())
    return;
  if (const OdDbObjectPtr failed = posted.safeOpenObject(OdDb::kForWrite); !failed.isNull())
    failed->erase(true);
}

void updateDimension(const OdDbObjectId& dimensionId, double rotationRad) {
  UnlockedLayers unlocked; // a clone on a locked layer must be rotated as well
  unlocked.addLayerOf(dimensionId);
  {
    const OdSmartPtr<OdDbDimension> dimension = dimensionId.safeOpenObject(OdDb::kForWrite);
    dimension->setHorizontalRotation(normalizeAngle(dimension->horizontalRotation() + rotationRad));
  }
  postAssociation(dimensionId);
}

void updateDimensions(const OdDbIdMapping& mapping, const OdGeMatrix3d& xform) {
  std::optional<double> rotationRad;
  // Posting changes the drawing, not the mapping: the pairs stay as they are.
  for (const OdDbIdPair& pair : mapping.pairs()) {
    if (!pair.isCloned() || !pair.isPrimary())
      continue;
    const bool isDimension = !OdDbDimension::cast(pair.value().safeOpenObject().get()).isNull();
    if (!isDimension)
      continue;
    if (!rotationRad)
      rotationRad = rotationAbout(xform);
    updateDimension(pair.value(), *rotationRad);
  }
}

OdResult cloneGroup(OdDbDatabase* target, OdDbDatabase* source, const OdArray<OdDbObjectId>& ids,
                    const OdDbObjectId& blockId, OdDbIdMapping& mapping) {
  if (source == target) {
    mapping.setDestDb(target);
    return target->deepCloneObjects(ids, blockId, mapping, false);
  }
  return source == nullptr ? eNullObjectId
                           : source->wblockCloneObjects(ids, blockId, mapping, OdDb::kDrcReplace, false);
}

} // namespace

bool copyDataToNewBlock(OdDbDatabase* pDb, std::map<OdDbDatabase*, OdArray<OdDbObjectId>*> groups,
                        OdDbObjectId& blockId, OdGeMatrix3d xform, bool&) {
  if (pDb == nullptr)
    return false;
  for (const auto& [source, ids] : groups) {
    if (ids == nullptr)
      continue;
    const OdRxObjectPtr made = OdDbIdMapping::desc()->create();
    if (made.isNull())
      throw OdError(eClassNotRegistered);
    const OdDbIdMappingPtr mapping = made;
    if (cloneGroup(pDb, source, *ids, blockId, *mapping) != eOk)
      return false;
    updateDimensions(*mapping, xform);
  }
  return true;
}

int postDimAssoc(OdSmartPtr<OdDbDimAssoc>& pAssoc, OdDbObjectId dimId, OdDbObjectId& newAssocId) {
  if (pAssoc.isNull())
    return RTERROR;
  pAssoc->setDimObjId(dimId);
  UnlockedLayers unlocked;
  for (const OdDbObjectId& geometry : pAssoc->getDimAssocGeomIds())
    unlocked.addLayerOf(geometry);
  unlocked.addLayerOf(dimId);
  if (pAssoc->post(dimId, newAssocId, true) != 0 || !newAssocId.isValid())
    return RTERROR;
  const OdDbEntityPtr dimension = dimId.safeOpenObject(OdDb::kForWrite);
  dimension->attachAssociation(newAssocId);
  return RTNORM;
}

} // namespace blockUtils
