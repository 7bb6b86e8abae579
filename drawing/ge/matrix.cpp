#include "Ge/GeMatrix3d.h"
#include "OdError.h"

#include <algorithm>
#include <cmath>

namespace {

// The arbitrary axis rule: a normal whose x and y are both below this is near the Z axis.
constexpr double kNearZ = 1.0 / 64.0;

template <int n>
void takeOut(double (&work)[n][2 * n], int pivot) {
  const double divisor = work[pivot][pivot];
  for (double& value : work[pivot])
    value /= divisor;
  for (int row = 0; row < n; ++row) {
    const double factor = work[row][pivot];
    if (row == pivot || factor == 0.0)
      continue;
    for (int column = 0; column < 2 * n; ++column)
      work[row][column] -= factor * work[pivot][column];
  }
}

// Elimination with row exchange beside a unit matrix. Divisions by the entries themselves keep translations,
// permutations and plain scales exact, which dividing cofactors by a determinant does not.
template <int n>
bool invertSquare(const OdGeMatrix3d& matrix, OdGeMatrix3d& result) {
  double work[n][2 * n] = {};
  for (int row = 0; row < n; ++row) {
    std::copy_n(matrix.entry[row], n, work[row]);
    work[row][n + row] = 1.0;
  }
  for (int pivot = 0; pivot < n; ++pivot) {
    int best = pivot;
    for (int row = pivot + 1; row < n; ++row)
      best = std::fabs(work[row][pivot]) > std::fabs(work[best][pivot]) ? row : best;
    if (work[best][pivot] == 0.0)
      return false;
    std::swap(work[best], work[pivot]);
    takeOut<n>(work, pivot);
  }
  for (int row = 0; row < n; ++row) {
    for (int column = 0; column < n; ++column)
      result.entry[row][column] = work[row][n + column] + 0.0; // no -0
  }
  return true;
}

bool allFinite(const OdGeMatrix3d& matrix) {
  const double* first = &matrix.entry[0][0];
  return std::all_of(first, first + 16, [](double value) { return std::isfinite(value); });
}

OdGeVector3d rowTimes(const OdGeMatrix3d& m, const OdGeVector3d& v) {
  return {m.entry[0][0] * v.x + m.entry[0][1] * v.y + m.entry[0][2] * v.z,
          m.entry[1][0] * v.x + m.entry[1][1] * v.y + m.entry[1][2] * v.z,
          m.entry[2][0] * v.x + m.entry[2][1] * v.y + m.entry[2][2] * v.z};
}

double volume(const OdGeMatrix3d& m) {
  return m.column(0).dotProduct(m.column(1).crossProduct(m.column(2)));
}

// The determinant of what stays without that row and the last column.
double minorOfLastColumn(const OdGeMatrix3d& m, int without) {
  OdGeVector3d rows[3];
  for (int row = 0, kept = 0; row < 4; ++row) {
    if (row != without)
      rows[kept++].set(m.entry[row][0], m.entry[row][1], m.entry[row][2]);
  }
  return rows[0].dotProduct(rows[1].crossProduct(rows[2]));
}

} // namespace

OdGeMatrix3d& OdGeMatrix3d::setToIdentity() {
  return *this = kIdentity;
}

OdGeMatrix3d& OdGeMatrix3d::setCoordSystem(const OdGePoint3d& origin, const OdGeVector3d& xAxis,
                                           const OdGeVector3d& yAxis, const OdGeVector3d& zAxis) {
  const OdGeVector3d columns[] = {xAxis, yAxis, zAxis, origin.asVector()};
  for (int i = 0; i < 4; ++i) {
    entry[0][i] = columns[i].x;
    entry[1][i] = columns[i].y;
    entry[2][i] = columns[i].z;
    entry[3][i] = i == 3 ? 1.0 : 0.0;
  }
  return *this;
}

void OdGeMatrix3d::getCoordSystem(OdGePoint3d& origin, OdGeVector3d& xAxis, OdGeVector3d& yAxis,
                                  OdGeVector3d& zAxis) const {
  origin = translation().asPoint();
  xAxis = column(0);
  yAxis = column(1);
  zAxis = column(2);
}

OdGeMatrix3d& OdGeMatrix3d::setTranslation(const OdGeVector3d& by) {
  entry[0][3] = by.x;
  entry[1][3] = by.y;
  entry[2][3] = by.z;
  return *this;
}

// Sets the translation so that center stays where it is.
OdGeMatrix3d& OdGeMatrix3d::centerAt(const OdGePoint3d& center) {
  return setTranslation(center.asVector() - rowTimes(*this, center.asVector()));
}

OdGeMatrix3d& OdGeMatrix3d::setToTranslation(const OdGeVector3d& by) {
  return setToIdentity().setTranslation(by);
}

OdGeMatrix3d& OdGeMatrix3d::setToScaling(double factor, const OdGePoint3d& center) {
  return setToScaling(OdGeScale3d(factor), center);
}

