#include "drawing/gi/scene_builder.h"

#include "DbAttribute.h"
#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "drawing/model/object_store.h"

namespace drawing::gi {

namespace {

constexpr std::size_t kMaxInstanceDepth = 1000;

} // namespace

DrawContext drawContextOf(const OdDbBlockTableRecord& block, TraitResolver& resolver) {
  DrawContext context;
  context.setting.layers = resolver.addView();
  context.setting.byBlock = resolver.initial();
  context.showsTags = true;
  context.depth = block.isLayout() ? 0 : 1;
  return context;
}

SceneBuilder::SceneBuilder(DisplayList& list, TraitResolver& resolver, const PictureOptions& options,
                           PictureReport& report)
    : list_(list), resolver_(resolver), options_(options), report_(report) {}

void SceneBuilder::run(OdDbObjectId block, const DrawContext& context) {
  levels_.push_back({context, contentsOf(block), 0, block, nullptr});
  buildLevels();
}

void SceneBuilder::runOne(OdDbObjectId entity, const DrawContext& context) {
  const auto ids = std::make_shared<const std::vector<OdDbObjectId>>(1, entity);
  levels_.push_back({context, ids, 0, {}, nullptr});
  buildLevels();
}

void SceneBuilder::buildLevels() {
  while (!levels_.empty() && isWithinLimits())
    step();
  levels_.clear();
  report_.points = list_.points.size();
}

bool SceneBuilder::isWithinLimits() {
  const bool spent = report_.steps >= options_.steps || list_.size() >= options_.points;
  report_.reachedLimit = report_.reachedLimit || spent;
  return !spent;
}

void SceneBuilder::step() {
  Level& level = levels_.back();
  if (level.repeated != nullptr) {
    repeat(level);
  } else if (level.at >= level.ids->size()) {
    levels_.pop_back();
  } else {
    ++report_.steps;
    const DrawContext context = level.context; // the stack may move
    draw((*level.ids)[level.at++], context);
  }
}

namespace {

// Moves what a place shows, in coordinates outside of it.
void shift(OdGeMatrix3d& toScene, const OdGeMatrix3d& outer, const OdGeVector3d& by) {
  toScene.setTranslation(toScene.translation() + outer * by);
}

} // namespace

// Pushes the next of the repetitions: the attributes below the contents, which come first.
void SceneBuilder::repeat(Level& level) {
  ++report_.steps;
  const BlockInstance& instance = *level.repeated;
  const auto columns = static_cast<std::size_t>(instance.columns);
  if (level.at >= columns * static_cast<std::size_t>(instance.rows)) {
    levels_.pop_back();
    return;
  }
  const std::size_t column = level.at % columns, row = level.at / columns;
  const OdGeVector3d by = instance.column * static_cast<double>(column) + instance.row * static_cast<double>(row);
  ++level.at;
  Level contents{instance.context, contentsOf(instance.block), 0, instance.block, nullptr};
  shift(contents.context.toScene, instance.outer, by);
  if (list_.showsNothing(instance.context.clip))
    contents.ids = std::make_shared<const std::vector<OdDbObjectId>>();
  if (instance.rest == nullptr)
    return levels_.push_back(std::move(contents));
  Level attributes{instance.context, instance.rest, 0, {}, nullptr};
  attributes.context.toScene = instance.outer;
  attributes.context.clip = instance.restClip;
  attributes.context.setting.layers = instance.restLayers;
  shift(attributes.context.toScene, instance.outer, by);
  levels_.push_back(std::move(attributes)); // the stack may have moved: `level` is gone
  levels_.push_back(std::move(contents));
}

void SceneBuilder::draw(OdDbObjectId id, const DrawContext& context) {
  const auto* entity = getIf<OdDbEntity>(id);
  if (!isAlive(entity) || entity->isInvisible())
    return;
  const Traits traits = resolver_.of(*entity, context.setting);
  if (traits.layer->frozen)
    return;
  const Drawer drawer = drawerOf(*entity);
  if (drawer == nullptr)
    return addNotDrawn(*entity, "kind");
  Canvas canvas(list_, resolver_, shaper_, context, *entity, traits);
  drawer(*entity, canvas);
  constexpr std::size_t kWorkOfStep = 16;
  report_.steps += canvas.work() / kWorkOfStep;
  for (const char* reason : canvas.notDrawn())
    addNotDrawn(*entity, reason);
  // The first inset is drawn first: it has to lie on top of the stack.
  std::vector<BlockInstance>& instances = canvas.instances();
  for (std::size_t i = instances.size(); i-- > 0;) {
    if (isOpen(instances[i].block) || instances[i].context.depth > kMaxInstanceDepth)
      addNotDrawn(*entity, "cycle");
    else
      push(std::move(instances[i]));
  }
}

void SceneBuilder::push(BlockInstance&& instance) {
  Level level{instance.context, nullptr, 0, {}, nullptr};
  level.repeated = std::make_unique<BlockInstance>(std::move(instance));
  levels_.push_back(std::move(level));
}

bool SceneBuilder::isOpen(OdDbObjectId block) const {
  for (const Level& level : levels_) {
    if (level.block == block && !block.isNull())
      return true;
  }
  return false;
}

SceneBuilder::Ids SceneBuilder::contentsOf(OdDbObjectId block) {
  Ids& ids = contents_[block];
  if (ids != nullptr)
    return ids;
  const auto* record = getIf<OdDbBlockTableRecord>(block);
  ids = std::make_shared<const std::vector<OdDbObjectId>>(isAlive(record) ? record->drawOrder()
                                                                          : std::vector<OdDbObjectId>());
  return ids;
}

void SceneBuilder::addNotDrawn(const OdDbEntity& entity, const char* reason) {
  const auto [at, fresh] = notDrawnIndex_.try_emplace({entity.dxfName(), reason}, report_.notDrawn.size());
  if (fresh)
    report_.notDrawn.push_back({at->first.first, reason, 0, entity.getDbHandle()});
  ++report_.notDrawn[at->second].count;
}

} // namespace drawing::gi
