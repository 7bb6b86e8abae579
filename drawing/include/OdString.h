// Strings of the drawing SDK: 32-bit wide characters with a stored length that may include zeros.
//
// Length, getAt, left, mid, right, assignment and concatenation use the stored length. Comparing, finding, UTF-8
// conversion, format("%s") and the C buffer stop at the first zero. A null pointer counts as the empty text everywhere.
#pragma once

#include "drawing/export.h"

#include <compare>
#include <cstdarg>
#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace drawing {
[[noreturn]] MVDRAWING_API void throwInvalidIndex(); // throws OdError_InvalidIndex
} // namespace drawing

// A string.
class MVDRAWING_API OdString {
public:
  OdString() = default;
  // From characters: up to the first zero; `length` characters, zeros included (negative: none); a repeated character
  // (negative: none); the stored length of a standard string.
  OdString(const wchar_t* text) { assign(text); }
  OdString(const wchar_t* text, int length);
  OdString(wchar_t ch, int times) : text_(times > 0 ? static_cast<std::size_t>(times) : 0, ch) {}
  OdString(std::wstring text) : text_(std::move(text)) {}
  explicit OdString(std::wstring_view text) : text_(text) {}

  OdString& operator=(const wchar_t* text) { return *this = OdString(text); } // the text may be part of this one

  // The stored length, and whether it is 0: a string of one zero is not empty. empty() clears the string.
  int getLength() const { return static_cast<int>(text_.size()); }
  bool isEmpty() const { return text_.empty(); }
  void empty() { text_.clear(); }

  // A character; throw OdError_InvalidIndex unless 0 <= index < getLength().
  wchar_t getAt(int index) const {
    return text_[checked(static_cast<std::size_t>(index))]; // a negative index is a large unsigned one
  }
  void setAt(int index, wchar_t ch) { text_[checked(static_cast<std::size_t>(index))] = ch; }
  template <class Index, class = std::enable_if_t<std::is_integral_v<Index>>>
  wchar_t operator[](Index index) const {
    return text_[checked(static_cast<std::size_t>(index))];
  }

  // The buffer, which ends with a zero and is valid until the string changes, and the characters before the first zero.
  const wchar_t* c_str() const { return text_.c_str(); }
  operator const wchar_t*() const { return text_.c_str(); }
  const std::wstring& str() const { return text_; }
  std::wstring_view visible() const { return std::wstring_view(text_.c_str()); }

  // Append.
  OdString& operator+=(const OdString& tail);
  OdString& operator+=(const wchar_t* tail);
  OdString& operator+=(wchar_t ch);

  // Comparison by character value: negative, 0 or positive.
  int compare(const OdString& other) const { return order(visible(), other.visible()); }
  int compare(const wchar_t* other) const { return order(visible(), viewOf(other)); }
  // The same after foldCase on each character.
  int iCompare(const OdString& other) const { return foldedOrder(visible(), other.visible()); }
  int iCompare(const wchar_t* other) const { return foldedOrder(visible(), viewOf(other)); }

  // Search: the position, or -1. A negative start counts as 0. The empty text is found at the start. findOneOf searches
  // for any of the characters.
  int find(wchar_t ch, int start = 0) const;
  int find(const wchar_t* wanted, int start = 0) const;
  int reverseFind(wchar_t ch) const;
  int findOneOf(const wchar_t* characters) const;

  // Parts of the string; positions and counts are limited to the string. The second `mid` ends with the string.
  OdString left(int count) const;
  OdString right(int count) const;
  OdString mid(int first) const;
  OdString mid(int first, int count) const;

  // Change each character by upperCase and lowerCase.
  OdString& makeUpper();
  OdString& makeLower();
  // Remove characters 9 to 13 and 32 from that end.
  OdString& trimLeft();
  OdString& trimRight();

  // Replace or remove all occurrences in the stored length; return their number. An empty search text changes nothing.
  int replace(const wchar_t* oldText, const wchar_t* newText);
  int replace(wchar_t oldCh, wchar_t newCh);
  int remove(wchar_t ch);
  // Insert or delete; positions are limited to the string. Return the new length.
  int insert(int position, const wchar_t* text);
  int insert(int position, wchar_t ch);
  int deleteChars(int first, int count = 1);

  // Set the string from a format. Directives: %s (wide text, null is empty) %c %d %i %u %x %X %o %f %F %e %E %g %G %%,
  // sizes h l ll I64, flags, width and precision (at most 4096, also as *). Anything else after % is copied and
  // consumes no argument. Never use text with user data as the format.
  OdString& format(const wchar_t* fmt, ...);
  OdString& formatV(const wchar_t* fmt, va_list args);

  // UTF-8 of the characters before the first zero; empty if one of them has no UTF-8 (D800 to DFFF, above 10FFFF).
  std::string toUtf8() const;
  // From UTF-8, zeros included. Bytes that are not UTF-8 become the character DC00 + byte, so that nothing is lost.
  static OdString fromUtf8(std::string_view bytes);
  // The inverse of fromUtf8, for the whole stored length. Characters that fromUtf8 cannot give become U+FFFD.
  std::string toUtf8Lossless() const;

private:
  static std::wstring_view viewOf(const wchar_t* text) { return text == nullptr ? std::wstring_view() : text; }
  static int order(std::wstring_view one, std::wstring_view other) { return one.compare(other); }
  static int foldedOrder(std::wstring_view one, std::wstring_view other);
  void assign(const wchar_t* text) { text_.assign(viewOf(text)); }
  std::size_t checked(std::size_t index) const {
    if (index >= text_.size())
      drawing::throwInvalidIndex();
    return index;
  }

  std::wstring text_;
};

// Comparison as by compare().
inline bool operator==(const OdString& one, const OdString& other) {
  return one.visible() == other.visible();
}
inline bool operator==(const OdString& one, const wchar_t* other) {
  return one.compare(other) == 0;
}
inline std::strong_ordering operator<=>(const OdString& one, const OdString& other) {
  return one.compare(other) <=> 0;
}
inline std::strong_ordering operator<=>(const OdString& one, const wchar_t* other) {
  return one.compare(other) <=> 0;
}

// Concatenation over the stored lengths.
MVDRAWING_API OdString operator+(const OdString& one, const OdString& other);
MVDRAWING_API OdString operator+(const OdString& one, const wchar_t* other);
MVDRAWING_API OdString operator+(const wchar_t* one, const OdString& other);
MVDRAWING_API OdString operator+(const OdString& one, wchar_t other);
MVDRAWING_API OdString operator+(wchar_t one, const OdString& other);

// Simple case mappings of single characters, independent of the locale.
MVDRAWING_API wchar_t foldCase(wchar_t ch); // equal for all case forms of a letter
MVDRAWING_API wchar_t upperCase(wchar_t ch);
MVDRAWING_API wchar_t lowerCase(wchar_t ch);

// Hash that is equal for texts that iCompare finds equal; the same in every run.
MVDRAWING_API std::size_t foldHash(const OdString& text);
MVDRAWING_API std::size_t foldHash(std::wstring_view text);
