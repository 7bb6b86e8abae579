#include "blockcommon/transforms.h"

#include "DbEntity.h"

namespace blockUtils {

OdGeMatrix3d createEcsMatrixByMatrix(OdGePoint3d origin, OdGeMatrix3d ucs) {
  OdGePoint3d unused;
  OdGeVector3d x, y, z;
  ucs.getCoordSystem(unused, x, y, z);
  OdGeMatrix3d ecs;
  ecs.setCoordSystem(origin, x, y, z);
  return ecs;
}

bool transformEntityByEcs(OdDbDatabase*, OdArray<OdDbObjectId>& ids, OdGeMatrix3d ecs) {
  const OdGeMatrix3d toBlock = ecs.inverse();
  OdArray<OdDbObjectId>::size_type i = 0;
  while (i < ids.size()) {
    const OdDbObjectId id = ids[i];
    const OdDbObjectPtr object = id.safeOpenObject(OdDb::kForWrite);
    if (object.isNull())
      return false;
    const OdDbEntityPtr entity = OdDbEntity::cast(object.get());
    const OdResult result = entity.isNull() ? eOk : entity->transformBy(toBlock);
    if (result == eCannotTransform)
      ids.remove(id); // the next object is now at this index
    else if (result == eOk)
      ++i;
    else
      return false;
  }
  return true;
}

bool recoverCoordinateSystem(OdDbDatabase*, OdArray<OdDbObjectId> ids, OdGeMatrix3d ecs) {
  for (const OdDbObjectId& id : ids) {
    const OdDbObjectPtr object = id.safeOpenObject(OdDb::kForWrite);
    if (object.isNull())
      return false;
    const OdDbEntityPtr entity = object;
    if (entity->transformBy(ecs) != eOk)
      return false;
  }
  return true;
}

void transformRec(OdSmartPtr<OdDbBlockTableRecord> pRec, OdGeMatrix3d m) {
  if (pRec.isNull())
    return;
  const OdGeMatrix3d toBlock = m.inverse();
  for (auto it = pRec->newIterator(); !it->done(); it->step()) {
    if (const OdDbEntityPtr entity = it->entity(OdDb::kForWrite); !entity.isNull())
      entity->transformBy(toBlock);
  }
}

} // namespace blockUtils
