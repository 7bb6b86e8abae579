#include "drawing/ge/plane_map.h"

#include "Ge/GeUtil.h"

#include <cmath>
#include <utility>

namespace drawing {

namespace {

constexpr double kShapeTolerance = 1e-10; // relative; products of a few dozen turns stay far below

bool isSimilarity(const OdGeVector3d& x, const OdGeVector3d& y) {
  const double a = x.length(), b = y.length();
  return std::fabs(x.dotProduct(y)) <= kShapeTolerance * a * b && std::fabs(a - b) <= kShapeTolerance * a;
}

} // namespace

bool isTranslation(const OdGeMatrix3d& matrix) {
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) {
      if (matrix.entry[row][column] != (row == column ? 1.0 : 0.0))
        return false;
    }
  }
  return true;
}

bool isInvertibleMap(const OdGeMatrix3d& matrix) {
  for (const auto& row : matrix.entry) {
    for (const double value : row) {
      if (!std::isfinite(value))
        return false;
    }
  }
  return matrix.isAffine() && !matrix.isSingular();
}

void mapSweep(const OdGeMatrix3d& matrix, OdGeVector3d& direction, double& length) {
  if (isTranslation(matrix) || !(direction.length() > 0))
    return;
  const OdGeVector3d moved = matrix * direction;
  const OdGeVector3d unit = moved.normal();
  if (const double factor = moved.length() / direction.length(); std::fabs(factor - 1) > 1e-14)
    length *= factor;
  if (!unit.isEqualTo(direction, OdGeTol(1e-14)))
    direction = unit;
}

PlaneMap::PlaneMap(const OdGeMatrix3d& matrix, const OdGeVector3d& normal)
    : map_(matrix), normal_(normal), translation_(isTranslation(matrix)) {
  const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(normal);
  if (translation_) {
    map_.setTranslation(OdGeMatrix3d::worldToPlane(normal) * matrix.translation());
    return;
  }
  const OdGeVector3d rotated = matrix.transformNormal(plane.column(2));
  if (!rotated.isEqualTo(normal, OdGeTol(1e-14)))
    normal_ = rotated;
  map_ = OdGeMatrix3d::worldToPlane(normal_) * matrix * plane;
  // Rounding apart, the image of the plane is the new plane.
  map_.entry[2][0] = map_.entry[2][1] = 0;
  const OdGeVector3d x = map_.column(0), y = map_.column(1), up = map_.column(2);
  mirrored_ = x.x * y.y - x.y * y.x < 0;
  similar_ = isSimilarity(x, y);
  scale_ = x.length();
  thicknessScale_ = up.z;
  keepsNormal_ = std::hypot(up.x, up.y) <= kShapeTolerance * up.z;
}

OdGePoint3d PlaneMap::point(const OdGePoint3d& ocs) const {
  return map_ * ocs;
}

OdGeVector3d PlaneMap::vector(const OdGeVector3d& ocs) const {
  return map_ * ocs;
}

double PlaneMap::rotation() const {
  return translation_ ? 0 : std::atan2(map_.entry[1][0], map_.entry[0][0]);
}

double PlaneMap::angle(double angleRad) const {
  const OdGeVector3d x = map_.column(0);
  if (translation_ || (!mirrored_ && similar_ && x.y == 0 && x.x > 0))
    return angleRad;
  const OdGeVector3d rotated = map_ * OdGeVector3d(std::cos(angleRad), std::sin(angleRad), 0);
  if (!similar_)
    return normalizeAngle(std::atan2(rotated.y, rotated.x));
  return normalizeAngle(mirrored_ ? rotation() - angleRad : rotation() + angleRad);
}

void mapArcAngles(const PlaneMap& map, double& startRad, double& endRad) {
  startRad = map.angle(startRad);
  endRad = map.angle(endRad);
  if (map.isMirrored())
    std::swap(startRad, endRad);
}

} // namespace drawing
