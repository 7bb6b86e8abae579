#include "drawing/gi/scene/palette.h"

#include <algorithm>
#include <cmath>

namespace drawing::gi {

namespace {

constexpr std::uint32_t kNamed[] = {0,        0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF,
                                    0x0000FF, 0xFF00FF, 0,        0x808080, 0xC0C0C0};
constexpr std::uint8_t kGreys[] = {51, 91, 132, 173, 214, 255};

// Twenty-four hues from red on, ten shades each: five levels, each full and half washed out.
Color shade(int index) {
  constexpr int kLevels[] = {255, 165, 127, 76, 38};
  const int hue = (index - 10) / 10, level = kLevels[index % 10 / 2];
  const int floor = index % 2 == 0 ? 0 : level / 2;
  const auto channel = [&](int shift) {
    // Of 24 steps a channel is full for 8, rises and falls for 4 each, and is empty for 8.
    const int at = (hue + shift) % 24, away = std::min(at, 24 - at);
    const int part = std::clamp(8 - away, 0, 4);
    return static_cast<std::uint8_t>(floor + (level - floor) * part / 4);
  };
  return {channel(0), channel(16), channel(8)};
}

} // namespace

Color colorOf(std::uint32_t rgb) {
  return {static_cast<std::uint8_t>(rgb >> 16), static_cast<std::uint8_t>(rgb >> 8), static_cast<std::uint8_t>(rgb)};
}

Color indexedColor(int index, Color foreground) {
  if (index < 1 || index > 255 || index == 7)
    return foreground;
  if (index < 10)
    return colorOf(kNamed[index]);
  if (index >= 250)
    return {kGreys[index - 250], kGreys[index - 250], kGreys[index - 250]};
  return shade(index);
}

Color foregroundOn(Color background) {
  const double light = 0.299 * background.r + 0.587 * background.g + 0.114 * background.b;
  return light > 127 ? Color{0, 0, 0} : Color{255, 255, 255};
}

} // namespace drawing::gi
