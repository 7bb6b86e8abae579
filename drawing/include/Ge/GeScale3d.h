// Scale factors along the three axes.
#pragma once

#include "Ge/GeTol.h"
#include "drawing/export.h"

// Three factors. Without arguments all are 0; kIdentity is 1, 1, 1.
class MVDRAWING_API OdGeScale3d {
public:
  double sx = 0.0;
  double sy = 0.0;
  double sz = 0.0;

  static const OdGeScale3d kIdentity;

  constexpr OdGeScale3d() = default;
  // One factor for all axes, or one for each.
  constexpr explicit OdGeScale3d(double factor) : sx(factor), sy(factor), sz(factor) {}
  constexpr OdGeScale3d(double x, double y, double z) : sx(x), sy(y), sz(z) {}
  constexpr OdGeScale3d& set(double x, double y, double z) { return *this = OdGeScale3d(x, y, z); }

  // Products by axis.
  constexpr OdGeScale3d operator*(const OdGeScale3d& other) const {
    return {sx * other.sx, sy * other.sy, sz * other.sz};
  }
  constexpr OdGeScale3d operator*(double factor) const { return {sx * factor, sy * factor, sz * factor}; }
  constexpr OdGeScale3d& operator*=(double factor) { return *this = *this * factor; }
  // Reciprocals; that of 0 is infinite, see isSingular.
  constexpr OdGeScale3d inverse() const { return {1.0 / sx, 1.0 / sy, 1.0 / sz}; }

  // Whether a factor is 0, all have the same absolute value, or they are equal to others, with the tolerance for
  // vectors.
  bool isSingular(const OdGeTol& tol = OdGeTol()) const;
  bool isProportional(const OdGeTol& tol = OdGeTol()) const;
  bool isEqualTo(const OdGeScale3d& other, const OdGeTol& tol = OdGeTol()) const;
  bool operator==(const OdGeScale3d& other) const { return isEqualTo(other); }
};

inline constexpr OdGeScale3d OdGeScale3d::kIdentity{1.0, 1.0, 1.0};
