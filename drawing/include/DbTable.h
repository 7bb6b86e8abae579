// Tables.
#pragma once

#include "DbBlockReference.h"

// A table is a reference to an anonymous block that draws it. The contents of its cells are preserved as groups of the
// file, here and in the objects of its extension dictionary. A clone has a separate anonymous block. Lengths are
// drawing units.
class MVDRAWING_API OdDbTable : public OdDbBlockReference {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbTable);
  OdDbTable() = default;

  // Values as in files: table style (null if there is none), size, and direction of the rows in world coordinates (unit
  // length).
  OdDbObjectId tableStyle() const;
  unsigned numRows() const;
  unsigned numColumns() const;
  OdGeVector3d direction() const;
  // Height of a row and width of a column; throw OdError(eInvalidIndex) for an index outside.
  double rowHeight(unsigned row) const;
  double columnWidth(unsigned column) const;
  // All groups of the table's own subclass in file order.
  const drawing::GroupList& groups() const { return groups_; }

  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void visitReferences(drawing::ConstReferenceVisitor& visitor) const override;

protected:
  // Accepts translations and rotations only: heights of rows and text are part of styles and cells, and text must not
  // be reflected.
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;

private:
  double nthReal(int code, unsigned index) const;

  drawing::GroupList groups_; // all groups of the table's own subclass
};
using OdDbTablePtr = OdSmartPtr<OdDbTable>;
