// Splines: by control points with knots and weights (NURBS), by fit points, or both.
#pragma once

#include "DbCurves.h"

#include <vector>

// A spline. Points and tangents are world coordinates. Accepts every invertible matrix.
class MVDRAWING_API OdDbSpline : public OdDbCurve {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbSpline);
  OdDbSpline() = default;

  // Data as in files. weights() is empty if all are equal; tangents are zero if they are not stated; the tolerance of
  // the fit is in drawing units.
  int degree() const { return degree_; }
  bool isClosed() const { return (flags_ & kClosed) != 0; }
  bool isPeriodic() const { return (flags_ & kPeriodic) != 0; }
  bool isRational() const { return (flags_ & kRational) != 0; }
  bool isPlanar() const { return (flags_ & kPlanar) != 0; }
  const std::vector<OdGePoint3d>& controlPoints() const { return controlPoints_; }
  const std::vector<OdGePoint3d>& fitPoints() const { return fitPoints_; }
  const std::vector<double>& knots() const { return knots_; }
  const std::vector<double>& weights() const { return weights_; }
  OdGeVector3d startTangent() const { return startTangent_; }
  OdGeVector3d endTangent() const { return endTangent_; }
  double fitTolerance() const { return fitTolerance_; }

  // Sets the control points and removes fit points and tangents. Returns eInvalidInput, and changes nothing, unless the
  // degree is 1 to 25, there are at least degree + 1 points, points + degree + 1 knots, and as many weights as points
  // or none. Values are not checked.
  OdResult setNurbsData(int degree, const std::vector<OdGePoint3d>& controlPoints, const std::vector<double>& knots,
                        const std::vector<double>& weights = {});

  // World extents of the control points (of the fit points without them), which may exceed the curve; eNotApplicable
  // without points.
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

  // Bits of the flags (group 70).
  static constexpr std::int16_t kClosed = 1, kPeriodic = 2, kRational = 4, kPlanar = 8;

protected:
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;

private:
  static bool readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);

  OdGeVector3d normal_; // normal of planar splines
  OdGeVector3d startTangent_;
  OdGeVector3d endTangent_;
  std::int16_t flags_ = 0;
  std::int16_t degree_ = 3;
  double knotTolerance_ = 1e-7;
  double controlTolerance_ = 1e-7;
  double fitTolerance_ = 1e-10;
  std::vector<double> knots_;
  std::vector<double> weights_;
  std::vector<OdGePoint3d> controlPoints_;
  std::vector<OdGePoint3d> fitPoints_;
};
using OdDbSplinePtr = OdSmartPtr<OdDbSpline>;
