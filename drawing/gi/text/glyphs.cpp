#include "drawing/gi/text/glyphs.h"

#include "OdString.h"

#include <pango/pangocairo.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <unordered_map>
#include <utility>

namespace drawing::gi {

// What pango and cairo give, freed as each wants it.
namespace owned {

template <class T, void (*Free)(T*)>
struct Freer {
  void operator()(T* object) const { Free(object); }
};
inline void freeObject(void* object) {
  g_object_unref(object);
}
template <class T>
struct ObjectFreer {
  void operator()(T* object) const { freeObject(object); }
};
template <class T>
using Object = std::unique_ptr<T, ObjectFreer<T>>;
using Description = std::unique_ptr<PangoFontDescription, Freer<PangoFontDescription, pango_font_description_free>>;
using Surface = std::unique_ptr<cairo_surface_t, Freer<cairo_surface_t, cairo_surface_destroy>>;
using Context = std::unique_ptr<cairo_t, Freer<cairo_t, cairo_destroy>>;

} // namespace owned

namespace {

constexpr int kSize = 512; // pixels of the size in which outlines are taken
constexpr double kFlatness = 1.5;
constexpr std::size_t kMaxCached = 1'000'000; // letters of texts that may come again
constexpr std::size_t kLongestText = 10'000;  // what is behind counts as missing
constexpr double kUsualCapital = 0.72;        // of the font's size, where a font has no letter H

owned::Description describe(const Font& font) {
  owned::Description description(pango_font_description_new());
  pango_font_description_set_family(description.get(), font.family.c_str());
  pango_font_description_set_weight(description.get(), font.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
  pango_font_description_set_style(description.get(), font.italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
  pango_font_description_set_absolute_size(description.get(), kSize * PANGO_SCALE);
  return description;
}

std::string lineOf(std::wstring_view text) {
  std::wstring line(text);
  for (wchar_t& ch : line) {
    const bool isCharacter =
        ch >= 32 && ch < 0x110000 && !(ch >= 0xD800 && ch < 0xE000) && ch != 0x2028 && ch != 0x2029;
    if (!isCharacter)
      ch = ch >= 0xD800 ? L'\xFFFD' : L' ';
  }
  return OdString(std::move(line)).toUtf8();
}

// The path of the context, from pixels downwards to units upwards.
Outline takePath(cairo_t* context, double unit) {
  Outline outline;
  cairo_path_t* const path = cairo_copy_path_flat(context);
  for (int i = 0; i < path->num_data; i += path->data[i].header.length) {
    const cairo_path_data_t& piece = path->data[i];
    if (piece.header.type == CAIRO_PATH_MOVE_TO)
      outline.emplace_back();
    if (piece.header.type == CAIRO_PATH_MOVE_TO || piece.header.type == CAIRO_PATH_LINE_TO)
      outline.back().emplace_back((&piece)[1].point.x * unit, -(&piece)[1].point.y * unit);
  }
  cairo_path_destroy(path);
  outline.erase(std::remove_if(outline.begin(), outline.end(), [](const auto& ring) { return ring.size() < 3; }),
                outline.end());
  return outline;
}

Outline frame(double width) {
  const auto ring = [&](double instance) {
    return std::vector<OdGePoint2d>{{0.1 + instance, instance},
                                    {width - 0.1 - instance, instance},
                                    {width - 0.1 - instance, 1 - instance},
                                    {0.1 + instance, 1 - instance}};
  };
  Outline outline{ring(0), ring(0.08)};
  std::reverse(outline[1].begin(), outline[1].end());
  return outline;
}

Box boxOf(const Outline& outline) {
  Box box;
  for (const auto& ring : outline)
    for (const OdGePoint2d& point : ring)
      box.add(point);
  return box;
}

} // namespace

struct TextShaper::Engine {
  struct Glyph {
    std::shared_ptr<const Outline> outline;
    Box box;
  };
  using GlyphKey = std::pair<PangoFont*, PangoGlyph>;
  struct FontKey {
    std::string family;
    bool bold, italic;
    auto operator<=>(const FontKey&) const = default;
  };

  Engine() : map(pango_cairo_font_map_new()), context(pango_font_map_create_context(map.get())) {
    cairo_font_options_t* const options = cairo_font_options_create();
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(context.get(), options);
    cairo_font_options_destroy(options);
    pango_context_set_round_glyph_positions(context.get(), FALSE);
    surface.reset(cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1));
    pen.reset(cairo_create(surface.get()));
    cairo_set_tolerance(pen.get(), kFlatness);
  }
  ~Engine() {
    for (auto& [key, glyph] : glyphs)
      g_object_unref(key.first); // one reference a glyph
  }

  // Of the size in pixels: how high a capital letter is.
  double capital(const Font& font) {
    const FontKey key{font.family, font.bold, font.italic};
    const auto found = capitals.find(key);
    if (found != capitals.end())
      return found->second;
    ShapedText glyph;
    run(font, "H", 1, glyph);
    double height = 0;
    if (!glyph.glyphs.empty())
      height = boxOf(*glyph.glyphs[0].outline).maxY;
    // Outlines were taken in pixels; those of the text come in capitals.
    return capitals.emplace(key, height > 1 ? height : kSize * kUsualCapital).first->second;
  }

  const Glyph& glyph(PangoFont* font, PangoGlyph index) {
    const GlyphKey key(font, index);
    const auto found = glyphs.find(key);
    if (found != glyphs.end())
      return found->second;
    cairo_set_scaled_font(pen.get(), pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font)));
    cairo_new_path(pen.get());
    const cairo_glyph_t one{index, 0, 0};
    cairo_glyph_path(pen.get(), &one, 1);
    Glyph made;
    made.outline = std::make_shared<Outline>(takePath(pen.get(), 1));
    made.box = boxOf(*made.outline);
    g_object_ref(font);
    return glyphs.emplace(key, std::move(made)).first->second;
  }

