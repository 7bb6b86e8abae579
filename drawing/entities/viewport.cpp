#include "DbViewport.h"

#include "DbDatabase.h"
#include "Ge/GeMatrix3d.h"
#include "drawing/entities/viewport_view.h"
#include "drawing/model/setters.h"

#include <cmath>

using drawing::field;

MVDRAWING_DEFINE_OBJECT(OdDbViewport, OdDbEntity, "VIEWPORT");
MVDRAWING_DEFINE_OBJECT(OdDbCamera, OdDbEntity, "CAMERA");

const drawing::Description& OdDbViewport::ownDescription() {
  using Self = OdDbViewport;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(),
      {{"AcDbViewport", {field<&Self::center_>(10), field<&Self::width_>(40), field<&Self::height_>(41)}}});
  return description;
}

const drawing::Description& OdDbCamera::ownDescription() {
  return OdDbEntity::ownDescription();
}

MVDRAWING_SETTER(OdDbViewport, setCenterPoint, const OdGePoint3d&, center_)
MVDRAWING_SETTER(OdDbViewport, setWidth, double, width_)
MVDRAWING_SETTER(OdDbViewport, setHeight, double, height_)

OdResult OdDbViewport::getGeomExtents(OdGeExtents3d& extents) const {
  const OdGeVector3d half(width_ / 2, height_ / 2, 0);
  extents.addPoint(center_ - half);
  extents.addPoint(center_ + half);
  return eOk;
}

void OdDbViewport::afterLoad() {
  if (database()->fileInfo().version >= OdDb::kRelease13 || xDataGroups() == nullptr)
    return;
  const drawing::GroupList view = drawing::viewportViewOf(*xDataGroups(), *database());
  if (view.empty())
    return;
  drawing::GroupList& section = extrasForLoad().unmodelledGroups;
  section.utf8(100, "AcDbViewport");
  view.writeTo(section);
}

OdResult OdDbViewport::applyTransform(const OdGeMatrix3d& matrix) {
  constexpr double kNearly = 1e-9;
  const OdGeVector3d x = matrix * OdGeVector3d(1, 0, 0), y = matrix * OdGeVector3d(0, 1, 0),
                     z = matrix * OdGeVector3d(0, 0, 1);
  const double scale = x.x, tolerance = kNearly * std::fabs(scale);
  const auto isAlong = [&](const OdGeVector3d& axis, const OdGeVector3d& wanted) {
    return (axis - wanted * scale).length() <= tolerance;
  };
  if (!(scale > 0) || !isAlong(x, {1, 0, 0}) || !isAlong(y, {0, 1, 0}) || !isAlong(z, {0, 0, 1}))
    return eCannotTransform;
  center_ = matrix * center_;
  width_ *= scale;
  height_ *= scale;
  return eOk;
}
