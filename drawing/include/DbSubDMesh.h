// Meshes that are smoothed by dividing their faces.
#pragma once

#include "DbEntity.h"

#include <vector>

// Vertices and faces are those of the coarsest level. Lists are kept as files hold them.
class MVDRAWING_API OdDbSubDMesh : public OdDbEntity {
public:
  ODDB_DECLARE_MEMBERS(OdDbSubDMesh);
  OdDbSubDMesh() = default;
  int numOfVertices() const { return static_cast<int>(vertices().size()); }
  std::vector<OdGePoint3d> vertices() const; // world coordinates
  int subdivisionLevel() const;
  const drawing::GroupList& groups() const { return groups_; }
  OdResult getGeomExtents(OdGeExtents3d& extents) const override; // of the vertices: smoothing stays inside

protected:
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override; // takes every matrix

private:
  drawing::GroupList groups_; // all of the section
};
using OdDbSubDMeshPtr = OdSmartPtr<OdDbSubDMesh>;
