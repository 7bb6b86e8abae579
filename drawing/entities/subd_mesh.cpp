#include "DbSubDMesh.h"

#include "drawing/records/raw_groups.h"

MVDRAWING_DEFINE_OBJECT(OdDbSubDMesh, OdDbEntity, "MESH");

const drawing::Description& OdDbSubDMesh::ownDescription() {
  static const drawing::Description description(&OdDbEntity::ownDescription(),
                                                {drawing::rawSubclass<&OdDbSubDMesh::groups_>("AcDbSubDMesh")});
  return description;
}

std::vector<OdGePoint3d> OdDbSubDMesh::vertices() const {
  std::vector<OdGePoint3d> points;
  OdGePoint3d point;
  for (std::size_t i = groups_.find(10); i < groups_.size(); i = groups_.find(10, i + 1)) {
    if (drawing::tripleAt(groups_, i, point))
      points.push_back(point);
  }
  return points;
}

int OdDbSubDMesh::subdivisionLevel() const {
  return static_cast<int>(drawing::rawInteger(groups_, 91));
}

OdResult OdDbSubDMesh::applyTransform(const OdGeMatrix3d& matrix) {
  static constexpr drawing::GroupRole kRoles[] = {{10, drawing::GeometricRole::kPoint}};
  drawing::transformRawGroups(groups_, 0, groups_.size(), kRoles, matrix, 1);
  return eOk;
}

OdResult OdDbSubDMesh::getGeomExtents(OdGeExtents3d& extents) const {
  const std::vector<OdGePoint3d> points = vertices();
  for (const OdGePoint3d& point : points)
    extents.addPoint(point);
  return points.empty() ? eNotApplicable : eOk;
}