OdGeMatrix3d& OdGeMatrix3d::setToScaling(const OdGeScale3d& factors, const OdGePoint3d& center) {
  setToIdentity();
  entry[0][0] = factors.sx;
  entry[1][1] = factors.sy;
  entry[2][2] = factors.sz;
  return centerAt(center);
}

OdGeMatrix3d& OdGeMatrix3d::setToRotation(double angleRad, const OdGeVector3d& axis, const OdGePoint3d& center) {
  const OdGeVector3d a = axis.normal();
  const double c = std::cos(angleRad);
  const OdGeVector3d s = a * std::sin(angleRad);
  const OdGeVector3d t = a * (1.0 - c);
  setCoordSystem(OdGePoint3d::kOrigin, OdGeVector3d(t.x * a.x + c, t.x * a.y + s.z, t.x * a.z - s.y),
                 OdGeVector3d(t.y * a.x - s.z, t.y * a.y + c, t.y * a.z + s.x),
                 OdGeVector3d(t.z * a.x + s.y, t.z * a.y - s.x, t.z * a.z + c));
  return centerAt(center);
}

OdGeMatrix3d& OdGeMatrix3d::setToMirroring(const OdGePoint3d& point) {
  return setToScaling(-1.0, point);
}

OdGeMatrix3d& OdGeMatrix3d::setToMirroring(const OdGePoint3d& pointOnPlane, const OdGeVector3d& normalToPlane) {
  const OdGeVector3d n = normalToPlane.normal();
  setCoordSystem(OdGePoint3d::kOrigin, OdGeVector3d::kXAxis - n * (2.0 * n.x), OdGeVector3d::kYAxis - n * (2.0 * n.y),
                 OdGeVector3d::kZAxis - n * (2.0 * n.z));
  return centerAt(pointOnPlane);
}

OdGeMatrix3d& OdGeMatrix3d::setToMirroringLine(const OdGePoint3d& pointOnLine, const OdGeVector3d& direction) {
  const OdGeVector3d d = direction.normal();
  setCoordSystem(OdGePoint3d::kOrigin, d * (2.0 * d.x) - OdGeVector3d::kXAxis, d * (2.0 * d.y) - OdGeVector3d::kYAxis,
                 d * (2.0 * d.z) - OdGeVector3d::kZAxis);
  return centerAt(pointOnLine);
}

OdGeMatrix3d& OdGeMatrix3d::setToProduct(const OdGeMatrix3d& left, const OdGeMatrix3d& right) {
  return *this = left * right;
}

OdGeMatrix3d OdGeMatrix3d::coordSystem(const OdGePoint3d& origin, const OdGeVector3d& xAxis, const OdGeVector3d& yAxis,
                                       const OdGeVector3d& zAxis) {
  return OdGeMatrix3d().setCoordSystem(origin, xAxis, yAxis, zAxis);
}

OdGeMatrix3d OdGeMatrix3d::translation(const OdGeVector3d& by) {
  return OdGeMatrix3d().setToTranslation(by);
}

OdGeMatrix3d OdGeMatrix3d::scaling(double factor, const OdGePoint3d& center) {
  return OdGeMatrix3d().setToScaling(factor, center);
}

OdGeMatrix3d OdGeMatrix3d::scaling(const OdGeScale3d& factors, const OdGePoint3d& center) {
  return OdGeMatrix3d().setToScaling(factors, center);
}

OdGeMatrix3d OdGeMatrix3d::rotation(double angleRad, const OdGeVector3d& axis, const OdGePoint3d& center) {
  return OdGeMatrix3d().setToRotation(angleRad, axis, center);
}

OdGeMatrix3d OdGeMatrix3d::mirroring(const OdGePoint3d& point) {
  return OdGeMatrix3d().setToMirroring(point);
}

OdGeMatrix3d OdGeMatrix3d::mirroring(const OdGePoint3d& pointOnPlane, const OdGeVector3d& normalToPlane) {
  return OdGeMatrix3d().setToMirroring(pointOnPlane, normalToPlane);
}

OdGeMatrix3d OdGeMatrix3d::mirroringLine(const OdGePoint3d& pointOnLine, const OdGeVector3d& direction) {
  return OdGeMatrix3d().setToMirroringLine(pointOnLine, direction);
}

OdGeMatrix3d OdGeMatrix3d::planeToWorld(const OdGeVector3d& normal) {
  const OdGeVector3d unit = normal.normal();
  const OdGeVector3d z = unit.squaredLength() > 0.5 ? unit : OdGeVector3d::kZAxis;
  const bool nearZ = std::fabs(z.x) < kNearZ && std::fabs(z.y) < kNearZ;
  const OdGeVector3d x = (nearZ ? OdGeVector3d::kYAxis : OdGeVector3d::kZAxis).crossProduct(z).normal();
  return coordSystem(OdGePoint3d::kOrigin, x, z.crossProduct(x).normal(), z);
}

OdGeMatrix3d OdGeMatrix3d::worldToPlane(const OdGeVector3d& normal) {
  return planeToWorld(normal).transpose();
}

