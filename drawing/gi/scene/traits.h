// Appearance of an entity: color, linetype, lineweight, taken from itself, its layer or the reference that shows it.
#pragma once

#include "DbEntity.h"
#include "OdString.h"
#include "drawing/gi/scene/display_list.h"

#include <deque>
#include <memory>
#include <unordered_map>
#include <unordered_set>

class OdDbDatabase;
class OdDbLayerTableRecord;

namespace drawing::gi {

struct LayerTraits {
  bool off = false, frozen = false, isZero = false;
  Color color;
  std::int16_t weight = -3;
  std::shared_ptr<const Pattern> pattern;
};

struct Traits {
  Color color;
  std::int16_t weight = -3; // hundredths of a millimetre; -3 the default
  std::shared_ptr<const Pattern> pattern;
  double patternScale = 1;
  const LayerTraits* layer = nullptr;
};

// The layers of one drawing as one view of it shows them; external references have views of their own.
struct LayerView {
  OdString prefix;                          // NAME| where the host may have layers of its own for these
  std::unordered_set<std::uint64_t> frozen; // handles of layers that a viewport does not show
  std::unordered_map<OdDbObjectId, LayerTraits> traits;
};

// Where entities stand: what "by block" and layer 0 mean there.
struct Setting {
  LayerView* layers = nullptr;
  Traits byBlock;
  bool isInReference = false;
};

class TraitResolver {
public:
  TraitResolver(const OdDbDatabase& host, Color background);

  Color foreground() const { return foreground_; }
  Color background() const { return background_; }         // white where there is none
  LayerView* addView(const OdString& prefix = OdString()); // lives as long as this
  Traits initial() const;                                  // what "by block" is where nothing is around
  Traits of(const OdDbEntity& entity, const Setting& setting);
  Color colorOf(const OdCmColor& color) const; // not by layer or block
  // A colour of a part of an entity that is drawn with these traits.
  Color colorOf(const OdCmColor& color, const Traits& entity, const Color& byBlock) const;
  Pen pen(const Traits& traits, double blockScale) const;
  std::shared_ptr<const Pattern> patternOf(OdDbObjectId linetype);

private:
  const LayerTraits& layer(OdDbObjectId id, LayerView& view);
  LayerTraits layerTraits(OdDbObjectId layer, const LayerView& view);

  const OdDbDatabase& host_;
  Color foreground_, background_;
  double linetypeScale_ = 1;
  bool showsWeights_ = false;
  LayerTraits defaultLayer_;
  std::deque<LayerView> views_;
  std::unordered_map<OdDbObjectId, std::shared_ptr<const Pattern>> patterns_;
};

} // namespace drawing::gi
