// The colours that indices stand for.
#pragma once

#include <cstdint>

namespace drawing::gi {

struct Color {
  std::uint8_t r = 0, g = 0, b = 0, a = 255;
  friend bool operator==(const Color&, const Color&) = default;
};

Color colorOf(std::uint32_t rgb);
// 1 to 255; `foreground` stands for 7 and for everything outside.
Color indexedColor(int index, Color foreground);
// Black on a light background, white on a dark one.
Color foregroundOn(Color background);

} // namespace drawing::gi