OdGeMatrix3d OdGeMatrix3d::operator*(const OdGeMatrix3d& right) const {
  OdGeMatrix3d product;
  for (int row = 0; row < 4; ++row) {
    for (int at = 0; at < 4; ++at) {
      product.entry[row][at] = entry[row][0] * right.entry[0][at] + entry[row][1] * right.entry[1][at] +
                               entry[row][2] * right.entry[2][at] + entry[row][3] * right.entry[3][at];
    }
  }
  return product;
}

OdGePoint3d OdGeMatrix3d::operator*(const OdGePoint3d& point) const {
  const OdGePoint3d moved = (rowTimes(*this, point.asVector()) + translation()).asPoint();
  const double weight = entry[3][0] * point.x + entry[3][1] * point.y + entry[3][2] * point.z + entry[3][3];
  return weight == 1.0 || weight == 0.0 ? moved : (moved.asVector() / weight).asPoint();
}

OdGeVector3d OdGeMatrix3d::operator*(const OdGeVector3d& vector) const {
  return rowTimes(*this, vector);
}

OdGeVector3d OdGeMatrix3d::transformNormal(const OdGeVector3d& normal) const {
  // The cofactors are the inverse transpose but for the determinant, of which the sign alone matters.
  const OdGeVector3d image = column(1).crossProduct(column(2)) * normal.x +
                             column(2).crossProduct(column(0)) * normal.y +
                             column(0).crossProduct(column(1)) * normal.z;
  return (volume(*this) < 0 ? -image : image).normal();
}

bool OdGeMatrix3d::isAffine() const {
  return entry[3][0] == 0.0 && entry[3][1] == 0.0 && entry[3][2] == 0.0 && entry[3][3] == 1.0;
}

bool OdGeMatrix3d::inverse(OdGeMatrix3d& result) const {
  if (!isAffine()) {
    OdGeMatrix3d found;
    const bool made = invertSquare<4>(*this, found) && allFinite(found);
    result = made ? found : result;
    return made;
  }
  OdGeMatrix3d found = kIdentity;
  if (!invertSquare<3>(*this, found))
    return false;
  found.setTranslation(OdGeVector3d::kIdentity - rowTimes(found, translation()));
  if (!allFinite(found))
    return false;
  result = found;
  return true;
}

OdGeMatrix3d OdGeMatrix3d::inverse() const {
  OdGeMatrix3d result;
  if (!inverse(result))
    throw OdError(eDegenerateGeometry);
  return result;
}

OdGeMatrix3d OdGeMatrix3d::transpose() const {
  OdGeMatrix3d transposed;
  for (int row = 0; row < 4; ++row) {
    for (int at = 0; at < 4; ++at)
      transposed.entry[at][row] = entry[row][at];
  }
  return transposed;
}

double OdGeMatrix3d::determinant() const {
  if (isAffine())
    return volume(*this);
  double sum = 0.0;
  for (int row = 0; row < 4; ++row)
    sum += (row % 2 == 0 ? -1.0 : 1.0) * entry[row][3] * minorOfLastColumn(*this, row);
  return sum;
}

bool OdGeMatrix3d::isSingular(const OdGeTol& tol) const {
  if (!isAffine()) {
    OdGeMatrix3d unused;
    return !inverse(unused);
  }
  // Not "at most": a matrix with NaN entries is singular too.
  const OdGeVector3d x = column(0).normal();
  return !(std::fabs(x.dotProduct(column(1).normal().crossProduct(column(2).normal()))) > tol.equalVector());
}

bool OdGeMatrix3d::isOrthogonal(const OdGeTol& tol) const {
  if (!isAffine())
    return false;
  const OdGeVector3d axes[] = {column(0).normal(), column(1).normal(), column(2).normal()};
  for (int i = 0; i < 3; ++i) {
    const double across = axes[i].dotProduct(axes[(i + 1) % 3]);
    if (!(std::fabs(across) <= tol.equalVector()) || axes[i].squaredLength() < 0.5)
      return false;
  }
  return true;
}

bool OdGeMatrix3d::isUniformlyScaled(const OdGeTol& tol) const {
  if (!isOrthogonal(tol))
    return false;
  const double lengths[] = {column(0).length(), column(1).length(), column(2).length()};
  const auto [least, most] = std::minmax({lengths[0], lengths[1], lengths[2]});
  return most - least <= tol.equalVector() * most;
}

double OdGeMatrix3d::scale() const {
  return column(0).length();
}

double OdGeMatrix3d::norm() const {
  return std::hypot(column(0).length(), column(1).length(), column(2).length());
}

bool OdGeMatrix3d::isEqualTo(const OdGeMatrix3d& other, const OdGeTol& tol) const {
  for (int row = 0; row < 4; ++row) {
    for (int at = 0; at < 4; ++at) {
      const double allowed = at == 3 ? tol.equalPoint() : tol.equalVector();
      if (!(std::fabs(entry[row][at] - other.entry[row][at]) <= allowed))
        return false;
    }
  }
  return true;
}
