// Draws one entity: its traits, its context, and the functions that add primitives to the image.
//
// Points and matrices that the functions take are in the coordinates of the block of the entity.
#pragma once

#include "Ge/GeMatrix3d.h"
#include "drawing/gi/scene/traits.h"
#include "drawing/gi/text/glyphs.h"

#include <string_view>
#include <vector>

namespace drawing::gi {

using Path = std::vector<OdGePoint3d>;

struct DrawContext {
  Setting setting;
  OdGeMatrix3d toScene = OdGeMatrix3d::kIdentity;
  std::int32_t clip = -1;
  bool showsTags = false; // attribute definitions stand for themselves
  std::size_t depth = 0;
};

// A block that is drawn at its place among the entities: what its contents are shown in.
struct BlockInstance {
  OdDbObjectId block;
  DrawContext context;
  int columns = 1, rows = 1;
  OdGeVector3d column, row; // from one repetition to the next, in the coordinates outside
  OdGeMatrix3d outer;       // from there to the picture
  // Entities that are drawn after the contents, in the place outside: attributes.
  std::shared_ptr<const std::vector<OdDbObjectId>> rest;
  std::int32_t restClip = -1;
  LayerView* restLayers = nullptr;
};

// An entity on a layer that is off puts nothing into the picture; blocks that it shows may.
class Canvas {
public:
  Canvas(DisplayList& list, TraitResolver& resolver, TextShaper& shaper, const DrawContext& context,
         const OdDbEntity& entity, const Traits& traits);

  const OdDbDatabase& database() const;
  const DrawContext& context() const { return context_; }
  const Traits& traits() const { return traits_; }
  TraitResolver& resolver() { return resolver_; }
  TextShaper& shaper() { return shaper_; }
  double scale() const { return scale_; } // of lengths, about

  OdGePoint2d project(const OdGePoint3d& point) const;
  std::vector<OdGePoint2d> project(const Path& path);
  Pen pen() const { return resolver_.pen(traits_, scale_); }

  void stroke(const Path& path, bool closed = false) { stroke(path, closed, pen()); }
  void stroke(const Path& path, bool closed, const Pen& pen);
  void line(const OdGePoint3d& from, const OdGePoint3d& to) { stroke({from, to}); }
  void fill(const std::vector<Path>& rings) { fill(rings, traits_.color); }
  void fill(const std::vector<Path>& rings, Color color);
  void pointSymbol(const OdGePoint3d& at, int mode, double size);
  void endless(const OdGePoint3d& from, const OdGePoint3d& through, bool bothWays);
  // `toBlock` takes heights of capitals to the block's coordinates.
  void text(const ShapedText& shaped, const OdGeMatrix3d& toBlock, Color color);

  // Has a block drawn behind this entity.
  BlockInstance& show(OdDbObjectId block, const OdGeMatrix3d& matrix);
  // Shows of the inset what lies inside the polygon, which is in the coordinates of the picture.
  void cut(BlockInstance& instance, std::vector<OdGePoint2d> polygon, bool inverted = false);
  std::vector<BlockInstance>& instances() { return instances_; }

  // Work that leaves nothing in the picture counts, too: points looked at, characters read.
  void charge(std::size_t work) { work_ += work; }
  std::size_t work() const { return work_; }

  // Reports that the entity, or a part of it, is not in the image.
  void reportNotDrawn(const char* reason);
  const std::vector<const char*>& notDrawn() const { return notDrawn_; }

private:
  DisplayList& list_;
  TraitResolver& resolver_;
  TextShaper& shaper_;
  const DrawContext& context_;
  const OdDbEntity& entity_;
  Traits traits_;
  double scale_;
  bool isOff_;
  std::size_t work_ = 0;
  std::vector<BlockInstance> instances_;
  std::vector<const char*> notDrawn_;
};

// Draws one kind of entity; null for those that are not drawn. Looked up by class, then by the classes above it.
using Drawer = void (*)(const OdDbEntity&, Canvas&);
Drawer drawerOf(const OdDbEntity& entity);

// Wraps a function that takes the kind itself.
template <class T, void (*Draw)(const T&, Canvas&)>
void drawAs(const OdDbEntity& entity, Canvas& canvas) {
  Draw(static_cast<const T&>(entity), canvas);
}

} // namespace drawing::gi
