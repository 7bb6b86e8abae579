// Single characters in UTF-8.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace drawing {

struct Utf8Character {
  std::uint32_t character = 0;
  std::size_t bytes = 0; // 0: no UTF-8 here
};

// The character that the bytes begin with: shortest form, no surrogates, at most 10FFFF.
Utf8Character utf8At(std::string_view bytes);
void appendUtf8(std::string& out, std::uint32_t character);

inline bool isSurrogate(std::uint32_t ch) {
  return ch >= 0xD800 && ch <= 0xDFFF;
}

} // namespace drawing
