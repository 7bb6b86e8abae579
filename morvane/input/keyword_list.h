// The keywords armed for an input.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace morvane::input {

class KeywordList {
public:
  KeywordList() = default;
  // "Yes No _ Yes No": local names, then after '_' (alone or in front of the first name) the global ones in the same
  // order. A local name without a global one is its own. "LType,LT" gives the abbreviation behind the comma.
  explicit KeywordList(std::wstring_view list);

  bool isEmpty() const { return words_.empty(); }

  // The global name that the answer stands for. An answer stands for a keyword, ignoring case, when it is the keyword
  // or a prefix that covers its capitals and digits, or is just those; behind '_' it is matched with the global names.
  // The whole word goes before an abbreviation, and then the order of the list.
  std::optional<std::wstring> match(std::wstring_view answer) const;

private:
  struct Word {
    std::wstring local;
    std::wstring abbreviation;
    std::wstring global;
  };
  std::vector<Word> words_;
};

} // namespace morvane::input
