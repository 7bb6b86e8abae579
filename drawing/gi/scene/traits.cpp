#include "drawing/gi/scene/traits.h"

#include "DbDatabase.h"
#include "DbSymbolRecords.h"
#include "drawing/model/object_store.h"
#include "drawing/model/symbol_name.h"

#include <cmath>

namespace drawing::gi {

namespace {

constexpr std::int32_t kKindOfOpacity = 0x7F000000, kOpacityByBlock = 0x01000000, kOpacityGiven = 0x02000000;
constexpr std::int16_t kWeightByLayer = -1, kWeightByBlock = -2, kDefaultWeight = 25;

std::uint8_t opacityOf(std::int64_t value) {
  return (value & kKindOfOpacity) == kOpacityGiven ? static_cast<std::uint8_t>(value & 255) : 255;
}

// Layers keep theirs in extended data.
std::uint8_t opacityOfLayer(const OdDbObject& layer) {
  const GroupList* data = layer.xDataGroups();
  if (data == nullptr)
    return 255;
  bool isOurs = false;
  for (std::size_t i = 0; i < data->size(); ++i) {
    const Group& group = (*data)[i];
    if (group.code == 1001)
      isOurs = symbolName(data->idOf(group)).iCompare(L"AcCmTransparency") == 0 ||
               data->stringOf(group).iCompare(L"AcCmTransparency") == 0;
    else if (isOurs && group.code == 1071)
      return opacityOf(group.integer);
  }
  return 255;
}

bool isNamed(OdDbObjectId linetype, const wchar_t* name) {
  return symbolName(linetype).iCompare(name) == 0;
}

} // namespace

TraitResolver::TraitResolver(const OdDbDatabase& host, Color background)
    : host_(host), foreground_(foregroundOn(background)), background_(background) {
  const double scale = host.headerReal("LTSCALE", 1);
  linetypeScale_ = std::isfinite(scale) && scale > 0 ? scale : 1;
  showsWeights_ = host.headerInt("LWDISPLAY") != 0;
  defaultLayer_.color = foreground_;
}

LayerView* TraitResolver::addView(const OdString& prefix) {
  views_.emplace_back().prefix = prefix;
  return &views_.back();
}

Traits TraitResolver::initial() const {
  Traits traits;
  traits.color = foreground_;
  traits.layer = &defaultLayer_;
  return traits;
}

std::shared_ptr<const Pattern> TraitResolver::patternOf(OdDbObjectId linetype) {
  const auto found = patterns_.find(linetype);
  if (found != patterns_.end())
    return found->second;
  auto pattern = std::make_shared<Pattern>();
  double period = 0;
  const auto* record = getIf<OdDbLinetypeTableRecord>(linetype);
  const GroupList* groups = record == nullptr ? nullptr : record->unmodelledGroupsOrNull();
  for (std::size_t i = 0; groups != nullptr && i < groups->size(); ++i) {
    const Group& group = (*groups)[i];
    if (group.code != 49 || group.kind != GroupKind::kReal || !std::isfinite(group.real))
      continue;
    pattern->push_back(group.real);
    period += std::fabs(group.real);
  }
  std::shared_ptr<const Pattern> made;
  if (pattern->size() > 1 && period > 0)
    made = std::move(pattern);
  return patterns_.emplace(linetype, std::move(made)).first->second;
}

LayerTraits TraitResolver::layerTraits(OdDbObjectId layer, const LayerView& view) {
  LayerTraits traits = defaultLayer_;
  const OdString name = symbolName(layer);
  traits.isZero = name == L"0";
  const auto* record = getIf<OdDbLayerTableRecord>(layer);
  if (!view.prefix.isEmpty() && !traits.isZero) {
    const auto* ofHost = getIf<OdDbLayerTableRecord>(host_.symbol(OdDb::kLayerTable, view.prefix + name));
    record = ofHost != nullptr ? ofHost : record;
  }
  if (record == nullptr)
    return traits;
  traits.off = record->isOff();
  traits.frozen = record->isFrozen() || view.frozen.count(record->getDbHandle()) != 0;
  traits.color = colorOf(record->color());
  traits.color.a = opacityOfLayer(*record);
  traits.weight = record->lineWeight();
  traits.pattern = patternOf(record->linetypeObjectId());
  return traits;
}

const LayerTraits& TraitResolver::layer(OdDbObjectId id, LayerView& view) {
  const auto found = view.traits.find(id);
  return found != view.traits.end() ? found->second : view.traits.emplace(id, layerTraits(id, view)).first->second;
}

// Some programs write the colour of the foreground with the white of their own screen.
Color TraitResolver::colorOf(const OdCmColor& color) const {
  constexpr std::int32_t kWhite = 0xFFFFFF;
  constexpr std::int16_t kForeground = 7;
  if (color.trueColor < 0 || (color.trueColor == kWhite && color.index == kForeground))
    return indexedColor(color.index, foreground_);
  return gi::colorOf(static_cast<std::uint32_t>(color.trueColor));
}

Color TraitResolver::colorOf(const OdCmColor& color, const Traits& entity, const Color& byBlock) const {
  Color result = entity.layer->color;
  if (color.trueColor < 0 && color.index == OdCmColor::kByBlock)
    result = byBlock;
  else if (color.trueColor >= 0 || color.index != OdCmColor::kByLayer)
    result = colorOf(color);
  result.a = entity.color.a;
  return result;
}

Traits TraitResolver::of(const OdDbEntity& entity, const Setting& setting) {
  const LayerTraits& own = layer(entity.layerId(), *setting.layers);
  Traits traits;
  traits.layer = own.isZero && setting.isInReference ? setting.byBlock.layer : &own;
  const std::int32_t opacity = entity.transparency();
  traits.color.a = opacity == 0                                    ? traits.layer->color.a
                   : (opacity & kKindOfOpacity) == kOpacityByBlock ? setting.byBlock.color.a
                                                                   : opacityOf(opacity);
  traits.color = colorOf(entity.color(), traits, setting.byBlock.color);
  const std::int16_t weight = entity.lineWeight();
  traits.weight = weight == kWeightByLayer   ? traits.layer->weight
                  : weight == kWeightByBlock ? setting.byBlock.weight
                                             : weight;
  const OdDbObjectId linetype = entity.linetypeId();
  if (linetype.isNull() || isNamed(linetype, L"ByLayer"))
    traits.pattern = traits.layer->pattern;
  else
    traits.pattern = isNamed(linetype, L"ByBlock") ? setting.byBlock.pattern : patternOf(linetype);
  traits.patternScale = entity.linetypeScale();
  return traits;
}

Pen TraitResolver::pen(const Traits& traits, double blockScale) const {
  Pen pen;
  pen.color = traits.color;
  pen.pattern = traits.pattern;
  pen.patternScale = linetypeScale_ * traits.patternScale * blockScale;
  if (showsWeights_)
    pen.weight = (traits.weight < 0 ? kDefaultWeight : traits.weight) / 100.0;
  return pen;
}

} // namespace drawing::gi
