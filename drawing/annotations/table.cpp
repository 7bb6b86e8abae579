#include "DbTable.h"

#include "drawing/model/object_store.h"
#include "drawing/model/visit_references.h"
#include "drawing/records/raw_groups.h"

#include <algorithm>
#include <cmath>

MVDRAWING_DEFINE_OBJECT(OdDbTable, OdDbBlockReference, "ACAD_TABLE");

const drawing::Description& OdDbTable::ownDescription() {
  static const drawing::Description description(
      &OdDbEntity::ownDescription(),
      {referenceSubclass("AcDbBlockReference"), drawing::rawSubclass<&OdDbTable::groups_>("AcDbTable")});
  return description;
}

MVDRAWING_VISIT_REFERENCES(OdDbTable, OdDbBlockReference, drawing::visitGroups(groups_, visitor);)

OdDbObjectId OdDbTable::tableStyle() const {
  return drawing::rawReference(groups_, 342);
}
unsigned OdDbTable::numRows() const {
  return static_cast<unsigned>(drawing::rawInteger(groups_, 91));
}
unsigned OdDbTable::numColumns() const {
  return static_cast<unsigned>(drawing::rawInteger(groups_, 92));
}
double OdDbTable::rowHeight(unsigned row) const {
  return nthReal(141, row);
}
double OdDbTable::columnWidth(unsigned column) const {
  return nthReal(142, column);
}
OdGeVector3d OdDbTable::direction() const {
  return drawing::rawPoint(groups_, 11, {1, 0, 0}).asVector();
}

double OdDbTable::nthReal(int code, unsigned index) const {
  std::size_t i = groups_.find(code);
  for (; index > 0 && i < groups_.size(); --index)
    i = groups_.find(code, i + 1);
  if (i >= groups_.size() || groups_[i].kind != drawing::GroupKind::kReal)
    throw OdError(eInvalidIndex);
  return groups_[i].real;
}

OdResult OdDbTable::applyTransform(const OdGeMatrix3d& matrix) {
  static constexpr drawing::GroupRole kHeaderRoles[] = {{11, drawing::GeometricRole::kDirection}};
  const bool rigid = matrix.isUniformlyScaled(OdGeTol(1e-10)) && std::fabs(matrix.determinant() - 1) < 1e-9;
  if (!rigid)
    return eCannotTransform;
  if (const OdResult result = OdDbBlockReference::applyTransform(matrix); result != eOk)
    return result;
  // Cells may hold values under the same code: the direction is before the first of them.
  const std::size_t head = std::min(groups_.find(171), groups_.find(301));
  drawing::transformRawGroups(groups_, 0, std::min(head, groups_.size()), kHeaderRoles, matrix, 1);
  return eOk;
}
