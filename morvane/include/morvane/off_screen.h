// Images of a document that are drawn without a window.
#pragma once

#include <cstdint>
#include <vector>

namespace mvsi {

// A rectangle in pixels. Either corner may be the lower one.
struct MvsiDeviceRect {
  long left = 0, bottom = 0, right = 0, top = 0;
};

// An image: rows from the top without gaps. A pixel is red, green and blue, with 32 bits followed by alpha.
struct MvsiImage {
  int width = 0, height = 0;
  int bitsPerPixel = 32; // or 24
  std::vector<std::uint8_t> pixels;
};

} // namespace mvsi
