#include "drawing/gi/text/mtext_reader.h"

#include "Ge/GeUtil.h"
#include "drawing/gi/text/text_style.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace drawing::gi {

namespace {

constexpr std::size_t kMaxDepth = 200; // braces; deeper ones are skipped

// The number at the front, or nothing. Letters and signs behind it are left.
std::optional<double> numberAt(std::wstring_view text) {
  std::string ascii;
  for (const wchar_t ch : text.substr(0, 40)) {
    if (ch != L' ' && ch != L'+')
      ascii += ch < 128 ? static_cast<char>(ch) : '?';
  }
  double value = 0;
  const auto read = std::from_chars(ascii.data(), ascii.data() + ascii.size(), value);
  return read.ec == std::errc() && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

bool mayBreakBefore(wchar_t ch) {
  return (ch >= 0x2E80 && ch <= 0x9FFF) || (ch >= 0xAC00 && ch <= 0xD7A3) || (ch >= 0xF900 && ch <= 0xFAFF) ||
         (ch >= 0xFF00 && ch <= 0xFF60) || (ch >= 0x20000 && ch <= 0x3FFFF);
}

// Letters of fonts with signs for tolerances. Where hardly any font has the very sign, one that looks like it.
wchar_t toleranceSymbol(wchar_t letter) {
  constexpr std::pair<wchar_t, wchar_t> kSymbols[] = {
      {L'a', 0x2220}, {L'b', 0x22A5}, {L'c', 0x23E5}, {L'd', 0x2313}, {L'e', 0x25CB}, {L'f', 0x2225}, {L'g', 0x2298},
      {L'h', 0x2197}, {L'i', 0x2261}, {L'j', 0x2295}, {L'k', 0x2312}, {L'l', L'L'},   {L'm', L'M'},   {L'n', 0xD8},
      {L'p', L'P'},   {L'r', 0x25CE}, {L's', L'S'},   {L't', 0x21D7}, {L'u', 0x2014}};
  for (const auto& [from, to] : kSymbols) {
    if (from == letter)
      return to;
  }
  return letter;
}

class Reader {
public:
  Reader(std::wstring_view text, const CharFormat& format) : text_(text), format_(format) {}

  std::vector<Word> read() {
    while (at_ < text_.size())
      one(text_[at_++]);
    return std::move(words_);
  }

private:
  void one(wchar_t ch) {
    if (ch == L'\\' && at_ < text_.size())
      code(text_[at_++]);
    else if (ch == L'{')
      open();
    else if (ch == L'}')
      close();
    else if (ch == L'^')
      control();
    else if (ch == L'%' && text_.substr(at_, 1) == L"%")
      sign();
    else
      put(ch);
  }

  void open() {
    if (formats_.size() < kMaxDepth)
      formats_.push_back(format_);
    else
      ++tooDeep_;
  }

  void close() {
    if (tooDeep_ > 0) {
      --tooDeep_;
    } else if (!formats_.empty()) {
      format_ = formats_.back();
      formats_.pop_back();
    }
  }

  void code(wchar_t ch) {
    constexpr std::wstring_view kSwitches = L"LlOoKk", kValues = L"AaCcFfHhQqTtWwp";
    if (ch == L'P' || ch == L'X')
      add(Word::kLineEnd);
    else if (ch == L'N')
      add(Word::kColumnEnd);
    else if (ch == L'~')
      addCharacter(0xA0);
    else if (ch == L'S')
      stack();
    else if (ch == L'U' || ch == L'M')
      character(ch);
    else if (kSwitches.find(ch) != kSwitches.npos)
      line(ch);
    else if (kValues.find(ch) != kValues.npos)
      value(ch);
    else
      put(ch); // an escaped brace or backslash, or no code at all
  }

  void line(wchar_t ch) {
    bool& shows = upperCase(ch) == L'L' ? format_.under : upperCase(ch) == L'O' ? format_.over : format_.through;
    shows = ch < L'a';
  }

  std::wstring_view upToSemicolon() {
    const std::size_t end = std::min(text_.find(L';', at_), text_.size());
    const std::wstring_view value = text_.substr(at_, end - at_);
    at_ = std::min(end + 1, text_.size());
    return value;
  }

  void value(wchar_t ch) {
    const std::wstring_view value = upToSemicolon();
    const std::optional<double> number = numberAt(value);
    const bool isFactor = !value.empty() && (value.back() == L'x' || value.back() == L'X');
    if (ch == L'p')
      paragraph(value);
    else if (ch == L'F' || ch == L'f')
      font(value);
    else if (ch == L'H' && number && *number > 0)
      format_.height = isFactor ? format_.height * *number : *number;
    else if (ch == L'W' && number && *number > 0)
      format_.widthFactor = isFactor ? format_.widthFactor * *number : *number;
    else if (ch == L'Q' && number)
      format_.oblique = toRadians(std::clamp(*number, -85.0, 85.0));
    else if (ch == L'C' && number)
      format_.color = OdCmColor{static_cast<std::int16_t>(std::clamp(*number, 0.0, 256.0)), OdCmColor::kNoTrueColor};
    else if (ch == L'c' && number)
      format_.color = OdCmColor{7, reversed(static_cast<std::int32_t>(std::clamp(*number, 0.0, 16777215.0)))};
  }

  // Red is the lowest byte.
  static std::int32_t reversed(std::int32_t bgr) { return ((bgr & 255) << 16) | (bgr & 0xFF00) | (bgr >> 16); }

  // family|b1|i0|c0|p34
  void font(std::wstring_view value) {
    const std::size_t bar = std::min(value.find(L'|'), value.size());
    format_.font = fontNamed(OdString(value.substr(0, bar)));
    isTolerance_ = OdString(value.substr(0, bar)).left(3).iCompare(L"gdt") == 0;
    const std::wstring_view rest = value.substr(bar);
    format_.font.bold = format_.font.bold || rest.find(L"|b1") != rest.npos;
    format_.font.italic = format_.font.italic || rest.find(L"|i1") != rest.npos;
  }

  // i first line, l others, q alignment; parted by commas.
  void paragraph(std::wstring_view value) {
    while (!value.empty()) {
      const std::size_t comma = std::min(value.find(L','), value.size());
      property(value.substr(0, comma));
      value.remove_prefix(std::min(comma + 1, value.size()));
    }
  }

  void property(std::wstring_view one) {
    if (one.substr(0, 1) == L"x")
      one.remove_prefix(1);
    if (one.size() < 2)
      return;
    const std::optional<double> number = numberAt(one.substr(1));
    if (one[0] == L'i' && number)
      paragraph_.firstIndent = *number;
    else if (one[0] == L'l' && number)
      paragraph_.indent = *number;
    else if (one[0] == L'q')
      paragraph_.align = one[1] == L'c'   ? Align::kCenter
                         : one[1] == L'r' ? Align::kRight
                         : one[1] == L'l' ? Align::kLeft
                                          : Align::kDefault;
  }

  void stack() {
    Word& word = add(Word::kStack);
    std::wstring* part = &word.text;
    for (const wchar_t ch : upToSemicolon()) {
      const bool divides = part == &word.text && (ch == L'^' || ch == L'/' || ch == L'#');
      if (divides) {
        word.hasBar = ch != L'^';
        part = &word.below;
      } else if (ch != L'\\') {
        *part += ch;
      }
    }
  }

  // \U+ and four digits, \M+ and five; those of \M need a code page and stand for themselves.
  void character(wchar_t ch) {
    unsigned value = 0;
    std::string digits;
    for (const wchar_t digit : text_.substr(std::min(at_ + 1, text_.size()), 4))
      digits += digit < 128 ? static_cast<char>(digit) : '?';
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    const bool isWhole = digits.size() == 4 && read.ptr == digits.data() + 4;
    if (ch != L'U' || text_.substr(at_, 1) != L"+" || !isWhole)
      return put(ch);
    addCharacter(static_cast<wchar_t>(value));
    at_ += 5;
  }

  void control() {
    const wchar_t ch = at_ < text_.size() ? text_[at_++] : L' ';
    if (ch == L'J')
      add(Word::kLineEnd);
    else if (ch == L'I')
      add(Word::kTab);
    else if (ch == L' ')
      addCharacter(L'^');
    else if (ch != L'M')
      (addCharacter(L'^'), put(ch));
  }

  void sign() {
    const std::vector<Piece> pieces = piecesOf(std::wstring(L"%") + std::wstring(text_.substr(at_, 4)));
    const std::wstring_view code = text_.substr(at_ + 1, 1);
    if (code.empty() || pieces.size() != 1 || std::wstring_view(L"cCdDpP%").find(code[0]) == std::wstring_view::npos)
      return addCharacter(L'%');
    addCharacter(pieces[0].text[0]);
    at_ += 2;
  }

  void put(wchar_t ch) {
    if (ch == L' ')
      add(Word::kSpace);
    else if (ch == L'\n')
      add(Word::kLineEnd);
    else if (ch == L'\t')
      add(Word::kTab);
    else if (ch >= 32)
      addCharacter(isTolerance_ ? toleranceSymbol(ch) : ch);
  }

  void addCharacter(wchar_t ch) {
    const bool begins = words_.empty() || words_.back().kind != Word::kText || !goesOn_ || mayBreakBefore(ch) ||
                        !isSame(words_.back().format, format_);
    if (begins)
      add(Word::kText);
    words_.back().text += ch;
    goesOn_ = !mayBreakBefore(ch);
  }

  static bool isSame(const CharFormat& a, const CharFormat& b) {
    return a.font == b.font && a.height == b.height && a.widthFactor == b.widthFactor && a.oblique == b.oblique &&
           a.color == b.color && a.under == b.under && a.over == b.over && a.through == b.through;
  }

  Word& add(Word::Kind kind) {
    Word& word = words_.emplace_back();
    word.kind = kind;
    word.format = format_;
    word.paragraph = paragraph_;
    goesOn_ = true;
    return word;
  }

  std::wstring_view text_;
  CharFormat format_;
  std::vector<CharFormat> formats_;
  ParagraphFormat paragraph_;
  std::vector<Word> words_;
  std::size_t at_ = 0, tooDeep_ = 0;
  bool goesOn_ = true, isTolerance_ = false;
};

} // namespace

std::vector<Word> readMText(std::wstring_view contents, const CharFormat& format) {
  return Reader(contents, format).read();
}

} // namespace drawing::gi
