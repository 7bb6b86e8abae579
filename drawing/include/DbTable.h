// Tables.
#pragma once

#include "DbBlockReference.h"

// A table is drawn by an anonymous block of its own, of which it is a reference; what stands in its cells is kept as
// files hold it, here and in the objects of its extension dictionary. A clone has a drawing block of its own.
class MVDRAWING_API OdDbTable : public OdDbBlockReference {
public:
  ODDB_DECLARE_MEMBERS(OdDbTable);
  OdDbTable() = default;
  OdDbObjectId tableStyle() const; // null when it has none
  unsigned numRows() const;
  unsigned numColumns() const;
  double rowHeight(unsigned row) const; // OdError(eInvalidIndex) outside
  double columnWidth(unsigned column) const;
  OdGeVector3d direction() const; // along the rows, world coordinates, unit length
  const drawing::GroupList& groups() const { return groups_; }

  void visitReferences(drawing::ReferenceVisitor& visitor) override;

protected:
  // Takes moves and turns: heights of rows and letters are part of styles and cells, and none may be mirrored.
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;

private:
  double nthReal(int code, unsigned index) const;

  drawing::GroupList groups_; // of the table's own section
};
using OdDbTablePtr = OdSmartPtr<OdDbTable>;
