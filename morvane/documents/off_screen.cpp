#include "morvane/off_screen.h"
#include "morvane/host.h"

#include "drawing/picture.h"

#include <cstdlib>

namespace morvane {

// Nothing is written unless all of it succeeds.
bool Documents::drawOffScreen(const mvsi::MvsiApDocument* document, const mvsi::MvsiDeviceRect& rectangle,
                              mvsi::MvsiImage& image) const {
  constexpr long kLargest = 30'000;
  const long width = std::labs(rectangle.right - rectangle.left), height = std::labs(rectangle.top - rectangle.bottom);
  const bool hasSize = width >= 1 && height >= 1 && width <= kLargest && height <= kLargest;
  if (document == nullptr || find(document->database()) != document || !hasSize)
    return false;
  drawing::PictureOptions options;
  options.width = static_cast<int>(width);
  options.height = static_cast<int>(height);
  try {
    const drawing::Picture picture(drawing::currentSpaceOf(*document->database()), options);
    drawing::Bitmap bitmap = picture.bitmap();
    image = {bitmap.width, bitmap.height, 32, std::move(bitmap.rgba)};
  } catch (const OdError&) { // too large together, or no memory
    return false;
  }
  return true;
}

} // namespace morvane
