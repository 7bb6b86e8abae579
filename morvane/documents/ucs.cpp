#include "morvane/documents/ucs.h"
#include "morvane/documents.h"
#include "morvane/host.h"

#include <algorithm>
#include <cmath>

namespace morvane::documents {

// The header keeps the origin and two axes.
OdGeMatrix3d ucsOf(const OdDbDatabase& database) {
  const OdGePoint3d x = database.headerPoint("UCSXDIR");
  const OdGePoint3d y = database.headerPoint("UCSYDIR");
  const OdGeVector3d xAxis(x.x, x.y, x.z);
  const OdGeVector3d zAxis = xAxis.crossProduct(OdGeVector3d(y.x, y.y, y.z));
  if (xAxis.isZeroLength() || zAxis.isZeroLength())
    return OdGeMatrix3d::coordSystem(database.headerPoint("UCSORG"), OdGeVector3d::kXAxis, OdGeVector3d::kYAxis,
                                     OdGeVector3d::kZAxis);
  const OdGeVector3d unitX = xAxis.normal();
  const OdGeVector3d unitZ = zAxis.normal();
  return OdGeMatrix3d::coordSystem(database.headerPoint("UCSORG"), unitX, unitZ.crossProduct(unitX), unitZ);
}

} // namespace morvane::documents

namespace mvsi {
namespace {

OdGePoint3d asPoint(const OdGeVector3d& vector) {
  return OdGePoint3d(vector.x, vector.y, vector.z);
}

bool isRightAngled(const OdGeVector3d& one, const OdGeVector3d& other) {
  constexpr double kTolerance = 1e-9;
  return std::fabs(one.length() - 1.0) < kTolerance && std::fabs(one.dotProduct(other)) < kTolerance;
}

bool isFinite(const double* values) {
  return std::isfinite(values[0]) && std::isfinite(values[1]) && std::isfinite(values[2]);
}

int convert(const char* operation, const double* in, double* out, bool vector, bool toWorld) {
  morvane::Host* host = morvane::admitCall(operation);
  OdDbDatabase* database = host == nullptr ? nullptr : host->documents().workingDatabase();
  if (database == nullptr || in == nullptr || out == nullptr || !isFinite(in))
    return RTERROR;
  OdGeMatrix3d matrix = morvane::documents::ucsOf(*database);
  if (!toWorld)
    matrix.invert();
  OdGePoint3d point(in[0], in[1], in[2]);
  if (vector)
    point = asPoint(matrix * OdGeVector3d(in[0], in[1], in[2]));
  else
    point = matrix * point;
  const double converted[3] = {point.x, point.y, point.z};
  if (!isFinite(converted))
    return RTERROR;
  std::copy(converted, converted + 3, out);
  return RTNORM;
}

} // namespace

int mvsidbUcsMatrix(OdGeMatrix3d& matrix, OdDbDatabase* database) {
  if (morvane::admitCall("mvsidbUcsMatrix") == nullptr || database == nullptr)
    return RTERROR;
  matrix = morvane::documents::ucsOf(*database);
  return RTNORM;
}

int mvsidbSetUcsMatrix(const OdGeMatrix3d& matrix, OdDbDatabase* database) {
  if (morvane::admitCall("mvsidbSetUcsMatrix") == nullptr || database == nullptr)
    return RTERROR;
  OdGePoint3d origin;
  OdGeVector3d x;
  OdGeVector3d y;
  OdGeVector3d z;
  matrix.getCoordSystem(origin, x, y, z);
  const double originWcs[3] = {origin.x, origin.y, origin.z};
  const bool rightHanded = x.crossProduct(y).dotProduct(z) > 0.0;
  if (!isFinite(originWcs) || !isRightAngled(x, y) || !isRightAngled(y, z) || !isRightAngled(z, x) || !rightHanded)
    return RTREJ;
  database->setHeaderPoint("UCSORG", origin);
  database->setHeaderPoint("UCSXDIR", asPoint(x));
  database->setHeaderPoint("UCSYDIR", asPoint(y));
  return RTNORM;
}

int mvsidbUcs2Wcs(const double* in, double* out, bool vector) {
  return convert("mvsidbUcs2Wcs", in, out, vector, true);
}

int mvsidbUcs2Wcs(const OdGePoint3d& in, OdGePoint3d& out, bool vector) {
  const double from[3] = {in.x, in.y, in.z};
  double to[3] = {};
  const int code = mvsidbUcs2Wcs(from, to, vector);
  if (code == RTNORM)
    out = OdGePoint3d(to[0], to[1], to[2]);
  return code;
}

int mvsidbWcs2Ucs(const double* in, double* out, bool vector) {
  return convert("mvsidbWcs2Ucs", in, out, vector, false);
}

} // namespace mvsi
