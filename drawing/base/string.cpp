#include "OdString.h"

#include <algorithm>
#include <cstdint>

namespace {

constexpr std::wstring_view kWhitespace(L"\t\n\v\f\r ");

int positionOf(std::size_t found) {
  return found == std::wstring_view::npos ? -1 : static_cast<int>(found);
}

std::size_t atLeastZero(int value) {
  return value > 0 ? static_cast<std::size_t>(value) : 0;
}

OdString joined(std::wstring_view one, std::wstring_view other) {
  std::wstring both;
  both.reserve(one.size() + other.size());
  both.append(one).append(other);
  return OdString(std::move(both));
}

std::wstring_view viewOrEmpty(const wchar_t* text) {
  return text == nullptr ? std::wstring_view() : text;
}

} // namespace

OdString::OdString(const wchar_t* text, int length) {
  if (text != nullptr)
    text_.assign(text, atLeastZero(length));
}

OdString& OdString::operator+=(const OdString& tail) {
  text_ += tail.text_;
  return *this;
}

OdString& OdString::operator+=(const wchar_t* tail) {
  text_.append(viewOf(tail));
  return *this;
}

OdString& OdString::operator+=(wchar_t ch) {
  text_ += ch;
  return *this;
}

int OdString::foldedOrder(std::wstring_view one, std::wstring_view other) {
  const std::size_t common = std::min(one.size(), other.size());
  for (std::size_t i = 0; i < common; ++i) {
    if (one[i] == other[i])
      continue;
    const wchar_t folded = foldCase(one[i]);
    const wchar_t otherFolded = foldCase(other[i]);
    if (folded != otherFolded)
      return folded < otherFolded ? -1 : 1;
  }
  if (one.size() == other.size())
    return 0;
  return one.size() < other.size() ? -1 : 1;
}

int OdString::find(wchar_t ch, int start) const {
  return positionOf(visible().find(ch, atLeastZero(start)));
}

int OdString::find(const wchar_t* wanted, int start) const {
  return positionOf(visible().find(viewOf(wanted), atLeastZero(start)));
}

int OdString::reverseFind(wchar_t ch) const {
  return positionOf(visible().rfind(ch));
}

int OdString::findOneOf(const wchar_t* characters) const {
  return positionOf(visible().find_first_of(viewOf(characters)));
}

OdString OdString::left(int count) const {
  return OdString(text_.substr(0, atLeastZero(count)));
}

OdString OdString::right(int count) const {
  const std::size_t kept = std::min(atLeastZero(count), text_.size());
  return OdString(text_.substr(text_.size() - kept));
}

OdString OdString::mid(int first) const {
  const std::size_t from = std::min(atLeastZero(first), text_.size());
  return OdString(text_.substr(from));
}

OdString OdString::mid(int first, int count) const {
  const std::size_t from = std::min(atLeastZero(first), text_.size());
  return OdString(text_.substr(from, atLeastZero(count)));
}

OdString& OdString::makeUpper() {
  std::transform(text_.begin(), text_.end(), text_.begin(), upperCase);
  return *this;
}

OdString& OdString::makeLower() {
  std::transform(text_.begin(), text_.end(), text_.begin(), lowerCase);
  return *this;
}

OdString& OdString::trimLeft() {
  text_.erase(0, std::min(text_.find_first_not_of(kWhitespace), text_.size()));
  return *this;
}

OdString& OdString::trimRight() {
  text_.erase(text_.find_last_not_of(kWhitespace) + 1); // npos + 1 is 0
  return *this;
}

int OdString::replace(const wchar_t* oldText, const wchar_t* newText) {
  const std::wstring_view wanted = viewOf(oldText);
  if (wanted.empty())
    return 0;
  std::wstring changed;
  int places = 0;
  std::size_t from = 0;
  for (std::size_t at; (at = text_.find(wanted, from)) != std::wstring::npos; from = at + wanted.size(), ++places)
    changed.append(text_, from, at - from).append(viewOf(newText));
  changed.append(text_, from);
  text_ = std::move(changed);
  return places;
}

int OdString::replace(wchar_t oldCh, wchar_t newCh) {
  const auto places = std::count(text_.begin(), text_.end(), oldCh);
  std::replace(text_.begin(), text_.end(), oldCh, newCh);
  return static_cast<int>(places);
}

int OdString::remove(wchar_t ch) {
  return static_cast<int>(std::erase(text_, ch));
}

int OdString::insert(int position, const wchar_t* text) {
  text_.insert(std::min(atLeastZero(position), text_.size()), std::wstring(viewOf(text)));
  return getLength();
}

int OdString::insert(int position, wchar_t ch) {
  text_.insert(std::min(atLeastZero(position), text_.size()), 1, ch);
  return getLength();
}

int OdString::deleteChars(int first, int count) {
  text_.erase(std::min(atLeastZero(first), text_.size()), atLeastZero(count));
  return getLength();
}

OdString operator+(const OdString& one, const OdString& other) {
  return joined(one.str(), other.str());
}
OdString operator+(const OdString& one, const wchar_t* other) {
  return joined(one.str(), viewOrEmpty(other));
}
OdString operator+(const wchar_t* one, const OdString& other) {
  return joined(viewOrEmpty(one), other.str());
}
OdString operator+(const OdString& one, wchar_t other) {
  return joined(one.str(), {&other, 1});
}
OdString operator+(wchar_t one, const OdString& other) {
  return joined({&one, 1}, other.str());
}

std::size_t foldHash(std::wstring_view text) {
  std::uint64_t hash = 14695981039346656037ULL;
  for (wchar_t ch : text) {
    if (ch == 0)
      break;
    hash = (hash ^ static_cast<std::uint32_t>(foldCase(ch))) * 1099511628211ULL;
  }
  return static_cast<std::size_t>(hash ^ (hash >> 32));
}

std::size_t foldHash(const OdString& text) {
  return foldHash(text.visible());
}
