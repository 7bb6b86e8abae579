// Hatches. The boundary and the pattern are kept as files hold them: their order carries the meaning.
#pragma once

#include "DbEntity.h"
#include "Ge/GeVector3d.h"

class MVDRAWING_API OdDbHatch : public OdDbEntity {
public:
  ODDB_DECLARE_MEMBERS(OdDbHatch);
  OdDbHatch() = default;
  OdString patternName() const;
  bool isSolidFill() const { return integerOf(70) != 0; }
  bool associative() const { return integerOf(71) != 0; }
  int numLoops() const { return static_cast<int>(integerOf(91)); }
  double elevation() const;
  OdGeVector3d normal() const;
  const drawing::GroupList& groups() const { return groups_; }

  OdResult getGeomExtents(OdGeExtents3d& extents) const override;
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void afterClone(const OdDbObject& source, OdDbIdMapping& mapping) override;

protected:
  // The pattern moves along. Where a matrix changes shapes in the plane, arcs become arcs of ellipses and a bent
  // polyline a loop of edges; only a gradient refuses, it knows no unequal scale.
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;

  static bool readGroup(OdDbObject& object, const drawing::Pair& pair, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);
  std::int64_t integerOf(int code) const; // the first under that code
  void setNormal(const OdGeVector3d& normal);
  virtual bool onlyPolylines() const { return false; } // the loops

  drawing::GroupList groups_; // all of the section
};
using OdDbHatchPtr = OdSmartPtr<OdDbHatch>;

// A boundary of polylines that is drawn itself, and filled.
class MVDRAWING_API OdDbMPolygon : public OdDbHatch {
public:
  ODDB_DECLARE_MEMBERS(OdDbMPolygon);
  OdDbMPolygon() = default;
  bool isSolidFill() const { return integerOf(71) != 0; } // other codes than a hatch's
  bool associative() const { return false; }

protected:
  // Takes matrices that keep shapes in its plane: bent loops have no edges to become.
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;
  bool onlyPolylines() const override { return true; }
};
using OdDbMPolygonPtr = OdSmartPtr<OdDbMPolygon>;
