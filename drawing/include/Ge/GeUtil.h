// Constants, angles, and object coordinate systems (OCS).
#pragma once

#include "Ge/GeMatrix3d.h"

// Pi, 2 pi and pi / 2.
inline constexpr double kPi = 3.14159265358979323846;
inline constexpr double kTwoPi = 2 * kPi;
inline constexpr double kHalfPi = kPi / 2;

// Conversion between degrees and radians.
constexpr double toRadians(double degrees) {
  return degrees * (kPi / 180.0);
}
// Conversion between degrees and radians.
constexpr double toDegrees(double radians) {
  return radians * (180.0 / kPi);
}

// The same direction in [0, 2 pi).
MVDRAWING_API double normalizeAngle(double angleRad);

// Conversion of a point between the OCS of a normal, in which files store planar entities, and world coordinates. The
// axes of the OCS follow from the normal by the arbitrary axis algorithm of DXF files; the origins are the same.
inline OdGePoint3d ocsToWcs(const OdGePoint3d& pointOcs, const OdGeVector3d& normal) {
  return OdGeMatrix3d::planeToWorld(normal) * pointOcs;
}
// The inverse of ocsToWcs.
inline OdGePoint3d wcsToOcs(const OdGePoint3d& pointWcs, const OdGeVector3d& normal) {
  return OdGeMatrix3d::worldToPlane(normal) * pointWcs;
}
