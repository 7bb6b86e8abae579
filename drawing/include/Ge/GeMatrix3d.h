// Transformation matrices. A point is a column: m * p; in a product the right operand is applied first.
//
// entry[row][column]: columns 0 to 2 are the images of the axes, column 3 the image of the origin. The last row is
// 0 0 0 1 in everything that these functions make from such matrices.
#pragma once

#include "Ge/GePoint3d.h"
#include "Ge/GeScale3d.h"
#include "Ge/GeVector3d.h"

// A matrix of 4 by 4 numbers. Angles are radians; axes and normals need not have unit length.
class MVDRAWING_API OdGeMatrix3d {
public:
  double entry[4][4] = {};

  static const OdGeMatrix3d kIdentity;

  constexpr OdGeMatrix3d() = default; // all zero
  // Entries by row and column, 0 to 3, not checked.
  constexpr double* operator[](int row) { return entry[row]; }
  constexpr const double* operator[](int row) const { return entry[row]; }
  constexpr double operator()(int row, int column) const { return entry[row][column]; }
  constexpr double& operator()(int row, int column) { return entry[row][column]; }

  // Set the matrix and return it. A coordinate system is the matrix from its coordinates to those of its axes, and
  // back: axes are columns and may have any length. Scaling, rotation and reflection keep `center`; a rotation is
  // counter-clockwise as seen against the axis; reflections are in a point, a plane and a line. setToProduct is left *
  // right.
  OdGeMatrix3d& setToIdentity();
  OdGeMatrix3d& setCoordSystem(const OdGePoint3d& origin, const OdGeVector3d& xAxis, const OdGeVector3d& yAxis,
                               const OdGeVector3d& zAxis);
  void getCoordSystem(OdGePoint3d& origin, OdGeVector3d& xAxis, OdGeVector3d& yAxis, OdGeVector3d& zAxis) const;
  OdGeMatrix3d& setToTranslation(const OdGeVector3d& by);
  OdGeMatrix3d& setToScaling(double factor, const OdGePoint3d& center = OdGePoint3d::kOrigin);
  OdGeMatrix3d& setToScaling(const OdGeScale3d& factors, const OdGePoint3d& center = OdGePoint3d::kOrigin);
  OdGeMatrix3d& setToRotation(double angleRad, const OdGeVector3d& axis,
                              const OdGePoint3d& center = OdGePoint3d::kOrigin);
  OdGeMatrix3d& setToMirroring(const OdGePoint3d& point);
  OdGeMatrix3d& setToMirroring(const OdGePoint3d& pointOnPlane, const OdGeVector3d& normalToPlane);
  OdGeMatrix3d& setToMirroringLine(const OdGePoint3d& pointOnLine, const OdGeVector3d& direction);
  OdGeMatrix3d& setToProduct(const OdGeMatrix3d& left, const OdGeMatrix3d& right);

  // The same as new matrices.
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
  // From the OCS of a normal to world coordinates, and back: its axes follow from the normal by the arbitrary axis
  // algorithm of DXF files. A zero normal counts as the Z axis.
  static OdGeMatrix3d planeToWorld(const OdGeVector3d& normal);
  static OdGeMatrix3d worldToPlane(const OdGeVector3d& normal);

  // Products. multiplyLeft puts the other matrix to the left, multiplyRight to the right. Points are divided by the
  // result of the last row; vectors ignore the translation.
  OdGeMatrix3d operator*(const OdGeMatrix3d& right) const;
  OdGeMatrix3d& operator*=(const OdGeMatrix3d& right) { return multiplyRight(right); }
  OdGeMatrix3d& multiplyLeft(const OdGeMatrix3d& left) { return *this = left * *this; }
  OdGeMatrix3d& multiplyRight(const OdGeMatrix3d& right) { return *this = *this * right; }
  OdGePoint3d operator*(const OdGePoint3d& point) const;
  OdGeVector3d operator*(const OdGeVector3d& vector) const;
  // Unit normal of the image of a plane (inverse transpose); zero if the image is not a plane.
  OdGeVector3d transformNormal(const OdGeVector3d& normal) const;

  // Inverse; exact for translations, permutations of axes and reflections along them. For a matrix without an inverse
  // they throw OdError(eDegenerateGeometry), and the form with an argument returns false and leaves it unchanged.
  OdGeMatrix3d inverse() const;
  bool inverse(OdGeMatrix3d& result) const;
  OdGeMatrix3d& invert() { return *this = inverse(); }

  OdGeMatrix3d transpose() const; // rows and columns exchanged
  double determinant() const;     // determinant; negative for reflections
  // Whether the images of the axes are in a plane, or nearly: the volume that they span, divided by their lengths, is
  // at most the tolerance. The size of the matrix does not matter.
  bool isSingular(const OdGeTol& tol = OdGeTol()) const;
  // Whether the images of the axes are perpendicular (reflections included), for the first also of equal length.
  bool isUniformlyScaled(const OdGeTol& tol = OdGeTol()) const;
  bool isOrthogonal(const OdGeTol& tol = OdGeTol()) const;
  bool isAffine() const; // the last row is 0 0 0 1

  double scale() const; // length of the image of the X axis: the factor of an isUniformlyScaled matrix
  double norm() const;  // square root of the sum of squares of the nine entries without translation
  // Translation, and a column, 0 to 3, without its last entry.
  OdGeVector3d translation() const { return {entry[0][3], entry[1][3], entry[2][3]}; }
  OdGeMatrix3d& setTranslation(const OdGeVector3d& by);
  OdGeVector3d column(int index) const { return {entry[0][index], entry[1][index], entry[2][index]}; }

  // Comparison of each entry: the translation with the tolerance for points, the others with that for vectors.
  bool isEqualTo(const OdGeMatrix3d& other, const OdGeTol& tol = OdGeTol()) const;
  bool operator==(const OdGeMatrix3d& other) const { return isEqualTo(other); }

private:
  constexpr explicit OdGeMatrix3d(double diagonal)
      : entry{{diagonal, 0, 0, 0}, {0, diagonal, 0, 0}, {0, 0, diagonal, 0}, {0, 0, 0, 1}} {}
  OdGeMatrix3d& centerAt(const OdGePoint3d& center);
};

inline constexpr OdGeMatrix3d OdGeMatrix3d::kIdentity{1.0};
