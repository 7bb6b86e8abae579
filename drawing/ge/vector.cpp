#include "Ge/Ge.h"

#include <cmath>

namespace {

// Whether a sum of squares was neither rounded towards zero nor too large.
bool inRange(double squared) {
  return squared > 1e-290 && std::isfinite(squared);
}

// Of length 1; lengths whose square leaves the range of numbers are scaled first.
template <class Vector>
Vector unitOf(const Vector& vector, double largest) {
  if (largest == 0.0 || !std::isfinite(largest))
    return vector;
  const double squared = vector.squaredLength();
  if (squared == 1.0)
    return vector;
  const Vector sized = inRange(squared) ? vector : vector / largest;
  return sized / std::sqrt(sized.squaredLength());
}

double largestOf(const OdGeVector2d& vector) {
  return std::fmax(std::fabs(vector.x), std::fabs(vector.y));
}

double largestOf(const OdGeVector3d& vector) {
  return std::fmax(std::fmax(std::fabs(vector.x), std::fabs(vector.y)), std::fabs(vector.z));
}

template <class Vector>
bool codirectional(const Vector& one, const Vector& other, const OdGeTol& tol) {
  return !one.isZeroLength(tol) && !other.isZeroLength(tol) && one.normal().isEqualTo(other.normal(), tol);
}

template <class Vector>
bool perpendicular(const Vector& one, const Vector& other, const OdGeTol& tol) {
  return !one.isZeroLength(tol) && !other.isZeroLength(tol) &&
         std::fabs(one.normal().dotProduct(other.normal())) <= tol.equalVector();
}

} // namespace

double normalizeAngle(double angleRad) {
  double rotated = std::fmod(angleRad, kTwoPi);
  if (rotated < 0)
    rotated += kTwoPi;
  return rotated < kTwoPi ? rotated + 0.0 : 0.0; // a tiny negative angle rounds up to the full turn; -0 becomes 0
}

double OdGeVector2d::length() const {
  return std::hypot(x, y);
}
OdGeVector2d OdGeVector2d::normal() const {
  return unitOf(*this, largestOf(*this));
}

double OdGeVector2d::angle() const {
  return normalizeAngle(std::atan2(y, x));
}

double OdGeVector2d::angleTo(const OdGeVector2d& other) const {
  return std::atan2(std::fabs(crossProduct(other)), dotProduct(other));
}

double OdGeVector2d::counterClockwiseAngleTo(const OdGeVector2d& other) const {
  return normalizeAngle(std::atan2(crossProduct(other), dotProduct(other)));
}

OdGeVector2d& OdGeVector2d::rotateBy(double angleRad) {
  const double c = std::cos(angleRad);
  const double s = std::sin(angleRad);
  return set(c * x - s * y, s * x + c * y);
}

OdGeVector2d& OdGeVector2d::mirror(const OdGeVector2d& line) {
  const OdGeVector2d along = line.normal();
  return *this = along * (2.0 * dotProduct(along)) - *this;
}

bool OdGeVector2d::isZeroLength(const OdGeTol& tol) const {
  return length() <= tol.equalVector();
}
bool OdGeVector2d::isUnitLength(const OdGeTol& tol) const {
  return std::fabs(length() - 1.0) <= tol.equalVector();
}

bool OdGeVector2d::isParallelTo(const OdGeVector2d& other, const OdGeTol& tol) const {
  return codirectional(*this, other, tol) || codirectional(*this, -other, tol);
}

bool OdGeVector2d::hasDirectionOf(const OdGeVector2d& other, const OdGeTol& tol) const {
  return codirectional(*this, other, tol);
}

bool OdGeVector2d::isPerpendicularTo(const OdGeVector2d& other, const OdGeTol& tol) const {
  return perpendicular(*this, other, tol);
}

bool OdGeVector2d::isEqualTo(const OdGeVector2d& other, const OdGeTol& tol) const {
  return (*this - other).length() <= tol.equalVector();
}

