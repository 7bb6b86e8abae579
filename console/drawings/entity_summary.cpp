#include "console/drawings/entity_summary.h"
#include "console/messages/catalog/lists.h"
#include "console/messages/number_text.h"

#include "DbAttribute.h"
#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbCurves.h"
#include "DbText.h"
#include "morvane/drawing_tools.h"

namespace console {
namespace {

OdString lineText(const OdDbEntity& entity) {
  const auto& line = static_cast<const OdDbLine&>(entity);
  return render(msg::kDescribeLine, {pointText(line.startPoint()), pointText(line.endPoint())});
}

OdString circleText(const OdDbEntity& entity) {
  const auto& circle = static_cast<const OdDbCircle&>(entity);
  return render(msg::kDescribeCircle, {pointText(circle.center()), realText(circle.radius())});
}

OdString textText(const OdDbEntity& entity) {
  const auto& text = static_cast<const OdDbText&>(entity);
  return render(msg::kDescribeText, {pointText(text.position()), realText(text.height()), text.textString()});
}

OdString attributeText(const OdDbEntity& entity) {
  const auto& text = static_cast<const OdDbAttributeBase&>(entity);
  return render(msg::kDescribeAttribute,
                {pointText(text.position()), realText(text.height()), text.textString(), text.tag()});
}

OdString referenceText(const OdDbEntity& entity) {
  const auto& reference = static_cast<const OdDbBlockReference&>(entity);
  const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(reference.blockTableRecord().safeOpenObject());
  const OdGeScale3d scale = reference.scaleFactors();
  return render(msg::kDescribeReference,
                {block.isNull() ? OdString() : block->getName(), pointText(reference.position()),
                 tripleText(scale.sx, scale.sy, scale.sz), degreesText(reference.rotation()),
                 count(static_cast<std::size_t>(reference.attributeIds().length()))});
}

struct Describer {
  OdRxClass* (*kind)();
  OdString (*text)(const OdDbEntity&);
};

// Derived kinds before their bases.
constexpr Describer kDescribers[] = {
    {OdDbLine::desc, lineText},
    {OdDbCircle::desc, circleText},
    {OdDbAttributeBase::desc, attributeText},
    {OdDbText::desc, textText},
    {OdDbBlockReference::desc, referenceText},
};

} // namespace

OdDbObjectId addToDrawing(CommandContext& context, OdDbEntity& entity) {
  const OdDbBlockTableRecordPtr space = qzutads::currentSpaceId().safeOpenObject(OdDb::kForWrite);
  OdGeMatrix3d ucs;
  if (mvsi::mvsidbUcsMatrix(ucs, &context.database) != RTNORM)
    throw OdError(eNoDatabase);
  if (const OdResult result = entity.transformBy(ucs); result != eOk)
    throw OdError(result);
  return space->appendEntity(&entity);
}

OdString typeText(const OdDbEntity& entity) {
  return OdString::fromUtf8(entity.dxfName());
}

OdString geometryText(const OdDbEntity& entity) {
  for (const Describer& describer : kDescribers) {
    if (entity.isKindOf(describer.kind()))
      return describer.text(entity);
  }
  OdGeExtents3d extents;
  if (entity.getGeomExtents(extents) != eOk)
    return {};
  return render(msg::kDescribeExtents, {pointText(extents.minPoint()), pointText(extents.maxPoint())});
}

} // namespace console
