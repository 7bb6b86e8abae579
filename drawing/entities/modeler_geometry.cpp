#include "DbModelerGeometry.h"

#include "drawing/model/object_store.h"
#include "drawing/model/visit_references.h"
#include "drawing/records/acds_records.h"
#include "drawing/records/raw_groups.h"

MVDRAWING_DEFINE_ABSTRACT_CLASS(OdDbModelerGeometry, OdDbEntity);

#define MVDRAWING_DEFINE_MODELER_KIND(Class, Base, dxfName)                                                            \
  MVDRAWING_DEFINE_OBJECT(Class, Base, dxfName);                                                                       \
  const drawing::Description& Class::ownDescription() {                                                                \
    return modelerDescription();                                                                                       \
  }                                                                                                                    \
  static_assert(true)

MVDRAWING_DEFINE_MODELER_KIND(OdDb3dSolid, OdDbModelerGeometry, "3DSOLID");
MVDRAWING_DEFINE_MODELER_KIND(OdDbRegion, OdDbModelerGeometry, "REGION");
MVDRAWING_DEFINE_MODELER_KIND(OdDbBody, OdDbModelerGeometry, "BODY");
MVDRAWING_DEFINE_MODELER_KIND(OdDbSurface, OdDbModelerGeometry, "SURFACE");
MVDRAWING_DEFINE_MODELER_KIND(OdDbExtrudedSurface, OdDbSurface, "EXTRUDEDSURFACE");
MVDRAWING_DEFINE_MODELER_KIND(OdDbLoftedSurface, OdDbSurface, "LOFTEDSURFACE");
MVDRAWING_DEFINE_MODELER_KIND(OdDbPlaneSurface, OdDbSurface, "PLANESURFACE");
MVDRAWING_DEFINE_MODELER_KIND(OdDbRevolvedSurface, OdDbSurface, "REVOLVEDSURFACE");
MVDRAWING_DEFINE_MODELER_KIND(OdDbSweptSurface, OdDbSurface, "SWEPTSURFACE");
MVDRAWING_DEFINE_MODELER_KIND(OdDbNurbSurface, OdDbSurface, "NURBSURFACE");

const drawing::Description& OdDbModelerGeometry::modelerDescription() {
  static const drawing::Description description(
      &OdDbEntity::ownDescription(), {drawing::rawSubclass<&OdDbModelerGeometry::groups_>("AcDbModelerGeometry")});
  return description;
}

MVDRAWING_VISIT_REFERENCES(OdDbModelerGeometry, OdDbEntity, drawing::visitGroups(groups_, visitor);)

void OdDbModelerGeometry::afterClone(const OdDbObject& source, OdDbIdMapping& mapping) {
  OdDbEntity::afterClone(source, mapping);
  drawing::copyBodyRecords(source, *this);
}

bool OdDbModelerGeometry::hasTextBody() const {
  return groups_.find(1) < groups_.size();
}

// Lines that are too long for one group go on under the code of continuations.
std::string OdDbModelerGeometry::textBody() const {
  std::string text;
  for (std::size_t i = 0; i < groups_.size(); ++i) {
    if (groups_[i].kind != drawing::GroupKind::kText || (groups_[i].code != 1 && groups_[i].code != 3))
      continue;
    if (groups_[i].code == 1 && !text.empty())
      text += '\n';
    text += groups_.textOf(groups_[i]);
  }
  return text.empty() ? text : text + '\n';
}

OdResult OdDbModelerGeometry::applyTransform(const OdGeMatrix3d& matrix) {
  return drawing::isIdentity(matrix) ? eOk : eCannotTransform;
}