OdGePoint2d& OdGePoint2d::rotateBy(double angleRad, const OdGePoint2d& about) {
  return *this = about + (*this - about).rotateBy(angleRad);
}

bool OdGePoint2d::isEqualTo(const OdGePoint2d& other, const OdGeTol& tol) const {
  return distanceTo(other) <= tol.equalPoint();
}

double OdGeVector3d::length() const {
  return std::hypot(x, y, z);
}
OdGeVector3d OdGeVector3d::normal() const {
  return unitOf(*this, largestOf(*this));
}

OdGeVector3d OdGeVector3d::perpendicularVector() const {
  return OdGeMatrix3d::planeToWorld(*this).column(0);
}

double OdGeVector3d::angleTo(const OdGeVector3d& other) const {
  return std::atan2(crossProduct(other).length(), dotProduct(other));
}

double OdGeVector3d::angleTo(const OdGeVector3d& other, const OdGeVector3d& reference) const {
  const double between = angleTo(other);
  return crossProduct(other).dotProduct(reference) < 0 ? normalizeAngle(-between) : between;
}

OdGeVector3d& OdGeVector3d::transformBy(const OdGeMatrix3d& matrix) {
  return *this = matrix * *this;
}

OdGeVector3d& OdGeVector3d::rotateBy(double angleRad, const OdGeVector3d& axis) {
  return transformBy(OdGeMatrix3d::rotation(angleRad, axis));
}

OdGeVector3d& OdGeVector3d::mirror(const OdGeVector3d& normalToPlane) {
  const OdGeVector3d across = normalToPlane.normal();
  return *this -= across * (2.0 * dotProduct(across));
}

bool OdGeVector3d::isZeroLength(const OdGeTol& tol) const {
  return length() <= tol.equalVector();
}
bool OdGeVector3d::isUnitLength(const OdGeTol& tol) const {
  return std::fabs(length() - 1.0) <= tol.equalVector();
}

bool OdGeVector3d::isParallelTo(const OdGeVector3d& other, const OdGeTol& tol) const {
  return codirectional(*this, other, tol) || codirectional(*this, -other, tol);
}

bool OdGeVector3d::hasDirectionOf(const OdGeVector3d& other, const OdGeTol& tol) const {
  return codirectional(*this, other, tol);
}

bool OdGeVector3d::isPerpendicularTo(const OdGeVector3d& other, const OdGeTol& tol) const {
  return perpendicular(*this, other, tol);
}

bool OdGeVector3d::isEqualTo(const OdGeVector3d& other, const OdGeTol& tol) const {
  return (*this - other).length() <= tol.equalVector();
}

OdGePoint3d& OdGePoint3d::transformBy(const OdGeMatrix3d& matrix) {
  return *this = matrix * *this;
}

OdGePoint3d& OdGePoint3d::rotateBy(double angleRad, const OdGeVector3d& axis, const OdGePoint3d& about) {
  return *this = about + (*this - about).rotateBy(angleRad, axis);
}

bool OdGePoint3d::isEqualTo(const OdGePoint3d& other, const OdGeTol& tol) const {
  return distanceTo(other) <= tol.equalPoint();
}

bool OdGeScale3d::isSingular(const OdGeTol& tol) const {
  return std::fmin(std::fmin(std::fabs(sx), std::fabs(sy)), std::fabs(sz)) <= tol.equalVector();
}

bool OdGeScale3d::isProportional(const OdGeTol& tol) const {
  return std::fabs(std::fabs(sx) - std::fabs(sy)) <= tol.equalVector() &&
         std::fabs(std::fabs(sx) - std::fabs(sz)) <= tol.equalVector();
}

bool OdGeScale3d::isEqualTo(const OdGeScale3d& other, const OdGeTol& tol) const {
  return OdGeVector3d(sx - other.sx, sy - other.sy, sz - other.sz).length() <= tol.equalVector();
}
