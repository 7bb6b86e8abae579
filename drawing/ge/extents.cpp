#include "Ge/GeExtents3d.h"
#include "Ge/GeMatrix3d.h"

#include <algorithm>
#include <cmath>

void OdGeExtents3d::addPoint(const OdGePoint3d& point) {
  if (!std::isfinite(point.x) || !std::isfinite(point.y) || !std::isfinite(point.z))
    return;
  if (!isValidExtents())
    return set(point, point);
  min_.set(std::min(min_.x, point.x), std::min(min_.y, point.y), std::min(min_.z, point.z));
  max_.set(std::max(max_.x, point.x), std::max(max_.y, point.y), std::max(max_.z, point.z));
}

void OdGeExtents3d::addExt(const OdGeExtents3d& other) {
  if (!other.isValidExtents())
    return;
  const OdGeExtents3d copy(other); // other may be this
  addPoint(copy.min_);
  addPoint(copy.max_);
}

void OdGeExtents3d::expandBy(const OdGeVector3d& sweep) {
  if (isValidExtents())
    addExt(OdGeExtents3d(min_ + sweep, max_ + sweep));
}

void OdGeExtents3d::expandBy(double margin) {
  if (!isValidExtents())
    return;
  const OdGeVector3d around(margin, margin, margin);
  set(min_ - around, max_ + around);
}

void OdGeExtents3d::transformBy(const OdGeMatrix3d& matrix) {
  if (!isValidExtents())
    return;
  OdGeExtents3d moved;
  for (int corner = 0; corner < 8; ++corner) {
    const OdGePoint3d at((corner & 1) != 0 ? max_.x : min_.x, (corner & 2) != 0 ? max_.y : min_.y,
                         (corner & 4) != 0 ? max_.z : min_.z);
    moved.addPoint(matrix * at);
  }
  *this = moved;
}

bool OdGeExtents3d::contains(const OdGePoint3d& point, const OdGeTol& tol) const {
  return isValidExtents() && !isDisjoint(OdGeExtents3d(point, point), tol);
}

bool OdGeExtents3d::isDisjoint(const OdGeExtents3d& other, const OdGeTol& tol) const {
  const double gap = tol.equalPoint();
  return !isValidExtents() || !other.isValidExtents() || min_.x > other.max_.x + gap || min_.y > other.max_.y + gap ||
         min_.z > other.max_.z + gap || other.min_.x > max_.x + gap || other.min_.y > max_.y + gap ||
         other.min_.z > max_.z + gap;
}

bool OdGeExtents3d::isEqualTo(const OdGeExtents3d& other, const OdGeTol& tol) const {
  return min_.isEqualTo(other.min_, tol) && max_.isEqualTo(other.max_, tol);
}
