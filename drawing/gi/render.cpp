#include "drawing/gi/render.h"

#include <algorithm>
#include <cmath>

namespace drawing::gi {

namespace {

constexpr double kPixelsOfMillimetre = 96 / 25.4;
constexpr double kThinnest = 1;

void setColor(cairo_t* context, Color color) {
  cairo_set_source_rgba(context, color.r / 255.0, color.g / 255.0, color.b / 255.0, color.a / 255.0);
}

void addRing(cairo_t* context, const std::vector<OdGePoint2d>& ring) {
  if (ring.empty())
    return;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    if (i == 0)
      cairo_move_to(context, ring[i].x, ring[i].y);
    else
      cairo_line_to(context, ring[i].x, ring[i].y);
  }
  cairo_close_path(context);
}

class Renderer {
public:
  Renderer(const DisplayList& list, const View& view, cairo_t* context)
      : list_(list), view_(view), context_(context), device_(view) {
    cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
    cairo_save(context);
  }
  ~Renderer() { cairo_restore(context_); }

  void run() {
    for (const Item& item : list_.items) {
      setClip(item.clip);
      const Pen& pen = list_.pens[item.pen];
      setColor(context_, pen.color);
      one(item, pen);
    }
  }

private:
  void one(const Item& item, const Pen& pen) {
    switch (item.kind) {
    case ItemKind::kStroke:
      return stroke(item, pen);
    case ItemKind::kFill:
      return fill(item);
    case ItemKind::kGlyphs:
      return glyphs(item);
    case ItemKind::kPointSymbol:
      return pointSymbol(list_.pointSymbols[item.first], pen);
    case ItemKind::kHalfLine:
    case ItemKind::kFullLine:
      return endless(item, pen);
    }
  }

  void setClip(std::int32_t clip) {
    if (clip == clip_)
      return;
    cairo_restore(context_);
    cairo_save(context_);
    for (std::int32_t at = clip; at >= 0; at = list_.clips[static_cast<std::size_t>(at)].parent)
      cutAt(list_.clips[static_cast<std::size_t>(at)]);
    clip_ = clip;
  }

  void cutAt(const Clip& clip) {
    cairo_new_path(context_);
    if (clip.inverted)
      addRing(context_, device_.frame());
    path_.clear();
    for (const OdGePoint2d& corner : clip.polygon)
      path_.push_back(device_.at(corner));
    addRing(context_, device_.inside(path_));
    cairo_set_fill_rule(context_, CAIRO_FILL_RULE_EVEN_ODD);
    cairo_clip(context_);
  }

