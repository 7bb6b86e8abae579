// Extents: boxes along the axes. New extents are empty, which is not valid.
#pragma once

#include "Ge/GePoint3d.h"

// Extents in the coordinates of the points that are added.
class MVDRAWING_API OdGeExtents3d {
public:
  OdGeExtents3d() = default;
  // With these corners, which are not checked: a minimum above the maximum is not valid.
  OdGeExtents3d(const OdGePoint3d& min, const OdGePoint3d& max) : min_(min), max_(max) {}

  // Corners; 1e20 and -1e20 in empty extents, which is what drawing files state for them.
  const OdGePoint3d& minPoint() const { return min_; }
  const OdGePoint3d& maxPoint() const { return max_; }
  bool isValidExtents() const { return min_.x <= max_.x && min_.y <= max_.y && min_.z <= max_.z; }

  // Change: replace the corners; make empty; include a point unless it is not finite; include other extents if they are
  // valid; include the box moved by `sweep`; move all six sides outwards by `margin`; replace by the box around the
  // images of the eight corners. The last three leave extents that are not valid unchanged.
  void set(const OdGePoint3d& min, const OdGePoint3d& max) { *this = OdGeExtents3d(min, max); }
  void reset() { *this = OdGeExtents3d(); }
  void addPoint(const OdGePoint3d& point);
  void addExt(const OdGeExtents3d& other);
  void expandBy(const OdGeVector3d& sweep);
  void expandBy(double margin);
  void transformBy(const OdGeMatrix3d& matrix);

  // Centre of valid extents, and comparison within the tolerance for points: whether a point is inside, whether the
  // boxes have no point in common, whether the corners are equal.
  OdGePoint3d center() const { return min_ + (max_ - min_) * 0.5; }
  bool contains(const OdGePoint3d& point, const OdGeTol& tol = OdGeTol()) const;
  bool isDisjoint(const OdGeExtents3d& other, const OdGeTol& tol = OdGeTol()) const;
  bool isEqualTo(const OdGeExtents3d& other, const OdGeTol& tol = OdGeTol()) const;

private:
  OdGePoint3d min_{1e20, 1e20, 1e20};
  OdGePoint3d max_{-1e20, -1e20, -1e20};
};
