#include "DbMText.h"

#include <string>
#include <string_view>

namespace {

// Reads formatting codes from left to right. Text that is not a code stands for itself.
class PlainReader {
public:
  explicit PlainReader(std::wstring_view text) : text_(text) {}

  std::wstring read() {
    while (at_ < text_.size()) {
      const wchar_t ch = text_[at_++];
      if (ch == L'\\')
        code();
      else if (ch == L'^')
        control();
      else if (ch != L'{' && ch != L'}')
        out_ += ch;
    }
    return std::move(out_);
  }

private:
  void code() {
    if (at_ >= text_.size()) {
      out_ += L'\\';
      return;
    }
    const wchar_t ch = text_[at_++];
    if (ch == L'P' || ch == L'X' || ch == L'N')
      out_ += L'\n';
    else if (ch == L'~')
      out_ += L' ';
    else if (ch == L'S')
      stack();
    else if (ch == L'U')
      number();
    else if (std::wstring_view(L"LlOoKk").find(ch) != std::wstring_view::npos)
      return; // lines over, under and through the text
    else if (std::wstring_view(L"AaCcFfHhQqTtWwp").find(ch) != std::wstring_view::npos)
      skipValue();
    else
      out_ += ch; // an escaped brace or backslash, or no code at all
  }

  void skipValue() {
    const std::size_t end = text_.find(L';', at_);
    at_ = end == text_.npos ? text_.size() : end + 1;
  }

  void stack() {
    const std::size_t end = std::min(text_.find(L';', at_), text_.size());
    for (; at_ < end; ++at_)
      out_ += text_[at_] == L'^' || text_[at_] == L'#' ? L'/' : text_[at_];
    at_ = std::min(end + 1, text_.size());
  }

  // \U+ and four hexadecimal digits.
  void number() {
    wchar_t value = 0;
    if (text_.size() - at_ < 5 || text_[at_] != L'+')
      return void(out_ += L'U');
    for (const wchar_t ch : text_.substr(at_ + 1, 4)) {
      const std::size_t digit = std::wstring_view(L"0123456789ABCDEFabcdef").find(ch);
      if (digit == std::wstring_view::npos)
        return void(out_ += L'U');
      value = static_cast<wchar_t>(value * 16 + static_cast<wchar_t>(digit < 16 ? digit : digit - 6));
    }
    out_ += value;
    at_ += 5;
  }

  void control() {
    const wchar_t ch = at_ < text_.size() ? text_[at_++] : L' ';
    if (ch == L'J')
      out_ += L'\n';
    else if (ch == L'I')
      out_ += L'\t';
    else if (ch == L' ')
      out_ += L'^';
    else if (ch != L'M')
      (out_ += L'^') += ch;
  }

  std::wstring_view text_;
  std::size_t at_ = 0;
  std::wstring out_;
};

} // namespace

OdString OdDbMText::plainText() const {
  return PlainReader(contents_.str()).read();
}
