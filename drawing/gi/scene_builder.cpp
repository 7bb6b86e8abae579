#include "drawing/gi/scene_builder.h"

#include "DbAttribute.h"
#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "drawing/model/object_store.h"

namespace drawing::gi {

namespace {

constexpr std::size_t kDeepestInset = 1000;

} // namespace

Place placeOf(const OdDbBlockTableRecord& block, TraitResolver& resolver) {
  Place place;
  place.setting.layers = resolver.addView();
  place.setting.byBlock = resolver.initial();
  place.showsTags = true;
  place.depth = block.isLayout() ? 0 : 1;
  return place;
}

Walk::Walk(DisplayList& list, TraitResolver& resolver, const PictureOptions& options, PictureReport& report)
    : list_(list), resolver_(resolver), options_(options), report_(report) {}

void Walk::run(OdDbObjectId block, const Place& place) {
  levels_.push_back({place, contentsOf(block), 0, block, nullptr});
  goOn();
}

void Walk::runOne(OdDbObjectId entity, const Place& place) {
  const auto ids = std::make_shared<const std::vector<OdDbObjectId>>(1, entity);
  levels_.push_back({place, ids, 0, {}, nullptr});
  goOn();
}

void Walk::goOn() {
  while (!levels_.empty() && mayGoOn())
    step();
  levels_.clear();
  report_.points = list_.points.size();
}

bool Walk::mayGoOn() {
  const bool spent = report_.steps >= options_.steps || list_.size() >= options_.points;
  report_.reachedLimit = report_.reachedLimit || spent;
  return !spent;
}

void Walk::step() {
  Level& level = levels_.back();
  if (level.repeated != nullptr) {
    repeat(level);
  } else if (level.at >= level.ids->size()) {
    levels_.pop_back();
  } else {
    ++report_.steps;
    const Place place = level.place; // the stack may move
    draw((*level.ids)[level.at++], place);
  }
}

namespace {

// Moves what a place shows, in coordinates outside of it.
void shift(OdGeMatrix3d& toScene, const OdGeMatrix3d& outer, const OdGeVector3d& by) {
  toScene.setTranslation(toScene.translation() + outer * by);
}

} // namespace

// Pushes the next of the repetitions: the attributes below the contents, which come first.
void Walk::repeat(Level& level) {
  ++report_.steps;
  const BlockInstance& instance = *level.repeated;
  const auto columns = static_cast<std::size_t>(instance.columns);
  if (level.at >= columns * static_cast<std::size_t>(instance.rows)) {
    levels_.pop_back();
    return;
  }
  const OdGeVector3d by = instance.column * static_cast<double>(level.at % columns) +
                          instance.row * static_cast<double>(level.at / columns);
  ++level.at;
  Level contents{instance.place, contentsOf(instance.block), 0, instance.block, nullptr};
  shift(contents.place.toScene, instance.outer, by);
  if (list_.showsNothing(instance.place.clip))
    contents.ids = std::make_shared<const std::vector<OdDbObjectId>>();
  if (instance.rest == nullptr)
    return levels_.push_back(std::move(contents));
  Level behind{instance.place, instance.rest, 0, {}, nullptr};
  behind.place.toScene = instance.outer;
  behind.place.clip = instance.restClip;
  behind.place.setting.layers = instance.restLayers;
  shift(behind.place.toScene, instance.outer, by);
  levels_.push_back(std::move(behind)); // the stack may have moved: `level` is gone
  levels_.push_back(std::move(contents));
}

void Walk::draw(OdDbObjectId id, const Place& place) {
  const auto* entity = peekAs<OdDbEntity>(id);
  if (!lives(entity) || entity->isInvisible())
    return;
  const Traits traits = resolver_.of(*entity, place.setting);
  if (traits.layer->frozen)
    return;
  const Drawer drawer = drawerOf(*entity);
  if (drawer == nullptr)
    return addNotDrawn(*entity, "kind");
  Canvas canvas(list_, resolver_, shaper_, place, *entity, traits);
  drawer(*entity, canvas);
  constexpr std::size_t kWorkOfStep = 16;
  report_.steps += canvas.work() / kWorkOfStep;
  for (const char* reason : canvas.leftOut())
    addNotDrawn(*entity, reason);
  // The first inset is drawn first: it has to lie on top of the stack.
  std::vector<BlockInstance>& instances = canvas.instances();
  for (std::size_t i = instances.size(); i-- > 0;) {
    if (isOpen(instances[i].block) || instances[i].place.depth > kDeepestInset)
      addNotDrawn(*entity, "cycle");
    else
      push(std::move(instances[i]));
  }
}

void Walk::push(BlockInstance&& instance) {
  Level level{instance.place, nullptr, 0, {}, nullptr};
  level.repeated = std::make_unique<BlockInstance>(std::move(instance));
  levels_.push_back(std::move(level));
}

bool Walk::isOpen(OdDbObjectId block) const {
  for (const Level& level : levels_) {
    if (level.block == block && !block.isNull())
      return true;
  }
  return false;
}

Walk::Ids Walk::contentsOf(OdDbObjectId block) {
  Ids& ids = contents_[block];
  if (ids != nullptr)
    return ids;
  const auto* record = peekAs<OdDbBlockTableRecord>(block);
  ids = std::make_shared<const std::vector<OdDbObjectId>>(lives(record) ? record->drawOrder()
                                                                        : std::vector<OdDbObjectId>());
  return ids;
}

void Walk::addNotDrawn(const OdDbEntity& entity, const char* reason) {
  const auto [at, fresh] = notDrawnIndex_.try_emplace({entity.dxfName(), reason}, report_.notDrawn.size());
  if (fresh)
    report_.notDrawn.push_back({at->first.first, reason, 0, entity.getDbHandle()});
  ++report_.notDrawn[at->second].count;
}

} // namespace drawing::gi
