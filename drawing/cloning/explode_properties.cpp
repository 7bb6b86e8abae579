#include "drawing/cloning/explode_properties.h"

#include "DbDatabase.h"

namespace drawing {
namespace {

constexpr std::int16_t kWeightByLayer = -1;
constexpr std::int16_t kWeightByBlock = -2;

bool isByBlock(const OdCmColor& color) {
  return color.trueColor == OdCmColor::kNoTrueColor && color.index == OdCmColor::kByBlock;
}

bool isByLayer(const OdCmColor& color) {
  return color.trueColor == OdCmColor::kNoTrueColor && color.index == OdCmColor::kByLayer;
}

} // namespace

ByBlockProperties::ByBlockProperties(const OdDbBlockReference& reference)
    : layerZero_(reference.database()->getLayerZeroId()),
      byBlock_(reference.database()->symbol(OdDb::kLinetypeTable, L"ByBlock")),
      byLayer_(reference.database()->symbol(OdDb::kLinetypeTable, L"ByLayer")), layerId_(reference.layerId()),
      color_(reference.color()), linetype_(reference.linetypeId()), weight_(reference.lineWeight()),
      layer_(OdDbLayerTableRecord::cast(reference.layerId().safeOpenObject())) {}

bool ByBlockProperties::isOnItsLayer(const OdDbEntity& entity) const {
  return layer_.isNull() || entity.layerId() == layerId_;
}

// By layer stays so where the entity comes to lie on the reference's layer.
OdCmColor ByBlockProperties::colorFor(const OdDbEntity& entity) const {
  if (!isByBlock(entity.color()))
    return entity.color();
  return isByLayer(color_) && !isOnItsLayer(entity) ? layer_->color() : color_;
}

OdDbObjectId ByBlockProperties::linetypeFor(const OdDbEntity& entity) const {
  if (byBlock_.isNull() || entity.linetypeId() != byBlock_)
    return entity.linetypeId();
  const bool byLayer = linetype_.isNull() || linetype_ == byLayer_;
  return byLayer && !isOnItsLayer(entity) ? layer_->linetypeObjectId() : linetype_;
}

std::int16_t ByBlockProperties::weightFor(const OdDbEntity& entity) const {
  if (entity.lineWeight() != kWeightByBlock)
    return entity.lineWeight();
  return weight_ == kWeightByLayer && !isOnItsLayer(entity) ? layer_->lineWeight() : weight_;
}

void ByBlockProperties::resolve(OdDbEntity& entity) const {
  if (entity.layerId() == layerZero_ && !layerId_.isNull())
    entity.setLayer(layerId_);
  if (const OdCmColor color = colorFor(entity); color != entity.color())
    entity.setColor(color);
  if (const OdDbObjectId linetype = linetypeFor(entity); linetype != entity.linetypeId())
    entity.setLinetype(linetype);
  if (const std::int16_t weight = weightFor(entity); weight != entity.lineWeight())
    entity.setLineWeight(weight);
}

void ByBlockProperties::applyTo(OdDbObjectId id) const {
  const OdDbEntityPtr entity = id.safeOpenObject(OdDb::kForWrite);
  resolve(*entity);
  const OdDbBlockReferencePtr nested = OdDbBlockReference::cast(entity);
  if (nested.isNull())
    return;
  for (const OdDbObjectId attribute : nested->attributeIds())
    resolve(*OdDbEntityPtr(attribute.safeOpenObject(OdDb::kForWrite)));
}

} // namespace drawing
