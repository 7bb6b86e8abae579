#include "blockcommon/properties.h"

#include "DbAnnotationScale.h"
#include "DbAnnotativeObjectPE.h"
#include "DbBlockReference.h"
#include "DbDatabase.h"
#include "DbPaperOrientationPE.h"
#include "Ge/GeMatrix3d.h"
#include "blockcommon/host/services.h"
#include "morvane/drawing_tools.h"

namespace blockUtils {

namespace {

// Open for write, or null when the id is not valid, does not open, or is not a block definition.
OdDbBlockTableRecordPtr definitionForWrite(OdDbObjectId id) {
  if (!id.isValid())
    return nullptr;
  return OdDbBlockTableRecord::cast(id.safeOpenObject(OdDb::kForWrite).get());
}

template <class Work>
void forContents(OdDbBlockTableRecord& record, Work work) {
  for (auto it = record.newIterator(); !it->done(); it->step()) {
    if (const OdDbEntityPtr entity = it->entity(OdDb::kForWrite); !entity.isNull())
      work(*entity);
  }
}

void clearAnnotative(OdDbEntity& entity) {
  const OdSmartPtr<OdDbAnnotativeObjectPE> annotation = OdDbAnnotativeObjectPE::cast(&entity);
  if (annotation.isNull() || !annotation->annotative(&entity) || entity.isKindOf(OdDbBlockReference::desc()))
    return;
  annotation->setAnnotative(&entity, false);
}

void scaleByAnnotation(OdDbBlockTableRecord& record) {
  const OdDbDatabase* database = record.database();
  const OdDbAnnotationScalePtr scale = database == nullptr ? OdDbAnnotationScalePtr() : database->cannoscale();
  double factor = 1.0;
  if (scale.isNull())
    return;
  scale->getScale(factor);
  if (!(factor > 0))
    return;
  OdGeMatrix3d scaling;
  scaling.setToScaling(factor, OdGePoint3d::kOrigin);
  forContents(record, [&scaling](OdDbEntity& entity) { entity.transformBy(scaling); });
}

} // namespace

bool setUniformlyScaled(OdDbObjectId btrId, bool bUniform) {
  const OdDbBlockTableRecordPtr record = definitionForWrite(btrId);
  if (record.isNull())
    return false;
  record->setBlockScaling(bUniform ? OdDbBlockTableRecord::kUniform : OdDbBlockTableRecord::kAny);
  return true;
}

bool setExplodable(OdDbObjectId btrId, bool bExplodable) {
  const OdDbBlockTableRecordPtr record = definitionForWrite(btrId);
  if (record.isNull())
    return false;
  record->setExplodable(bExplodable);
  return true;
}

bool setBtrInsertUnit(OdDbObjectId btrId, OdDb::UnitsValue units) {
  const OdDbBlockTableRecordPtr record = definitionForWrite(btrId);
  if (record.isNull())
    return false;
  record->setBlockInsertUnits(units);
  return true;
}

bool SetAnnotative(OdDbObjectId btrId, bool bAnnotative, bool bMatchOrientation) {
  if (!hostAccess::hasDocumentManager())
    return false;
  const OdDbBlockTableRecordPtr record = definitionForWrite(btrId);
  return !record.isNull() && setAnnotationAndMatch(record, bAnnotative, bMatchOrientation);
}

bool setAnnotationAndMatch(OdSmartPtr<OdDbBlockTableRecord> pRec, bool bAnnotative, bool bMatchOrientation) {
  if (pRec.isNull())
    return false;
  const OdSmartPtr<OdDbAnnotativeObjectPE> annotation = OdDbAnnotativeObjectPE::cast(pRec.get());
  if (!annotation.isNull())
    annotation->setAnnotative(pRec.get(), bAnnotative);
  if (bAnnotative) {
    forContents(*pRec, clearAnnotative);
    scaleByAnnotation(*pRec);
  }
  const OdSmartPtr<OdDbPaperOrientationPE> orientation = OdDbPaperOrientationPE::cast(pRec.get());
  if (!orientation.isNull())
    orientation->setPaperOrientation(pRec.get(), bMatchOrientation);
  return true;
}

void sortAarryByDrawOrder(OdDbObjectIdArray& ids) {
  qzutads::sortAarryByDrawOrder(ids);
}

} // namespace blockUtils