  double setWidth(const Pen& pen) {
    const double width =
        std::max(pen.width > 0 ? pen.width * view_.scale : pen.weight * kPixelsOfMillimetre, kThinnest);
    cairo_set_line_width(context_, width);
    // Wide polylines end where they end.
    cairo_set_line_cap(context_, pen.width > 0 ? CAIRO_LINE_CAP_BUTT : CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(context_, pen.width > 0 ? CAIRO_LINE_JOIN_MITER : CAIRO_LINE_JOIN_ROUND);
    return width;
  }

  void strokePath(const Pen& pen) {
    const double width = setWidth(pen);
    cairo_new_path(context_);
    for (const std::vector<OdGePoint2d>& piece : device_.strokes(path_, pen, width)) {
      cairo_move_to(context_, piece[0].x, piece[0].y);
      for (std::size_t i = 1; i < piece.size(); ++i)
        cairo_line_to(context_, piece[i].x, piece[i].y);
    }
    cairo_stroke(context_);
  }

  void stroke(const Item& item, const Pen& pen) {
    path_.clear();
    for (std::size_t i = item.first; i < item.end; ++i)
      path_.push_back(device_.at(list_.points[i]));
    strokePath(pen);
  }

  void fill(const Item& item) {
    cairo_new_path(context_);
    for (std::size_t i = item.first; i < item.end; ++i) {
      const Ring& ring = list_.rings[i];
      path_.clear();
      for (std::size_t k = ring.first; k < ring.end; ++k)
        path_.push_back(device_.at(list_.points[k]));
      addRing(context_, device_.inside(path_));
    }
    cairo_set_fill_rule(context_, CAIRO_FILL_RULE_EVEN_ODD);
    cairo_fill(context_);
  }

  void glyphs(const Item& item) {
    cairo_new_path(context_);
    for (std::size_t i = item.first; i < item.end; ++i) {
      const PlacedOutline& glyph = list_.glyphs[i];
      for (const std::vector<OdGePoint2d>& ring : *glyph.outline) {
        path_.clear();
        for (const OdGePoint2d& point : ring)
          path_.push_back(device_.at(glyph.transform * point));
        addRing(context_, device_.inside(path_));
      }
    }
    cairo_set_fill_rule(context_, CAIRO_FILL_RULE_WINDING);
    cairo_fill(context_);
  }

  // Signs: a dot, nothing, plus, cross, tick; and around it a circle (32), a square (64) or both.
  void pointSymbol(const PointSymbol& symbol, const Pen& pen) {
    const OdGePoint2d at = device_.at(symbol.at);
    if (!device_.contains(at))
      return;
    const double share = symbol.size == 0 ? 5 : -symbol.size;
    const double half = (symbol.size > 0 ? symbol.size * view_.scale : view_.height * share / 100) / 2;
    setWidth(pen);
    cairo_new_path(context_);
    const int figures = symbol.mode & 31;
    if (figures == 0) {
      cairo_move_to(context_, at.x, at.y);
      cairo_line_to(context_, at.x, at.y);
    } else {
      addFigure(at, half, figures);
    }
    if ((symbol.mode & 32) != 0) {
      cairo_new_sub_path(context_);
      cairo_arc(context_, at.x, at.y, half, 0, 2 * 3.14159265358979323846);
    }
    if ((symbol.mode & 64) != 0)
      cairo_rectangle(context_, at.x - half, at.y - half, 2 * half, 2 * half);
    cairo_stroke(context_);
  }

  void addFigure(const OdGePoint2d& at, double half, int figure) {
    struct Way {
      int sign;
      double x, y, toX, toY;
    };
    constexpr Way kWays[] = {
        {2, -2, 0, 2, 0}, {2, 0, -2, 0, 2}, {3, -2, -2, 2, 2}, {3, -2, 2, 2, -2}, {4, 0, 0, 0, -1}};
    for (const Way& way : kWays) {
      if (way.sign != figure)
        continue;
      cairo_move_to(context_, at.x + way.x * half, at.y + way.y * half);
      cairo_line_to(context_, at.x + way.toX * half, at.y + way.toY * half);
    }
  }

  void endless(const Item& item, const Pen& pen) {
    const OdGePoint2d from = device_.at(list_.points[item.first]), to = device_.at(list_.points[item.first + 1]);
    const OdGeVector2d way = (to - from).normal();
    // As far as the picture is from the base point, and across it.
    const double reach = device_.reachFrom(from);
    path_ = {item.kind == ItemKind::kFullLine ? from - way * reach : from, from + way * reach};
    strokePath(pen);
  }

  const DisplayList& list_;
  const View& view_;
  cairo_t* context_;
  Device device_;
  std::int32_t clip_ = -1;
  std::vector<OdGePoint2d> path_;
};

} // namespace

View viewOf(const Box& box, int width, int height, double margin) {
  View view;
  view.width = width;
  view.height = height;
  if (!box.isValid())
    return view;
  view.center = {(box.minX + box.maxX) / 2, (box.minY + box.maxY) / 2};
  const double across = box.maxX - box.minX, up = box.maxY - box.minY, share = 1 - 2 * margin;
  const double least = 1e-12 * std::max({1.0, std::fabs(view.center.x), std::fabs(view.center.y)});
  const double scaleX = across > least ? width * share / across : HUGE_VAL;
  const double scaleY = up > least ? height * share / up : HUGE_VAL;
  const double scale = std::min(scaleX, scaleY);
  view.scale = std::isfinite(scale) ? scale : 1;
  return view;
}

void render(const DisplayList& list, const View& view, cairo_t* context) {
  Renderer(list, view, context).run();
}

} // namespace drawing::gi
