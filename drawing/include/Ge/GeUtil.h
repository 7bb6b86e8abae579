// Constants, angles, and the object coordinates of drawing files.
#pragma once

#include "Ge/GeMatrix3d.h"

inline constexpr double OdaPI = 3.14159265358979323846;
inline constexpr double Oda2PI = 2 * OdaPI;
inline constexpr double OdaPI2 = OdaPI / 2;

constexpr double OdaToRadian(double degrees) {
  return degrees * (OdaPI / 180.0);
}
constexpr double OdaToDegree(double radians) {
  return radians * (180.0 / OdaPI);
}

// The same direction in [0, 2 pi).
MVDRAWING_API double odgeNormalizeAngle(double angleRad);

// Points of a plane entity in its file are in the coordinates of the plane with its normal.
inline OdGePoint3d odgeOcsToWcs(const OdGePoint3d& pointOcs, const OdGeVector3d& normal) {
  return OdGeMatrix3d::planeToWorld(normal) * pointOcs;
}
inline OdGePoint3d odgeWcsToOcs(const OdGePoint3d& pointWcs, const OdGeVector3d& normal) {
  return OdGeMatrix3d::worldToPlane(normal) * pointWcs;
}
