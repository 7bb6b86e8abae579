// Selection of entities by a rectangle or a line, by what they display and not by their extents.
#pragma once

#include "DbObjectId.h"
#include "Ge/GeMatrix3d.h"
#include "Ge/GePoint2d.h"

#include <vector>

namespace drawing {

// Selects entities of one block (a space or a definition) as they are seen against the z axis of a view. What is not
// displayed (layers off or frozen, invisible, clipped) is not selected. Results are in order of addition. Curves are
// tessellated as in pictures: chords of at most five degrees.
class MVDRAWING_API ViewPicker {
public:
  // `toView`: matrix from block coordinates to the view, in whose x and y corners and paths are given. Each call
  // evaluates the entities again. A null id and one that is not a block select nothing.
  explicit ViewPicker(OdDbObjectId block, const OdGeMatrix3d& toView = OdGeMatrix3d::kIdentity);

  // Entities that are completely inside the rectangle; infinite lines never are.
  OdDbObjectIdArray inside(const OdGePoint2d& corner, const OdGePoint2d& opposite) const;
  // Entities of which a part is inside the rectangle or on its sides; filled areas count as a whole.
  OdDbObjectIdArray touching(const OdGePoint2d& corner, const OdGePoint2d& opposite) const;
  // Entities that the path touches; a path of one point touches only fills and points.
  OdDbObjectIdArray along(const std::vector<OdGePoint2d>& path) const;

private:
  template <class Test>
  OdDbObjectIdArray pick(const Test& test) const;

  OdDbObjectId block_;
  OdGeMatrix3d toView_;
};

} // namespace drawing
