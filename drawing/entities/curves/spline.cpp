#include "DbSpline.h"

#include "drawing/ge/plane_map.h"
#include "drawing/records/group_readers.h"

using drawing::field;

MVDRAWING_DEFINE_OBJECT(OdDbSpline, OdDbCurve, "SPLINE");

const drawing::Description& OdDbSpline::ownDescription() {
  using Self = OdDbSpline;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(),
      {{"AcDbSpline",
        {field<&Self::normal_>(210).unless(0, 0, 0), field<&Self::flags_>(70), field<&Self::degree_>(71),
         field<&Self::knotTolerance_>(42), field<&Self::controlTolerance_>(43), field<&Self::fitTolerance_>(44),
         field<&Self::startTangent_>(12).unless(0, 0, 0), field<&Self::endTangent_>(13).unless(0, 0, 0)},
        readGroup,
        writeGroups}});
  return description;
}

bool OdDbSpline::readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context) {
  auto& spline = static_cast<OdDbSpline&>(object);
  if (group.code >= 72 && group.code <= 74)
    return true; // counts; the lists know their lengths
  if (group.code == 40)
    return drawing::takeReal(spline.knots_, group, context);
  if (group.code == 41)
    return drawing::takeReal(spline.weights_, group, context);
  return drawing::takePoint(spline.controlPoints_, 10, group, context) ||
         drawing::takePoint(spline.fitPoints_, 11, group, context);
}

void OdDbSpline::writeGroups(const OdDbObject& object, drawing::GroupSink& sink) {
  const auto& spline = static_cast<const OdDbSpline&>(object);
  sink.integer(72, static_cast<std::int64_t>(spline.knots_.size()));
  sink.integer(73, static_cast<std::int64_t>(spline.controlPoints_.size()));
  sink.integer(74, static_cast<std::int64_t>(spline.fitPoints_.size()));
  for (const double knot : spline.knots_)
    sink.real(40, knot);
  for (const double weight : spline.weights_)
    sink.real(41, weight);
  drawing::writePoints(sink, 10, spline.controlPoints_);
  drawing::writePoints(sink, 11, spline.fitPoints_);
}

OdResult OdDbSpline::setNurbsData(int degree, const std::vector<OdGePoint3d>& controlPoints,
                                  const std::vector<double>& knots, const std::vector<double>& weights) {
  const std::size_t count = controlPoints.size();
  if (degree < 1 || degree > 25 || count < static_cast<std::size_t>(degree) + 1 ||
      knots.size() != count + static_cast<std::size_t>(degree) + 1 || (!weights.empty() && weights.size() != count))
    return eInvalidInput;
  assertWriteEnabled();
  degree_ = static_cast<std::int16_t>(degree);
  controlPoints_ = controlPoints;
  knots_ = knots;
  weights_ = weights;
  fitPoints_.clear();
  startTangent_ = endTangent_ = OdGeVector3d();
  flags_ = static_cast<std::int16_t>(weights.empty() ? flags_ & ~kRational : flags_ | kRational);
  return eOk;
}

// An affine map of the control points is the map of every point of the curve: knots and weights stay.
OdResult OdDbSpline::applyTransform(const OdGeMatrix3d& matrix) {
  for (OdGePoint3d& point : controlPoints_)
    point = matrix * point;
  for (OdGePoint3d& point : fitPoints_)
    point = matrix * point;
  if (drawing::isTranslation(matrix))
    return eOk;
  startTangent_ = matrix * startTangent_;
  endTangent_ = matrix * endTangent_;
  normal_ = matrix.transformNormal(normal_);
  return eOk;
}

OdResult OdDbSpline::getGeomExtents(OdGeExtents3d& extents) const {
  const auto& points = controlPoints_.empty() ? fitPoints_ : controlPoints_;
  for (const OdGePoint3d& point : points)
    extents.addPoint(point);
  return points.empty() ? eNotApplicable : eOk;
}
