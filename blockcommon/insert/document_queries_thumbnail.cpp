#include "blockcommon/document_queries.h"
#include "blockcommon/host/services.h"
#include "morvane/documents.h"
#include "morvane/off_screen.h"
#include "morvane/result_codes.h"

#include <cstdint>
#include <string>

namespace commonFun {
namespace {

constexpr long kWidth = 480, kHeight = 320;
constexpr std::size_t kHeaderSize = 40;

void put(std::string& bytes, std::uint32_t value, int size) {
  for (int i = 0; i < size; ++i)
    bytes += static_cast<char>(value >> (8 * i) & 255);
}

// A height below 0 says that rows run from the top. Sizes and colours in use may be 0 in a bitmap that is not packed.
std::string headerOf(const mvsi::MvsiImage& image) {
  std::string bytes;
  put(bytes, kHeaderSize, 4);
  put(bytes, static_cast<std::uint32_t>(image.width), 4);
  put(bytes, static_cast<std::uint32_t>(-image.height), 4);
  put(bytes, 1, 2); // planes
  put(bytes, 32, 2);
  bytes.resize(kHeaderSize);
  return bytes;
}

// Blue, green, red, and an alpha that lets nothing through.
std::string bitmapOf(const mvsi::MvsiImage& image) {
  std::string bytes = headerOf(image);
  const std::size_t step = static_cast<std::size_t>(image.bitsPerPixel) / 8;
  for (std::size_t i = 0; i + step <= image.pixels.size(); i += step) {
    for (const std::uint8_t channel : {image.pixels[i + 2], image.pixels[i + 1], image.pixels[i], std::uint8_t{255}})
      bytes += static_cast<char>(channel);
  }
  return bytes;
}

bool isWhole(const mvsi::MvsiImage& image) {
  const std::size_t pixels = static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height);
  return image.width > 0 && image.height > 0 && (image.bitsPerPixel == 24 || image.bitsPerPixel == 32) &&
         image.pixels.size() == pixels * static_cast<std::size_t>(image.bitsPerPixel) / 8;
}

} // namespace

bool createDib(OdSmartPtr<OdDbDatabase>& database) {
  if (database.isNull())
    return false;
  mvsi::MvsiApDocument* document = mvsi::gsiGetApDocFromDb(database.get());
  if (document == nullptr)
    document = hostAccess::currentDocument();
  mvsi::MvsiImage image;
  if (document == nullptr || hostAccess::drawOffScreen(document, {0, kHeight, kWidth, 0}, image) != RTNORM ||
      !isWhole(image))
    return false;
  const std::string bitmap = bitmapOf(image);
  database->setThumbnailBitmap(bitmap.data(), bitmap.size());
  database->setRetainOriginalThumbnailBitmap(true);
  return true;
}

} // namespace commonFun
