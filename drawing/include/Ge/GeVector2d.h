// Directions and distances in a plane.
#pragma once

#include "Ge/GeTol.h"
#include "drawing/export.h"

// A vector in a plane.
class MVDRAWING_API OdGeVector2d {
public:
  double x = 0.0;
  double y = 0.0;

  static const OdGeVector2d kIdentity; // the zero vector
  static const OdGeVector2d kXAxis;
  static const OdGeVector2d kYAxis;

  constexpr OdGeVector2d() = default;
  // Of these coordinates; set returns the vector.
  constexpr OdGeVector2d(double xx, double yy) : x(xx), y(yy) {}
  constexpr OdGeVector2d& set(double xx, double yy) { return *this = OdGeVector2d(xx, yy); }

  // A coordinate by its index, which is not checked: x and y are 0 and 1.
  constexpr double& operator[](int i) { return i == 0 ? x : y; }
  constexpr double operator[](int i) const { return i == 0 ? x : y; }

  // Arithmetic by coordinate. Division by 0 gives infinite or undefined coordinates.
  constexpr OdGeVector2d operator+(const OdGeVector2d& other) const { return {x + other.x, y + other.y}; }
  constexpr OdGeVector2d operator-(const OdGeVector2d& other) const { return {x - other.x, y - other.y}; }
  constexpr OdGeVector2d operator-() const { return {-x, -y}; }
  constexpr OdGeVector2d operator*(double factor) const { return {x * factor, y * factor}; }
  constexpr OdGeVector2d operator/(double divisor) const { return {x / divisor, y / divisor}; }
  constexpr OdGeVector2d& operator+=(const OdGeVector2d& other) { return *this = *this + other; }
  constexpr OdGeVector2d& operator-=(const OdGeVector2d& other) { return *this = *this - other; }
  constexpr OdGeVector2d& operator*=(double factor) { return *this = *this * factor; }
  constexpr OdGeVector2d& operator/=(double divisor) { return *this = *this / divisor; }
  constexpr OdGeVector2d& negate() { return *this = -*this; }

  // Products; the cross product is positive if `other` is counter-clockwise of this one.
  constexpr double dotProduct(const OdGeVector2d& other) const { return x * other.x + y * other.y; }
  constexpr double crossProduct(const OdGeVector2d& other) const { return x * other.y - y * other.x; }
  constexpr OdGeVector2d perpendicularVector() const { return {-y, x}; } // rotated counter-clockwise by 90 degrees

  // Square of the length, and the length.
  constexpr double squaredLength() const { return x * x + y * y; }
  double length() const;
  // The vector with length 1; the zero vector and vectors that are not finite are unchanged.
  OdGeVector2d normal() const;
  OdGeVector2d& normalize() { return *this = normal(); }

  // Angles in radians; 0 for zero vectors.
  double angle() const;                                            // counter-clockwise from the X axis, in [0, 2 pi)
  double angleTo(const OdGeVector2d& other) const;                 // in [0, pi]
  double counterClockwiseAngleTo(const OdGeVector2d& other) const; // counter-clockwise, in [0, 2 pi)

  // Rotate counter-clockwise, and reflect in a line of that direction; they return the vector.
  OdGeVector2d& rotateBy(double angleRad);
  OdGeVector2d& mirror(const OdGeVector2d& line);

  // Comparison of lengths with the tolerance for vectors.
  bool isZeroLength(const OdGeTol& tol = OdGeTol()) const;
  bool isUnitLength(const OdGeTol& tol = OdGeTol()) const;
  // Comparison of directions and of the vectors with the tolerance for vectors. The first three are false for zero
  // vectors.
  bool isParallelTo(const OdGeVector2d& other, const OdGeTol& tol = OdGeTol()) const;
  bool hasDirectionOf(const OdGeVector2d& other, const OdGeTol& tol = OdGeTol()) const;
  bool isPerpendicularTo(const OdGeVector2d& other, const OdGeTol& tol = OdGeTol()) const;
  bool isEqualTo(const OdGeVector2d& other, const OdGeTol& tol = OdGeTol()) const;
  bool operator==(const OdGeVector2d& other) const { return isEqualTo(other); }
};

inline constexpr OdGeVector2d OdGeVector2d::kIdentity{0.0, 0.0};
inline constexpr OdGeVector2d OdGeVector2d::kXAxis{1.0, 0.0};
inline constexpr OdGeVector2d OdGeVector2d::kYAxis{0.0, 1.0};

// The vector times a factor.
constexpr OdGeVector2d operator*(double factor, const OdGeVector2d& vector) {
  return vector * factor;
}
