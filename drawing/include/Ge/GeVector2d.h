// Directions and distances in a plane.
#pragma once

#include "Ge/GeTol.h"
#include "OdPlatform.h"

class MVDRAWING_API OdGeVector2d {
public:
  double x = 0.0;
  double y = 0.0;

  static const OdGeVector2d kIdentity; // the zero vector
  static const OdGeVector2d kXAxis;
  static const OdGeVector2d kYAxis;

  constexpr OdGeVector2d() = default;
  constexpr OdGeVector2d(double xx, double yy) : x(xx), y(yy) {}
  constexpr OdGeVector2d& set(double xx, double yy) { return *this = OdGeVector2d(xx, yy); }

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

  constexpr double dotProduct(const OdGeVector2d& other) const { return x * other.x + y * other.y; }
  // Positive when other lies counter-clockwise of this.
  constexpr double crossProduct(const OdGeVector2d& other) const { return x * other.y - y * other.x; }
  constexpr OdGeVector2d perpVector() const { return {-y, x}; } // a quarter turn counter-clockwise

  constexpr double lengthSqrd() const { return x * x + y * y; }
  double length() const;
  // Of length 1; the zero vector stays.
  OdGeVector2d normal() const;
  OdGeVector2d& normalize() { return *this = normal(); }

  double angle() const;                               // from the X axis, in [0, 2 pi)
  double angleTo(const OdGeVector2d& other) const;    // in [0, pi]
  double angleToCCW(const OdGeVector2d& other) const; // counter-clockwise, in [0, 2 pi)
  OdGeVector2d& rotateBy(double angleRad);
  OdGeVector2d& mirror(const OdGeVector2d& line); // in a line of that direction

  bool isZeroLength(const OdGeTol& tol = OdGeTol()) const;
  bool isUnitLength(const OdGeTol& tol = OdGeTol()) const;
  // Of zero vectors these three are false.
  bool isParallelTo(const OdGeVector2d& other, const OdGeTol& tol = OdGeTol()) const;
  bool isCodirectionalTo(const OdGeVector2d& other, const OdGeTol& tol = OdGeTol()) const;
  bool isPerpendicularTo(const OdGeVector2d& other, const OdGeTol& tol = OdGeTol()) const;
  bool isEqualTo(const OdGeVector2d& other, const OdGeTol& tol = OdGeTol()) const;
  bool operator==(const OdGeVector2d& other) const { return isEqualTo(other); }
};

inline constexpr OdGeVector2d OdGeVector2d::kIdentity{0.0, 0.0};
inline constexpr OdGeVector2d OdGeVector2d::kXAxis{1.0, 0.0};
inline constexpr OdGeVector2d OdGeVector2d::kYAxis{0.0, 1.0};

constexpr OdGeVector2d operator*(double factor, const OdGeVector2d& vector) {
  return vector * factor;
}
