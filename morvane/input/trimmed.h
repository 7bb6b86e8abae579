// What is typed, without the blanks around it.
#pragma once

#include <string_view>

namespace morvane::input {

inline std::wstring_view trimmed(std::wstring_view text) {
  const auto first = text.find_first_not_of(L" \t");
  return first == text.npos ? std::wstring_view() : text.substr(first, text.find_last_not_of(L" \t") - first + 1);
}

} // namespace morvane::input
