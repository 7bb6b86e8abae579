// Which entities a rectangle or a line takes hold of, by what they show and not by their extents.
#pragma once

#include "DbObjectId.h"
#include "Ge/GeMatrix3d.h"
#include "Ge/GePoint2d.h"

#include <vector>

namespace drawing {

// Entities of one block (a space or a definition) as they are seen against the z axis of a view. What does not show
// (layers off or frozen, invisible, clipped away) is not taken. Answers are in order of addition. Curves are taken as
// the pictures draw them: as chords of at most five degrees.
class MVDRAWING_API ViewPicker {
public:
  // `toView` leads from the block's coordinates to the view, whose x and y the corners and paths are in. The block's
  // entities are looked at anew by each call.
  explicit ViewPicker(OdDbObjectId block, const OdGeMatrix3d& toView = OdGeMatrix3d::kIdentity);

  // Nothing of the entity lies outside of the rectangle; endless lines never do.
  OdDbObjectIdArray inside(const OdGePoint2d& corner, const OdGePoint2d& opposite) const;
  // Some of it lies inside, or on the rectangle's sides; the inside of a fill, too.
  OdDbObjectIdArray touching(const OdGePoint2d& corner, const OdGePoint2d& opposite) const;
  // The path touches it; a path of one point touches nothing but fills and points.
  OdDbObjectIdArray along(const std::vector<OdGePoint2d>& path) const;

private:
  template <class Test>
  OdDbObjectIdArray pick(const Test& test) const;

  OdDbObjectId block_;
  OdGeMatrix3d toView_;
};

} // namespace drawing
