#include "console/blocks/reference_placement.h"
#include "console/blocks/block_objects.h"
#include "console/messages/catalog/blocks.h"
#include "console/messages/catalog/insert.h"

#include "DbBlockTable.h"
#include "blockcommon/insertion.h"
#include "blockcommon/messages.h"
#include "morvane/drawing_tools.h"

namespace console {
namespace {

void refuseUnfit(const OdDbBlockTableRecord& block, const Placement& placement, OdDbObjectId space) {
  const OdGeScale3d& scale = placement.scale;
  if (scale.sx == 0 || scale.sy == 0 || scale.sz == 0)
    refuse(msg::kScaleZero);
  const bool equal = scale.sx == scale.sy && scale.sy == scale.sz;
  if (!equal && insertCommon::isBlockUniformScaled(block.objectId()))
    refuse(msg::kScaleUniform, {block.getName()});
  if (block.isLayout())
    refuse(msg::kNameOfSpace, {block.getName()});
  if (block.objectId() != space && !block.reaches(space))
    return;
  dlgTips::showBlockRefSelfTips(block.getName());
  refuse(msg::kInsertsItself, {block.getName()});
}

OdDbBlockReferencePtr freeReference(const Placement& placement) {
  if (placement.rows == 1 && placement.columns == 1)
    return OdDbBlockReference::createObject();
  const OdDbMInsertBlockPtr array = OdDbMInsertBlock::createObject();
  array->setRows(placement.rows);
  array->setColumns(placement.columns);
  array->setRowSpacing(placement.rowSpacing);
  array->setColumnSpacing(placement.columnSpacing);
  return array;
}

OdGeMatrix3d matrixOf(OdDbDatabase& database, const Placement& placement, double factor) {
  OdGeMatrix3d ucs;
  if (mvsi::mvsidbUcsMatrix(ucs, &database) != RTNORM)
    throw OdError(eInvalidInput);
  const OdGeScale3d scale(placement.scale.sx * factor, placement.scale.sy * factor, placement.scale.sz * factor);
  return ucs * OdGeMatrix3d::translation(placement.at.asVector()) *
         OdGeMatrix3d::rotation(placement.rotation, OdGeVector3d::kZAxis) * OdGeMatrix3d::scaling(scale);
}

} // namespace

double unitsFactor(const OdDbDatabase& database, OdDb::UnitsValue ofBlock) {
  const auto own = morvane::unitsFactor(static_cast<int>(database.getINSUNITS()));
  const auto other = morvane::unitsFactor(static_cast<int>(ofBlock));
  const bool both = database.getINSUNITS() != OdDb::kUnitsUndefined && ofBlock != OdDb::kUnitsUndefined;
  return both && own && other ? *other / *own : 1;
}

double unitsFactor(OdDbObjectId block) {
  return unitsFactor(*block.database(), OdDbBlockTableRecordPtr(block.safeOpenObject())->blockInsertUnits());
}

OdDbBlockReferencePtr placeReference(Session& session, OdDbObjectId block, const Placement& placement) {
  OdDbDatabase& database = session.database();
  const OdDbBlockTableRecordPtr definition = block.safeOpenObject();
  const OdDbObjectId spaceId = qzutads::currentSpaceId();
  refuseUnfit(*definition, placement, spaceId);
  const OdDbBlockReferencePtr reference = freeReference(placement);
  reference->setDatabaseDefaults(&database);
  reference->setBlockTableRecord(block);
  if (reference->setBlockTransform(matrixOf(database, placement, unitsFactor(block))) != eOk)
    refuse(msg::kReferenceFailed, {definition->getName()});
  const OdDbBlockTableRecordPtr space = spaceId.safeOpenObject(OdDb::kForWrite);
  space->appendEntity(reference.get());
  return reference;
}

} // namespace console
