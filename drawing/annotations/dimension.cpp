#include "DbDimension.h"

#include "DbBlockTable.h"
#include "drawing/model/object_store.h"

#include "Ge/GeUtil.h"
#include "drawing/ge/plane_map.h"
#include "drawing/model/setters.h"

using drawing::field;
using drawing::PlaneMap;

MVDRAWING_DEFINE_ABSTRACT_CLASS(OdDbDimension, OdDbEntity);

const drawing::SubclassLayout& OdDbDimension::dimensionSubclass() {
  using Self = OdDbDimension;
  static const drawing::SubclassLayout subclass{
      "AcDbDimension",
      {field<&Self::version_>(280).from(OdDb::kRelease2010),
       field<&Self::block_>(2).name(OdDb::kBlockTable).unlessEmpty(), field<&Self::definition_>(10),
       field<&Self::textPosition_>(11).unless(0, 0, 0), field<&Self::type_>(70), field<&Self::text_>(1).unlessEmpty(),
       field<&Self::attachment_>(71), field<&Self::lineSpacingStyle_>(72).unless(1),
       field<&Self::lineSpacing_>(41).unless(1), field<&Self::measurement_>(42).unless(-1),
       field<&Self::textRotation_>(53).angle().unless(0), field<&Self::horizontalRotation_>(51).angle().unless(0),
       field<&Self::normal_>(210).unless(0, 0, 1), field<&Self::style_>(3).name(OdDb::kDimStyleTable).unlessEmpty()}};
  return subclass;
}

MVDRAWING_SETTER(OdDbDimension, setDimBlockId, OdDbObjectId, block_)
MVDRAWING_SETTER(OdDbDimension, setDimensionStyle, OdDbObjectId, style_)
MVDRAWING_SETTER(OdDbDimension, setDimensionText, const OdString&, text_)
MVDRAWING_SETTER(OdDbDimension, setTextRotation, double, textRotation_)
MVDRAWING_SETTER(OdDbDimension, setHorizontalRotation, double, horizontalRotation_)
MVDRAWING_SETTER(OdDbDimension, setNormal, const OdGeVector3d&, normal_)
MVDRAWING_SETTER_OCS(OdDbDimension, setTextPosition, textPosition_)

OdGePoint3d OdDbDimension::textPosition() const {
  return ocsToWcs(textPosition_, normal_);
}

namespace {

bool isGiven(const OdGePoint3d& point) {
  return point.x != 0 || point.y != 0 || point.z != 0;
}

} // namespace

OdResult OdDbDimension::applyTransform(const OdGeMatrix3d& matrix) {
  const PlaneMap map(matrix, normal_);
  if (!map.keepsShapes())
    return eCannotTransform;
  for (OdGePoint3d* point : worldPoints())
    *point = matrix * *point;
  for (OdGePoint3d* point : planePoints())
    *point = map.point(*point);
  textPosition_ = map.point(textPosition_);
  normal_ = map.normal();
  if (map.isMirrored())
    textRotation_ = -textRotation_;
  if (measurement_ > 0 && !measuresAngle())
    measurement_ *= map.scale();
  moveDimensionBlock(matrix);
  moveRest(map);
  return eOk;
}

// The picture is a block of its own, drawn in the world: it moves with the dimension that it shows.
void OdDbDimension::movedAlong(std::vector<OdDbObjectId>& ids) const {
  OdDbEntity::movedAlong(ids);
  const auto* block = drawing::getIf<OdDbBlockTableRecord>(block_);
  if (isResident() && block != nullptr && block->isAnonymous())
    ids.insert(ids.end(), block->members().ids().begin(), block->members().ids().end());
}

void OdDbDimension::moveDimensionBlock(const OdGeMatrix3d& matrix) {
  std::vector<OdDbObjectId> parts;
  movedAlong(parts);
  for (OdDbObjectId id : parts) {
    auto* part = drawing::getIf<OdDbEntity>(id);
    if (part == nullptr || part->isErased())
      continue;
    const drawing::WriteScope scope(*part);
    part->transformBy(matrix);
  }
}

OdResult OdDbDimension::getGeomExtents(OdGeExtents3d& extents) const {
  // The points are only looked at: one list serves both.
  for (const OdGePoint3d* point : const_cast<OdDbDimension*>(this)->worldPoints())
    extents.addPoint(*point);
  if (isGiven(textPosition_))
    extents.addPoint(textPosition());
  return eOk;
}
