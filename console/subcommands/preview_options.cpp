#include "console/subcommands/preview_options.h"

#include <charconv>

namespace console::subcommands {
namespace {

constexpr int kLargest = 30'000;
constexpr long long kMaxPixels = 100'000'000;

bool readWhole(const char* first, const char* last, int base, int& value) {
  const auto read = std::from_chars(first, last, value, base);
  return read.ec == std::errc() && read.ptr == last && first != last;
}

} // namespace

bool readPictureSize(const std::string& text, drawing::PictureOptions& options) {
  const std::size_t cross = text.find_first_of("xX");
  int width = 0, height = 0;
  if (cross == text.npos || !readWhole(text.data(), text.data() + cross, 10, width) ||
      !readWhole(text.data() + cross + 1, text.data() + text.size(), 10, height))
    return false;
  const bool isFine = width >= 1 && height >= 1 && width <= kLargest && height <= kLargest &&
                      static_cast<long long>(width) * height <= kMaxPixels;
  if (!isFine)
    return false;
  options.width = width;
  options.height = height;
  return true;
}

bool readBackground(const std::string& text, drawing::PictureOptions& options) {
  constexpr std::uint32_t kWhite = 0xFFFFFF;
  const std::string digits = text.substr(text.empty() || text[0] != '#' ? 0 : 1);
  int value = 0;
  if (text == "none")
    options.background.reset();
  else if (text == "white")
    options.background = kWhite;
  else if (text == "black")
    options.background = 0;
  else if (digits.size() == 6 && digits[0] != '-' && readWhole(digits.data(), digits.data() + 6, 16, value))
    options.background = static_cast<std::uint32_t>(value);
  else
    return false;
  return true;
}

} // namespace console::subcommands
