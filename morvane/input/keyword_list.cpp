#include "morvane/input/keyword_list.h"

#include "OdString.h"

#include <algorithm>

namespace morvane::input {
namespace {

std::vector<std::wstring> splitAtSpaces(std::wstring_view text) {
  constexpr std::wstring_view kWhitespace = L" \t\n";
  std::vector<std::wstring> parts;
  for (auto at = text.find_first_not_of(kWhitespace); at != std::wstring_view::npos;) {
    const auto end = std::min(text.find_first_of(kWhitespace, at), text.size());
    parts.emplace_back(text.substr(at, end - at));
    at = text.find_first_not_of(kWhitespace, end);
  }
  return parts;
}

bool equalFolded(std::wstring_view one, std::wstring_view other) {
  return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                    [](wchar_t a, wchar_t b) { return foldCase(a) == foldCase(b); });
}

bool isWeighty(wchar_t ch) {
  return (ch >= L'0' && ch <= L'9') || lowerCase(ch) != ch;
}

// True when `typed` is a prefix of `word` that covers its capitals, or is exactly the capitals.
bool abbreviates(std::wstring_view entered, std::wstring_view word) {
  std::wstring capitals;
  std::size_t covered = 1;
  for (std::size_t at = 0; at < word.size(); ++at) {
    if (isWeighty(word[at])) {
      capitals += word[at];
      covered = at + 1;
    }
  }
  if (!capitals.empty() && equalFolded(entered, capitals))
    return true;
  return entered.size() >= covered && entered.size() <= word.size() &&
         equalFolded(entered, word.substr(0, entered.size()));
}

} // namespace

KeywordList::KeywordList(std::wstring_view list) {
  bool inGlobals = false;
  std::size_t globals = 0;
  for (std::wstring& part : splitAtSpaces(list)) {
    if (!inGlobals && part.starts_with(L'_')) {
      inGlobals = true;
      part.erase(0, 1);
    }
    if (part.empty())
      continue;
    const auto comma = part.find(L',');
    const std::wstring name = part.substr(0, comma);
    if (!inGlobals)
      words_.push_back({name, comma == std::wstring::npos ? std::wstring() : part.substr(comma + 1), name});
    else if (globals < words_.size())
      words_[globals++].global = name;
  }
}

std::optional<std::wstring> KeywordList::match(std::wstring_view answer) const {
  const bool asGlobal = answer.starts_with(L'_');
  const std::wstring_view entered = asGlobal ? answer.substr(1) : answer;
  if (entered.empty())
    return std::nullopt;
  for (const Word& word : words_) {
    if (equalFolded(entered, asGlobal ? word.global : word.local))
      return word.global;
  }
  for (const Word& word : words_) {
    if (abbreviates(entered, asGlobal ? word.global : word.local))
      return word.global;
    if (!word.abbreviation.empty() && equalFolded(entered, word.abbreviation))
      return word.global;
  }
  return std::nullopt;
}

} // namespace morvane::input
