#include "drawing/gi/draw/canvas.h"

#include "DbDatabase.h"

#include <cmath>
#include <cstring>

namespace drawing::gi {

namespace {

// The root of what becomes of areas in the plane; of what is seen edge on, what becomes of lengths.
double scaleOf(const OdGeMatrix3d& m) {
  const double area = std::fabs(m(0, 0) * m(1, 1) - m(0, 1) * m(1, 0));
  return area > 0 ? std::sqrt(area) : m.scale();
}

} // namespace

Canvas::Canvas(DisplayList& list, TraitResolver& resolver, TextShaper& shaper, const DrawContext& context,
               const OdDbEntity& entity, const Traits& traits)
    : list_(list), resolver_(resolver), shaper_(shaper), context_(context), entity_(entity), traits_(traits),
      scale_(scaleOf(context.toScene)), isOff_(traits.layer->off) {}

const OdDbDatabase& Canvas::database() const {
  return *entity_.database();
}

OdGePoint2d Canvas::project(const OdGePoint3d& point) const {
  return (context_.toScene * point).to2d();
}

std::vector<OdGePoint2d> Canvas::project(const Path& path) {
  charge(path.size());
  std::vector<OdGePoint2d> flat;
  flat.reserve(path.size() + 1);
  for (const OdGePoint3d& point : path)
    flat.push_back(project(point));
  return flat;
}

void Canvas::stroke(const Path& path, bool closed, const Pen& pen) {
  if (isOff_)
    return;
  std::vector<OdGePoint2d> flat = project(path);
  if (closed && flat.size() > 1)
    flat.push_back(flat.front());
  list_.stroke(flat, pen, context_.clip);
}

void Canvas::fill(const std::vector<Path>& rings, Color color) {
  if (isOff_)
    return;
  std::vector<std::vector<OdGePoint2d>> flat;
  for (const Path& ring : rings)
    flat.push_back(project(ring));
  list_.fill(flat, color, context_.clip);
}

void Canvas::pointSymbol(const OdGePoint3d& at, int mode, double size) {
  if (!isOff_)
    list_.pointSymbol({project(at), mode, size > 0 ? size * scale_ : size}, pen(), context_.clip);
}

void Canvas::endless(const OdGePoint3d& from, const OdGePoint3d& through, bool bothWays) {
  if (!isOff_)
    list_.endless(project(from), project(through), bothWays, pen(), context_.clip);
}

void Canvas::text(const ShapedText& shaped, const OdGeMatrix3d& toBlock, Color color) {
  if (isOff_ || !shaped.box.isValid())
    return;
  const OdGeMatrix3d m = context_.toScene * toBlock;
  const Affine2d base{m(0, 0), m(1, 0), m(0, 1), m(1, 1), m(0, 3), m(1, 3)};
  std::vector<PlacedOutline> placed;
  for (const ShapedText::Glyph& glyph : shaped.glyphs) {
    const OdGePoint2d origin = base * OdGePoint2d(glyph.x, glyph.y);
    placed.push_back({glyph.outline, {base.xx, base.yx, base.xy, base.yy, origin.x, origin.y}});
  }
  Box box;
  for (const double x : {shaped.box.minX, shaped.box.maxX})
    for (const double y : {shaped.box.minY, shaped.box.maxY})
      box.add(base * OdGePoint2d(x, y));
  list_.addGlyphs(placed, box, color, context_.clip);
}

BlockInstance& Canvas::show(OdDbObjectId block, const OdGeMatrix3d& matrix) {
  BlockInstance& instance = instances_.emplace_back();
  instance.block = block;
  instance.outer = context_.toScene;
  instance.restClip = context_.clip;
  instance.restLayers = context_.setting.layers;
  instance.context = context_;
  instance.context.toScene = context_.toScene * matrix;
  instance.context.setting.byBlock = traits_;
  instance.context.setting.isInReference = true;
  instance.context.showsTags = false;
  ++instance.context.depth;
  return instance;
}

void Canvas::cut(BlockInstance& instance, std::vector<OdGePoint2d> polygon, bool inverted) {
  charge(polygon.size());
  instance.context.clip = list_.addClip(instance.context.clip, std::move(polygon), inverted);
}

void Canvas::reportNotDrawn(const char* reason) {
  for (const char* known : notDrawn_) {
    if (std::strcmp(known, reason) == 0)
      return;
  }
  notDrawn_.push_back(reason);
}

} // namespace drawing::gi
