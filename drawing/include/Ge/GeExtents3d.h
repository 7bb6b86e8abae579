// Boxes along the axes. A new one holds nothing and is not valid.
#pragma once

#include "Ge/GePoint3d.h"

class MVDRAWING_API OdGeExtents3d {
public:
  OdGeExtents3d() = default;
  OdGeExtents3d(const OdGePoint3d& min, const OdGePoint3d& max) : min_(min), max_(max) {}

  // What drawing files write for no extents when the box is not valid: 1e20 and -1e20.
  const OdGePoint3d& minPoint() const { return min_; }
  const OdGePoint3d& maxPoint() const { return max_; }
  bool isValidExtents() const { return min_.x <= max_.x && min_.y <= max_.y && min_.z <= max_.z; }

  void set(const OdGePoint3d& min, const OdGePoint3d& max) { *this = OdGeExtents3d(min, max); }
  void reset() { *this = OdGeExtents3d(); }
  void addPoint(const OdGePoint3d& point);  // a point that is not finite is left out
  void addExt(const OdGeExtents3d& other);  // one that is not valid adds nothing
  void expandBy(const OdGeVector3d& sweep); // takes in the box moved by sweep
  void expandBy(double margin);             // on all six sides
  // The box around the images of the eight corners. One that is not valid stays.
  void transformBy(const OdGeMatrix3d& matrix);

  OdGePoint3d center() const { return min_ + (max_ - min_) * 0.5; }
  bool contains(const OdGePoint3d& point, const OdGeTol& tol = OdGeTol()) const;
  bool isDisjoint(const OdGeExtents3d& other, const OdGeTol& tol = OdGeTol()) const;
  bool isEqualTo(const OdGeExtents3d& other, const OdGeTol& tol = OdGeTol()) const;

private:
  OdGePoint3d min_{1e20, 1e20, 1e20};
  OdGePoint3d max_{-1e20, -1e20, -1e20};
};
