#include "DbLeader.h"

#include "drawing/ge/plane_map.h"
#include "drawing/model/setters.h"
#include "drawing/records/group_readers.h"

using drawing::field;

MVDRAWING_DEFINE_OBJECT(OdDbLeader, OdDbCurve, "LEADER");

const drawing::Description& OdDbLeader::ownDescription() {
  using Self = OdDbLeader;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(),
      {{"AcDbLeader",
        {field<&Self::style_>(3).name(OdDb::kDimStyleTable).unlessEmpty(), field<&Self::hasArrow_>(71),
         field<&Self::pathType_>(72), field<&Self::noteKind_>(73), field<&Self::hookSide_>(74),
         field<&Self::hasHook_>(75), field<&Self::noteHeight_>(40).unless(0), field<&Self::noteWidth_>(41).unless(0),
         field<&Self::annotation_>(340).ref(OdDb::kHardPointerRef).unlessEmpty(),
         field<&Self::normal_>(210).unless(0, 0, 1), field<&Self::horizontal_>(211),
         field<&Self::offsetFromBlock_>(212), field<&Self::offsetFromAnnotation_>(213)},
        readGroup,
        writeGroups}});
  return description;
}

bool OdDbLeader::readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context) {
  if (group.code == 76)
    return true; // the count
  return drawing::takePoint(static_cast<OdDbLeader&>(object).vertices_, 10, group, context);
}

void OdDbLeader::writeGroups(const OdDbObject& object, drawing::GroupSink& sink) {
  const auto& vertices = static_cast<const OdDbLeader&>(object).vertices_;
  sink.integer(76, static_cast<std::int64_t>(vertices.size()));
  drawing::writePoints(sink, 10, vertices);
}

MVDRAWING_SETTER(OdDbLeader, setDimensionStyle, OdDbObjectId, style_)

OdGePoint3d OdDbLeader::vertexAt(int index) const {
  if (index < 0 || index >= numVertices())
    throw OdError(eInvalidIndex);
  return vertices_[static_cast<std::size_t>(index)];
}

void OdDbLeader::appendVertex(const OdGePoint3d& point) {
  assertWriteEnabled();
  vertices_.push_back(point);
}

OdResult OdDbLeader::applyTransform(const OdGeMatrix3d& matrix) {
  const drawing::PlaneMap map(matrix, normal_);
  if (!map.keepsShapes())
    return eCannotTransform;
  for (OdGePoint3d& vertex : vertices_)
    vertex = matrix * vertex;
  normal_ = map.normal();
  noteHeight_ *= map.scale();
  noteWidth_ *= map.scale();
  if (drawing::isTranslation(matrix))
    return eOk;
  horizontal_ = (matrix * horizontal_).normal();
  offsetFromBlock_ = matrix * offsetFromBlock_;
  offsetFromAnnotation_ = matrix * offsetFromAnnotation_;
  return eOk;
}

OdResult OdDbLeader::getGeomExtents(OdGeExtents3d& extents) const {
  for (const OdGePoint3d& vertex : vertices_)
    extents.addPoint(vertex);
  return vertices_.empty() ? eNotApplicable : eOk;
}
