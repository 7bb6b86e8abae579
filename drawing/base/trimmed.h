// Text without the white space around it.
#pragma once

#include <string_view>

namespace drawing {

// The text without the characters of `space` at its ends.
template <class Char>
std::basic_string_view<Char> trimmed(std::basic_string_view<Char> text, const Char* space) {
  const auto first = text.find_first_not_of(space);
  return first == text.npos ? std::basic_string_view<Char>()
                            : text.substr(first, text.find_last_not_of(space) - first + 1);
}

} // namespace drawing
