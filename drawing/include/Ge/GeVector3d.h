// Directions and distances in space.
#pragma once

#include "Ge/GeTol.h"
#include "Ge/GeVector2d.h"
#include "drawing/export.h"

class OdGeMatrix3d;
class OdGePoint3d;

// A vector in space.
class MVDRAWING_API OdGeVector3d {
public:
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;

  static const OdGeVector3d kIdentity; // the zero vector
  static const OdGeVector3d kXAxis;
  static const OdGeVector3d kYAxis;
  static const OdGeVector3d kZAxis;

  constexpr OdGeVector3d() = default;
  // Of these coordinates; set returns the vector. convert2d drops z.
  constexpr OdGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
  constexpr OdGeVector3d(const OdGeVector2d& flat, double zz) : x(flat.x), y(flat.y), z(zz) {}
  constexpr OdGeVector3d& set(double xx, double yy, double zz) { return *this = OdGeVector3d(xx, yy, zz); }
  constexpr OdGeVector2d to2d() const { return {x, y}; }
  OdGePoint3d asPoint() const;

  // A coordinate by its index, which is not checked: x, y and z are 0, 1 and 2.
  constexpr double& operator[](int i) { return i == 0 ? x : i == 1 ? y : z; }
  constexpr double operator[](int i) const { return i == 0 ? x : i == 1 ? y : z; }

  // Arithmetic by coordinate. Division by 0 gives infinite or undefined coordinates.
  constexpr OdGeVector3d operator+(const OdGeVector3d& other) const { return {x + other.x, y + other.y, z + other.z}; }
  constexpr OdGeVector3d operator-(const OdGeVector3d& other) const { return {x - other.x, y - other.y, z - other.z}; }
  constexpr OdGeVector3d operator-() const { return {-x, -y, -z}; }
  constexpr OdGeVector3d operator*(double factor) const { return {x * factor, y * factor, z * factor}; }
  constexpr OdGeVector3d operator/(double divisor) const { return {x / divisor, y / divisor, z / divisor}; }
  constexpr OdGeVector3d& operator+=(const OdGeVector3d& other) { return *this = *this + other; }
  constexpr OdGeVector3d& operator-=(const OdGeVector3d& other) { return *this = *this - other; }
  constexpr OdGeVector3d& operator*=(double factor) { return *this = *this * factor; }
  constexpr OdGeVector3d& operator/=(double divisor) { return *this = *this / divisor; }
  constexpr OdGeVector3d& negate() { return *this = -*this; }

  // Products; the cross product is right-handed.
  constexpr double dotProduct(const OdGeVector3d& other) const { return x * other.x + y * other.y + z * other.z; }
  constexpr OdGeVector3d crossProduct(const OdGeVector3d& other) const {
    return {y * other.z - z * other.y, z * other.x - x * other.z, x * other.y - y * other.x};
  }
  // A perpendicular unit vector: the OCS X axis of this normal.
  OdGeVector3d perpendicularVector() const;

  // Square of the length, and the length.
  constexpr double squaredLength() const { return x * x + y * y + z * z; }
  double length() const;
  // The vector with length 1; the zero vector and vectors that are not finite are unchanged.
  OdGeVector3d normal() const;
  OdGeVector3d& normalize() { return *this = normal(); }

  // Angle in radians, in [0, pi]; or counter-clockwise as seen against `reference`, in [0, 2 pi).
  double angleTo(const OdGeVector3d& other) const;
  double angleTo(const OdGeVector3d& other, const OdGeVector3d& reference) const;

  // Transform, ignoring the translation; rotate counter-clockwise as seen against the axis; reflect in a plane. They
  // return the vector.
  OdGeVector3d& transformBy(const OdGeMatrix3d& matrix);
  OdGeVector3d& rotateBy(double angleRad, const OdGeVector3d& axis);
  OdGeVector3d& mirror(const OdGeVector3d& normalToPlane);

  // Comparison of lengths with the tolerance for vectors.
  bool isZeroLength(const OdGeTol& tol = OdGeTol()) const;
  bool isUnitLength(const OdGeTol& tol = OdGeTol()) const;
  // Comparison of directions and of the vectors with the tolerance for vectors. The first three are false for zero
  // vectors.
  bool isParallelTo(const OdGeVector3d& other, const OdGeTol& tol = OdGeTol()) const;
  bool hasDirectionOf(const OdGeVector3d& other, const OdGeTol& tol = OdGeTol()) const;
  bool isPerpendicularTo(const OdGeVector3d& other, const OdGeTol& tol = OdGeTol()) const;
  bool isEqualTo(const OdGeVector3d& other, const OdGeTol& tol = OdGeTol()) const;
  bool operator==(const OdGeVector3d& other) const { return isEqualTo(other); }
};

inline constexpr OdGeVector3d OdGeVector3d::kIdentity{0.0, 0.0, 0.0};
inline constexpr OdGeVector3d OdGeVector3d::kXAxis{1.0, 0.0, 0.0};
inline constexpr OdGeVector3d OdGeVector3d::kYAxis{0.0, 1.0, 0.0};
inline constexpr OdGeVector3d OdGeVector3d::kZAxis{0.0, 0.0, 1.0};

// The vector times a factor.
constexpr OdGeVector3d operator*(double factor, const OdGeVector3d& vector) {
  return vector * factor;
}
