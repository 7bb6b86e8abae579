// Pictures of what a document shows, drawn without a window.
#pragma once

#include <cstdint>
#include <vector>

namespace mvsi {

// In device units, which are pixels. Either corner may be the lower one.
struct MvsiDeviceRect {
  long left = 0, bottom = 0, right = 0, top = 0;
};

// Rows from the top, one behind the other without gaps. A pixel is red, green and blue, with 32 bits alpha behind.
struct MvsiImage {
  int width = 0, height = 0;
  int bitsPerPixel = 32; // or 24
  std::vector<std::uint8_t> pixels;
};

} // namespace mvsi
