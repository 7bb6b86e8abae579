#include "drawing/picture.h"

#include "DbBlockTable.h"
#include "DbDictionary.h"
#include "DbLayout.h"
#include "OdError.h"
#include "drawing/gi/render.h"
#include "drawing/gi/scene_builder.h"
#include "drawing/model/object_store.h"

#include <cairo-svg.h>

#include <cstring>

namespace drawing {

namespace {

constexpr double kMargin = 0.03; // of the picture, on each side
constexpr int kLargest = 30'000;
constexpr std::size_t kMaxPixels = 100'000'000;
constexpr std::uint32_t kWhite = 0xFFFFFF;

using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;

cairo_status_t append(void* closure, const unsigned char* data, unsigned length) {
  static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(data), length);
  return CAIRO_STATUS_SUCCESS;
}

void checkSize(const PictureOptions& options) {
  const bool isFine = options.width >= 1 && options.height >= 1 && options.width <= kLargest &&
                      options.height <= kLargest &&
                      static_cast<std::size_t>(options.width) * static_cast<std::size_t>(options.height) <= kMaxPixels;
  if (!isFine)
    throw OdError(eInvalidInput);
}

gi::Box boxOf(const OdGeExtents3d& window) {
  return {window.minPoint().x, window.minPoint().y, window.maxPoint().x, window.maxPoint().y};
}

gi::View viewOf(const gi::DisplayList& list, const PictureOptions& options) {
  if (options.window.isValidExtents())
    return gi::viewOf(boxOf(options.window), options.width, options.height, 0);
  return gi::viewOf(list.extents.isValid() ? list.extents : list.farthest, options.width, options.height, kMargin);
}

} // namespace

struct Picture::Content {
  gi::DisplayList list;
  gi::View view;
  PictureReport report;
  std::optional<std::uint32_t> background;

  void paint(cairo_surface_t* surface) const;
  Surface image() const;
};

Picture::Picture(OdDbObjectId block, const PictureOptions& options) : content_(std::make_unique<Content>()) {
  checkSize(options);
  Content& content = *content_;
  content.background = options.background;
  if (const auto* record = getIf<OdDbBlockTableRecord>(block); isAlive(record)) {
    gi::TraitResolver resolver(*record->database(), gi::colorOf(options.background.value_or(kWhite)));
    gi::SceneBuilder(content.list, resolver, options, content.report).run(block, gi::drawContextOf(*record, resolver));
  }
  content.view = viewOf(content.list, options);
  content.report.isEmpty = content.list.items.empty();
  const gi::Box& box = content.list.extents;
  if (box.isValid())
    content.report.extents.set({box.minX, box.minY, 0}, {box.maxX, box.maxY, 0});
}

Picture::~Picture() = default;
Picture::Picture(Picture&&) noexcept = default;
Picture& Picture::operator=(Picture&&) noexcept = default;

const PictureReport& Picture::report() const {
  return content_->report;
}

void Picture::Content::paint(cairo_surface_t* surface) const {
  cairo_t* const context = cairo_create(surface);
  if (background) {
    const gi::Color color = gi::colorOf(*background);
    cairo_set_source_rgb(context, color.r / 255.0, color.g / 255.0, color.b / 255.0);
    cairo_paint(context);
  }
  gi::render(list, view, context);
  const cairo_status_t status = cairo_status(context);
  cairo_destroy(context);
  if (status == CAIRO_STATUS_NO_MEMORY)
    throw OdError(eOutOfMemory);
  if (status != CAIRO_STATUS_SUCCESS)
    throw OdError(OdString::fromUtf8(cairo_status_to_string(status)));
}

Surface Picture::Content::image() const {
  Surface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, view.width, view.height), cairo_surface_destroy);
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS)
    throw OdError(eOutOfMemory);
  paint(surface.get());
  cairo_surface_flush(surface.get());
  return surface;
}

namespace {

// Alpha is in the highest byte of a pixel of cairo, and its colours are multiplied by it.
void writePixel(const unsigned char* in, std::uint8_t* out) {
  std::uint32_t pixel = 0;
  std::memcpy(&pixel, in, 4);
  const std::uint32_t alpha = pixel >> 24;
  const auto channel = [&](int shift) {
    return static_cast<std::uint8_t>(alpha == 0 ? 0 : (((pixel >> shift) & 255) * 255 + alpha / 2) / alpha);
  };
  out[0] = channel(16);
  out[1] = channel(8);
  out[2] = channel(0);
  out[3] = static_cast<std::uint8_t>(alpha);
}

} // namespace

Bitmap Picture::bitmap() const {
  const Surface surface = content_->image();
  Bitmap bitmap;
  bitmap.width = content_->view.width;
  bitmap.height = content_->view.height;
  const auto width = static_cast<std::size_t>(bitmap.width), height = static_cast<std::size_t>(bitmap.height);
  bitmap.rgba.resize(width * height * 4);
  const unsigned char* row = cairo_image_surface_get_data(surface.get());
  std::uint8_t* out = bitmap.rgba.data();
  for (std::size_t y = 0; y < height; ++y, row += cairo_image_surface_get_stride(surface.get())) {
    for (std::size_t x = 0; x < width; ++x, out += 4)
      writePixel(row + 4 * x, out);
  }
  return bitmap;
}

std::string Picture::png() const {
  std::string bytes;
  if (cairo_surface_write_to_png_stream(content_->image().get(), append, &bytes) != CAIRO_STATUS_SUCCESS)
    throw OdError(eOutOfMemory);
  return bytes;
}

std::string Picture::svg() const {
  std::string bytes;
  {
    const Surface surface(
        cairo_svg_surface_create_for_stream(append, &bytes, content_->view.width, content_->view.height),
        cairo_surface_destroy);
    cairo_svg_surface_set_document_unit(surface.get(), CAIRO_SVG_UNIT_PX);
    content_->paint(surface.get());
    cairo_surface_finish(surface.get());
  }
  return bytes;
}

OdDbObjectId currentSpaceOf(const OdDbDatabase& database) {
  return database.headerInt("TILEMODE", 1) != 0 ? database.getModelSpaceId() : database.getPaperSpaceId();
}

OdDbObjectId layoutBlock(const OdDbDatabase& database, const OdString& name) {
  const auto* table = getIf<OdDbBlockTable>(database.getBlockTableId());
  if (table == nullptr)
    return {};
  for (const OdDbSymbolTableIteratorPtr at = table->newIterator(); !at->done(); at->step()) {
    const auto* block = getIf<OdDbBlockTableRecord>(at->getRecordId());
    const auto* layout = block == nullptr ? nullptr : getIf<OdDbLayout>(block->getLayoutId());
    if (layout != nullptr && layout->getLayoutName().iCompare(name) == 0)
      return block->objectId();
  }
  return {};
}

} // namespace drawing
