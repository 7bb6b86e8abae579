// Solids, regions, bodies and surfaces. Their shape is a body of the modeler, kept to the letter: as text in the
// entity, or as bytes in a section of the drawing that the entity's handle leads to.
#pragma once

#include "DbEntity.h"

// What they share. Only the unit matrix moves them: nobody here can move a body of the modeler. They have no extents.
class MVDRAWING_API OdDbModelerGeometry : public OdDbEntity {
public:
  ODRX_DECLARE_MEMBERS(OdDbModelerGeometry);
  // Whether the body stands in the entity itself, as text.
  bool hasTextBody() const;
  // That text, line by line with '\n' behind each, in the form in which files hold it; empty when there is none.
  std::string textBody() const;
  const drawing::GroupList& groups() const { return groups_; }
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void afterClone(const OdDbObject& source, OdDbIdMapping& mapping) override; // the body comes along

protected:
  OdDbModelerGeometry() = default;
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;
  static const drawing::Description& modelerDescription();

  drawing::GroupList groups_; // of the modeler's section; the kind's own sections are carried
};

#define MVDB_DECLARE_MODELER_KIND(Class, Base)                                                                         \
  class MVDRAWING_API Class : public Base {                                                                            \
  public:                                                                                                              \
    ODDB_DECLARE_MEMBERS(Class);                                                                                       \
    Class() = default;                                                                                                 \
  };                                                                                                                   \
  using Class##Ptr = OdSmartPtr<Class>

MVDB_DECLARE_MODELER_KIND(OdDb3dSolid, OdDbModelerGeometry);
MVDB_DECLARE_MODELER_KIND(OdDbRegion, OdDbModelerGeometry);
MVDB_DECLARE_MODELER_KIND(OdDbBody, OdDbModelerGeometry);
MVDB_DECLARE_MODELER_KIND(OdDbSurface, OdDbModelerGeometry);
MVDB_DECLARE_MODELER_KIND(OdDbExtrudedSurface, OdDbSurface);
MVDB_DECLARE_MODELER_KIND(OdDbLoftedSurface, OdDbSurface);
MVDB_DECLARE_MODELER_KIND(OdDbPlaneSurface, OdDbSurface);
MVDB_DECLARE_MODELER_KIND(OdDbRevolvedSurface, OdDbSurface);
MVDB_DECLARE_MODELER_KIND(OdDbSweptSurface, OdDbSurface);
MVDB_DECLARE_MODELER_KIND(OdDbNurbSurface, OdDbSurface);

#undef MVDB_DECLARE_MODELER_KIND
