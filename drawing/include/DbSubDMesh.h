// Subdivision meshes.
#pragma once

#include "DbEntity.h"

#include <vector>

// A mesh that is smoothed by dividing its faces. Vertices and faces are those of the coarsest level; lists are stored
// as groups of the file. Accepts every invertible matrix.
class MVDRAWING_API OdDbSubDMesh : public OdDbEntity {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbSubDMesh);
  OdDbSubDMesh() = default;
  // Vertices in world coordinates, level of smoothing (0: none), and all groups in file order.
  int numOfVertices() const { return static_cast<int>(vertices().size()); }
  std::vector<OdGePoint3d> vertices() const;
  int subdivisionLevel() const;
  const drawing::GroupList& groups() const { return groups_; }

  // Extents of the vertices, which include the smoothed mesh; eNotApplicable without vertices.
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;

private:
  drawing::GroupList groups_; // all groups of the subclass
};
using OdDbSubDMeshPtr = OdSmartPtr<OdDbSubDMesh>;