  // The same in units of the text, shared by all its uses.
  std::shared_ptr<const Outline> scaled(PangoFont* font, PangoGlyph index, double unit) {
    auto& slot = outlines[{{font, index}, unit}];
    if (slot == nullptr) {
      Outline outline = *glyph(font, index).outline;
      for (auto& ring : outline)
        for (OdGePoint2d& point : ring)
          point = {point.x * unit, point.y * unit};
      slot = std::make_shared<Outline>(std::move(outline));
    }
    return slot;
  }

  void addRun(const PangoGlyphItem& item, double unit, double& x, ShapedText& shaped) {
    const double pixel = unit / PANGO_SCALE;
    for (int i = 0; i < item.glyphs->num_glyphs; ++i) {
      const PangoGlyphInfo& info = item.glyphs->glyphs[i];
      const double width = info.geometry.width * pixel;
      ShapedText::Glyph glyph{nullptr, x + info.geometry.x_offset * pixel, -info.geometry.y_offset * pixel};
      x += width;
      if (info.glyph == PANGO_GLYPH_EMPTY)
        continue;
      if ((info.glyph & PANGO_GLYPH_UNKNOWN_FLAG) != 0) {
        glyph.outline = std::make_shared<Outline>(frame(width));
        ++shaped.missing;
      } else {
        glyph.outline = scaled(item.item->analysis.font, info.glyph, unit);
      }
      if (glyph.outline->empty())
        continue;
      const Box box = boxOf(*glyph.outline);
      shaped.box.add({box.minX + glyph.x, box.minY + glyph.y});
      shaped.box.add({box.maxX + glyph.x, box.maxY + glyph.y});
      shaped.glyphs.push_back(std::move(glyph));
    }
  }

  void run(const Font& font, const std::string& utf8, double unit, ShapedText& shaped) {
    const owned::Object<PangoLayout> layout(pango_layout_new(context.get()));
    const owned::Description description = describe(font);
    pango_layout_set_font_description(layout.get(), description.get());
    pango_layout_set_single_paragraph_mode(layout.get(), TRUE);
    pango_layout_set_text(layout.get(), utf8.data(), static_cast<int>(utf8.size()));
    const PangoLayoutLine* const line = pango_layout_get_line_readonly(layout.get(), 0);
    for (const GSList* at = line->runs; at != nullptr; at = at->next)
      addRun(*static_cast<const PangoGlyphItem*>(at->data), unit, shaped.width, shaped);
  }

  owned::Object<PangoFontMap> map;
  owned::Object<PangoContext> context;
  owned::Surface surface;
  owned::Context pen;
  std::map<FontKey, double> capitals;
  std::map<GlyphKey, Glyph> glyphs;
  std::map<std::pair<GlyphKey, double>, std::shared_ptr<const Outline>> outlines;
  std::unordered_map<std::string, ShapedText> texts;
  std::size_t kept = 0; // letters in them
};

TextShaper::TextShaper() : engine_(std::make_unique<Engine>()) {}
TextShaper::~TextShaper() = default;

const ShapedText& TextShaper::shape(const Font& font, std::wstring_view text) {
  const std::string utf8 = lineOf(text.substr(0, kLongestText));
  std::string key = font.family;
  key += font.bold ? "\1" : "\2";
  key += font.italic ? "\1" : "\2";
  key += utf8;
  const auto found = engine_->texts.find(key);
  if (found != engine_->texts.end())
    return found->second;
  ShapedText shaped;
  engine_->run(font, utf8, 1 / engine_->capital(font), shaped);
  shaped.missing += text.size() - std::min(text.size(), kLongestText);
  engine_->kept += shaped.glyphs.size() + 1;
  if (engine_->kept > kMaxCached) {
    engine_->texts.clear();
    engine_->kept = shaped.glyphs.size() + 1;
  }
  return engine_->texts.emplace(std::move(key), std::move(shaped)).first->second;
}

} // namespace drawing::gi
