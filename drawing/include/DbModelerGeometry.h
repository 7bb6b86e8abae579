// Solids, regions, bodies and surfaces. Their geometry is data of a solid modeler and is preserved byte for byte: as
// text in the entity, or as bytes in a section of the drawing (ACDSDATA) under the handle of the entity.
#pragma once

#include "DbEntity.h"

// Common base. Accepts only the identity matrix, as the data of the modeler is not interpreted; has no extents.
class MVDRAWING_API OdDbModelerGeometry : public OdDbEntity {
public:
  MVDRAWING_DECLARE_CLASS(OdDbModelerGeometry);
  // Whether the data is text in the entity.
  bool hasTextBody() const;
  // That text in the form of the file, each line with '\n'; empty if there is none.
  std::string textBody() const;
  // All groups of the modeler's subclass in file order.
  const drawing::GroupList& groups() const { return groups_; }

  // -- SDK internals. --
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void visitReferences(drawing::ConstReferenceVisitor& visitor) const override;
  void afterClone(const OdDbObject& source, OdDbIdMapping& mapping) override; // clones the data

protected:
  OdDbModelerGeometry() = default;
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;
  static const drawing::Description& modelerDescription(); // description of all kinds

  drawing::GroupList groups_; // all groups of the modeler's subclass; further subclasses are preserved with the object
};

// Declares a kind without further members.
#define MVDRAWING_DECLARE_MODELER_KIND(Class, Base)                                                                    \
  class MVDRAWING_API Class : public Base {                                                                            \
  public:                                                                                                              \
    MVDRAWING_DECLARE_OBJECT(Class);                                                                                   \
    Class() = default;                                                                                                 \
  };                                                                                                                   \
  using Class##Ptr = OdSmartPtr<Class>

// The kinds.
MVDRAWING_DECLARE_MODELER_KIND(OdDb3dSolid, OdDbModelerGeometry);
MVDRAWING_DECLARE_MODELER_KIND(OdDbRegion, OdDbModelerGeometry);
MVDRAWING_DECLARE_MODELER_KIND(OdDbBody, OdDbModelerGeometry);
MVDRAWING_DECLARE_MODELER_KIND(OdDbSurface, OdDbModelerGeometry);
MVDRAWING_DECLARE_MODELER_KIND(OdDbExtrudedSurface, OdDbSurface);
MVDRAWING_DECLARE_MODELER_KIND(OdDbLoftedSurface, OdDbSurface);
MVDRAWING_DECLARE_MODELER_KIND(OdDbPlaneSurface, OdDbSurface);
MVDRAWING_DECLARE_MODELER_KIND(OdDbRevolvedSurface, OdDbSurface);
MVDRAWING_DECLARE_MODELER_KIND(OdDbSweptSurface, OdDbSurface);
MVDRAWING_DECLARE_MODELER_KIND(OdDbNurbSurface, OdDbSurface);

#undef MVDRAWING_DECLARE_MODELER_KIND
