// Hatches. Boundary and pattern are stored as groups of the file, whose order has a meaning.
#pragma once

#include "DbEntity.h"
#include "Ge/GeVector3d.h"

// A hatch or a gradient. Boundary coordinates are in the OCS of its normal at its elevation.
class MVDRAWING_API OdDbHatch : public OdDbEntity {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbHatch);
  OdDbHatch() = default;

  // Values as in files; empty, false or 0 when the file does not state them. An associative hatch follows its boundary
  // objects. The elevation is in drawing units along the normal, the normal in world coordinates ((0, 0, 1) when it is
  // not stated).
  OdString patternName() const;
  virtual bool isSolidFill() const { return integerOf(70) != 0; }
  virtual bool associative() const { return integerOf(71) != 0; }
  int numLoops() const { return static_cast<int>(integerOf(91)); }
  double elevation() const;
  OdGeVector3d normal() const;
  // All groups of the hatch in file order.
  const drawing::GroupList& groups() const { return groups_; }

  // World extents of the boundary; eNotApplicable when it has none.
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

  // -- SDK internals. --
  virtual bool onlyPolylines() const { return false; } // whether every loop is a polyline, whatever its flag says
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void visitReferences(drawing::ConstReferenceVisitor& visitor) const override;
  void afterClone(const OdDbObject& source, OdDbIdMapping& mapping) override;

protected:
  // Moves boundary and pattern. Under a matrix that changes shapes in the plane, arcs become elliptic arcs and a
  // polyline with arcs becomes a loop of edges; a gradient refuses it (eCannotTransform), as it has a single scale.
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;

  // All groups of the hatch.
  static bool readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);
  std::int64_t integerOf(int code) const;     // value of the first group of that code, else 0
  void setNormal(const OdGeVector3d& normal); // replaces the groups 210, 220 and 230 or inserts them

  drawing::GroupList groups_; // all groups of the subclass
};
using OdDbHatchPtr = OdSmartPtr<OdDbHatch>;

// A boundary of polylines that is drawn, and filled by a pattern.
class MVDRAWING_API OdDbMPolygon : public OdDbHatch {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbMPolygon);
  OdDbMPolygon() = default;
  // Files use other groups for these than in a hatch.
  bool isSolidFill() const override { return integerOf(71) != 0; }
  bool associative() const override { return false; }

  // -- SDK internals. --
  bool onlyPolylines() const override { return true; }

protected:
  // Accepts matrices that keep shapes in its plane: its loops cannot become edges.
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;
};
using OdDbMPolygonPtr = OdSmartPtr<OdDbMPolygon>;
