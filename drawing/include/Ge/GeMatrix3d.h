// Mappings of space. A point is a column: m * p; of a product the right operand is applied first.
//
// entry[row][column]: columns 0 to 2 are the images of the axes, column 3 the image of the origin. The last row is
// 0 0 0 1 in everything that the functions here make from such matrices.
#pragma once

#include "Ge/GePoint3d.h"
#include "Ge/GeScale3d.h"
#include "Ge/GeVector3d.h"

class MVDRAWING_API OdGeMatrix3d {
public:
  double entry[4][4] = {};

  static const OdGeMatrix3d kIdentity;

  constexpr OdGeMatrix3d() = default; // all zero
  constexpr double* operator[](int row) { return entry[row]; }
  constexpr const double* operator[](int row) const { return entry[row]; }
  constexpr double operator()(int row, int column) const { return entry[row][column]; }
  constexpr double& operator()(int row, int column) { return entry[row][column]; }

  OdGeMatrix3d& setToIdentity();
  OdGeMatrix3d& setCoordSystem(const OdGePoint3d& origin, const OdGeVector3d& xAxis, const OdGeVector3d& yAxis,
                               const OdGeVector3d& zAxis);
  void getCoordSystem(OdGePoint3d& origin, OdGeVector3d& xAxis, OdGeVector3d& yAxis, OdGeVector3d& zAxis) const;
  OdGeMatrix3d& setToTranslation(const OdGeVector3d& by);
  OdGeMatrix3d& setToScaling(double factor, const OdGePoint3d& center = OdGePoint3d::kOrigin);
  OdGeMatrix3d& setToScaling(const OdGeScale3d& factors, const OdGePoint3d& center = OdGePoint3d::kOrigin);
  // Counter-clockwise as seen against axis.
  OdGeMatrix3d& setToRotation(double angleRad, const OdGeVector3d& axis,
                              const OdGePoint3d& center = OdGePoint3d::kOrigin);
  OdGeMatrix3d& setToMirroring(const OdGePoint3d& point);
  OdGeMatrix3d& setToMirroring(const OdGePoint3d& pointOnPlane, const OdGeVector3d& normalToPlane);
  OdGeMatrix3d& setToMirroringLine(const OdGePoint3d& pointOnLine, const OdGeVector3d& direction);
  OdGeMatrix3d& setToProduct(const OdGeMatrix3d& left, const OdGeMatrix3d& right);

  static OdGeMatrix3d coordSystem(const OdGePoint3d& origin, const OdGeVector3d& xAxis, const OdGeVector3d& yAxis,
                                  const OdGeVector3d& zAxis);
  static OdGeMatrix3d translation(const OdGeVector3d& by);
  static OdGeMatrix3d scaling(double factor, const OdGePoint3d& center = OdGePoint3d::kOrigin);
  static OdGeMatrix3d scaling(const OdGeScale3d& factors, const OdGePoint3d& center = OdGePoint3d::kOrigin);
  static OdGeMatrix3d rotation(double angleRad, const OdGeVector3d& axis,
                               const OdGePoint3d& center = OdGePoint3d::kOrigin);
  static OdGeMatrix3d mirroring(const OdGePoint3d& point);
  static OdGeMatrix3d mirroring(const OdGePoint3d& pointOnPlane, const OdGeVector3d& normalToPlane);
  static OdGeMatrix3d mirroringLine(const OdGePoint3d& pointOnLine, const OdGeVector3d& direction);
  // Between the world and the plane through the origin whose axes follow from its normal by the arbitrary axis rule of
  // drawing files. A zero normal is taken for the Z axis.
  static OdGeMatrix3d planeToWorld(const OdGeVector3d& normal);
  static OdGeMatrix3d worldToPlane(const OdGeVector3d& normal);

  OdGeMatrix3d operator*(const OdGeMatrix3d& right) const;
  OdGeMatrix3d& operator*=(const OdGeMatrix3d& right) { return postMultBy(right); }
  OdGeMatrix3d& preMultBy(const OdGeMatrix3d& left) { return *this = left * *this; }
  OdGeMatrix3d& postMultBy(const OdGeMatrix3d& right) { return *this = *this * right; }
  OdGePoint3d operator*(const OdGePoint3d& point) const;
  OdGeVector3d operator*(const OdGeVector3d& vector) const; // the translation does not matter
  // The unit normal of the image of a plane (inverse transpose). Zero when the image has none.
  OdGeVector3d transformNormal(const OdGeVector3d& normal) const;

  // Exact for translations, permutations of axes and mirrors along them. A matrix without an inverse throws
  // OdError(eDegenerateGeometry); the form with a result answers false instead.
  OdGeMatrix3d inverse() const;
  bool inverse(OdGeMatrix3d& answer) const;
  OdGeMatrix3d& invert() { return *this = inverse(); }
  OdGeMatrix3d transpose() const;
  double det() const;
  // Whether the images of the axes lie in a plane, or nearly: the volume they span, with the axes' lengths taken out,
  // is at most the tolerance. The size of the matrix does not matter.
  bool isSingular(const OdGeTol& tol = OdGeTol()) const;
  // The images of the axes are at right angles (mirrors included), and of equal length for the first.
  bool isUniScaledOrtho(const OdGeTol& tol = OdGeTol()) const;
  bool isScaledOrtho(const OdGeTol& tol = OdGeTol()) const;
  bool isAffine() const; // the last row is 0 0 0 1

  double scale() const; // the length of the image of the X axis: the factor of an isUniScaledOrtho matrix
  double norm() const;  // the root of the sum of squares of the nine entries without translation
  OdGeVector3d translation() const { return {entry[0][3], entry[1][3], entry[2][3]}; }
  OdGeMatrix3d& setTranslation(const OdGeVector3d& by);
  OdGeVector3d column(int index) const { return {entry[0][index], entry[1][index], entry[2][index]}; }

  // Entry by entry; the translation by equalPoint, the rest by equalVector.
  bool isEqualTo(const OdGeMatrix3d& other, const OdGeTol& tol = OdGeTol()) const;
  bool operator==(const OdGeMatrix3d& other) const { return isEqualTo(other); }

private:
  constexpr explicit OdGeMatrix3d(double diagonal)
      : entry{{diagonal, 0, 0, 0}, {0, diagonal, 0, 0}, {0, 0, diagonal, 0}, {0, 0, 0, 1}} {}
  OdGeMatrix3d& centerAt(const OdGePoint3d& center);
};

inline constexpr OdGeMatrix3d OdGeMatrix3d::kIdentity{1.0};
