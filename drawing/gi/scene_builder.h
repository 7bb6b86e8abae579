// Goes over a block and all that it shows, and puts it into a display list. Nesting is on a stack of its own.
#pragma once

#include "drawing/gi/draw/canvas.h"
#include "drawing/picture.h"

#include <map>
#include <memory>
#include <unordered_map>
#include <vector>

class OdDbBlockTableRecord;

namespace drawing::gi {

// How the contents of a block are seen. Model space or a layout is drawn unchanged; a definition is drawn with the tags
// of its attributes.
DrawContext drawContextOf(const OdDbBlockTableRecord& block, TraitResolver& resolver);

class SceneBuilder {
public:
  SceneBuilder(DisplayList& list, TraitResolver& resolver, const PictureOptions& options, PictureReport& report);
  void run(OdDbObjectId block, const DrawContext& context);
  void runOne(OdDbObjectId entity, const DrawContext& context);

private:
  using Ids = std::shared_ptr<const std::vector<OdDbObjectId>>;
  // Entities that are drawn one after the other, in one place; or a block that is drawn so and so many times.
  struct Level {
    DrawContext context;
    Ids ids;
    std::size_t at = 0;
    OdDbObjectId block; // whose contents they are; null for repetitions and attributes
    std::unique_ptr<BlockInstance> repeated;
  };

  void buildLevels();
  bool isWithinLimits();
  void step();
  void repeat(Level& level);
  void draw(OdDbObjectId id, const DrawContext& context);
  void push(BlockInstance&& instance);
  bool isOpen(OdDbObjectId block) const;
  Ids contentsOf(OdDbObjectId block);
  void addNotDrawn(const OdDbEntity& entity, const char* reason);

  DisplayList& list_;
  TraitResolver& resolver_;
  TextShaper shaper_;
  const PictureOptions& options_;
  PictureReport& report_;
  std::vector<Level> levels_;
  std::unordered_map<OdDbObjectId, Ids> contents_;
  std::map<std::pair<std::string, std::string>, std::size_t> notDrawnIndex_;
};

} // namespace drawing::gi
