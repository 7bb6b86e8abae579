// Points in space.
#pragma once

#include "Ge/GePoint2d.h"
#include "Ge/GeVector3d.h"

// A point in space.
class MVDRAWING_API OdGePoint3d {
public:
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;

  static const OdGePoint3d kOrigin;

  constexpr OdGePoint3d() = default;
  // Of these coordinates; set returns the point. convert2d drops z, asVector is the vector from the origin.
  constexpr OdGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
  constexpr OdGePoint3d(const OdGePoint2d& flat, double zz) : x(flat.x), y(flat.y), z(zz) {}
  constexpr OdGePoint3d& set(double xx, double yy, double zz) { return *this = OdGePoint3d(xx, yy, zz); }
  constexpr OdGePoint2d to2d() const { return {x, y}; }
  constexpr OdGeVector3d asVector() const { return {x, y, z}; }

  // A coordinate by its index, which is not checked: x, y and z are 0, 1 and 2.
  constexpr double& operator[](int i) { return i == 0 ? x : i == 1 ? y : z; }
  constexpr double operator[](int i) const { return i == 0 ? x : i == 1 ? y : z; }

  // Points and vectors by coordinate.
  constexpr OdGePoint3d operator+(const OdGeVector3d& by) const { return {x + by.x, y + by.y, z + by.z}; }
  constexpr OdGePoint3d operator-(const OdGeVector3d& by) const { return {x - by.x, y - by.y, z - by.z}; }
  constexpr OdGeVector3d operator-(const OdGePoint3d& from) const { return {x - from.x, y - from.y, z - from.z}; }
  constexpr OdGePoint3d& operator+=(const OdGeVector3d& by) { return *this = *this + by; }
  constexpr OdGePoint3d& operator-=(const OdGeVector3d& by) { return *this = *this - by; }

  // Distance; transformation, and rotation in radians, counter-clockwise as seen against the axis, both returning the
  // point; comparison with the tolerance for points.
  double distanceTo(const OdGePoint3d& other) const { return (*this - other).length(); }
  OdGePoint3d& transformBy(const OdGeMatrix3d& matrix);
  OdGePoint3d& rotateBy(double angleRad, const OdGeVector3d& axis, const OdGePoint3d& about = kOrigin);
  bool isEqualTo(const OdGePoint3d& other, const OdGeTol& tol = OdGeTol()) const;
  bool operator==(const OdGePoint3d& other) const { return isEqualTo(other); }
};

inline constexpr OdGePoint3d OdGePoint3d::kOrigin{0.0, 0.0, 0.0};

// The point at the end of the vector from the origin.
inline OdGePoint3d OdGeVector3d::asPoint() const {
  return {x, y, z};
}
