// Points in a plane.
#pragma once

#include "Ge/GeVector2d.h"

// A point in a plane.
class MVDRAWING_API OdGePoint2d {
public:
  double x = 0.0;
  double y = 0.0;

  static const OdGePoint2d kOrigin;

  constexpr OdGePoint2d() = default;
  // Of these coordinates; set returns the point.
  constexpr OdGePoint2d(double xx, double yy) : x(xx), y(yy) {}
  constexpr OdGePoint2d& set(double xx, double yy) { return *this = OdGePoint2d(xx, yy); }

  // A coordinate by its index, which is not checked: x and y are 0 and 1.
  constexpr double& operator[](int i) { return i == 0 ? x : y; }
  constexpr double operator[](int i) const { return i == 0 ? x : y; }

  // Points and vectors by coordinate; asVector is the vector from the origin.
  constexpr OdGePoint2d operator+(const OdGeVector2d& by) const { return {x + by.x, y + by.y}; }
  constexpr OdGePoint2d operator-(const OdGeVector2d& by) const { return {x - by.x, y - by.y}; }
  constexpr OdGeVector2d operator-(const OdGePoint2d& from) const { return {x - from.x, y - from.y}; }
  constexpr OdGePoint2d& operator+=(const OdGeVector2d& by) { return *this = *this + by; }
  constexpr OdGePoint2d& operator-=(const OdGeVector2d& by) { return *this = *this - by; }
  constexpr OdGeVector2d asVector() const { return {x, y}; }

  // Distance; rotation counter-clockwise, in radians, returning the point; comparison with the tolerance for points.
  double distanceTo(const OdGePoint2d& other) const { return (*this - other).length(); }
  OdGePoint2d& rotateBy(double angleRad, const OdGePoint2d& about = kOrigin);
  bool isEqualTo(const OdGePoint2d& other, const OdGeTol& tol = OdGeTol()) const;
  bool operator==(const OdGePoint2d& other) const { return isEqualTo(other); }
};

inline constexpr OdGePoint2d OdGePoint2d::kOrigin{0.0, 0.0};
