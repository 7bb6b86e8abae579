#include "drawing/io/text_codec.h"

#include <algorithm>
#include <charconv>
#include <cstring>

namespace drawing::dxf {

bool isAscii(std::string_view text) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080;
  std::size_t at = 0;
  for (; at + 8 <= text.size(); at += 8) {
    std::uint64_t eight = 0;
    std::memcpy(&eight, text.data() + at, 8);
    if ((eight & kHighBits) != 0)
      return false;
  }
  for (; at < text.size(); ++at) {
    if (static_cast<unsigned char>(text[at]) >= 0x80)
      return false;
  }
  return true;
}

namespace {

constexpr std::size_t kUnicodeEscape = 7; // \U+XXXX
constexpr std::size_t kPageEscape = 8;    // \M+nXXXX
constexpr std::uint32_t kStrayByte = 0xDC00;
constexpr int kEscapedPages[] = {932, 950, 949, 1361, 936};

bool readHex(std::string_view digits, std::uint32_t& value) {
  if (digits.size() != 4)
    return false;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + 4, value, 16);
  return error == std::errc() && end == digits.data() + 4;
}

void appendEscape(std::string& out, std::uint32_t unit) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  out += "\\U+";
  for (int shift = 12; shift >= 0; shift -= 4)
    out += kDigits[(unit >> shift) & 0xF];
}

bool beginsEscape(std::string_view text) {
  return text.size() >= kUnicodeEscape && text[0] == '\\' && (text[1] == 'U' || text[1] == 'M') && text[2] == '+';
}

// Perhaps: malformed ones count.
bool hasEscape(std::string_view text) {
  std::size_t at = text.find('\\');
  while (at != std::string_view::npos && !beginsEscape(text.substr(at)))
    at = text.find('\\', at + 1);
  return at != std::string_view::npos;
}

// A byte in the guise of three, as surrogates would be written: ED B2 80 .. ED B3 BF. -1 when there is none.
int escapedByte(std::string_view text) {
  if (text.size() < 3 || text[0] != '\xED' || (text[1] != '\xB2' && text[1] != '\xB3') || (text[2] & 0xC0) != 0x80)
    return -1;
  return (text[1] == '\xB2' ? 0x80 : 0xC0) | (text[2] & 0x3F);
}

void appendEscapedByte(std::string& out, char byte) {
  out += '\xED';
  out += (byte & 0x40) == 0 ? '\xB2' : '\xB3';
  out += static_cast<char>(0x80 | (byte & 0x3F));
}

void appendEscapes(std::string& out, std::uint32_t ch) {
  if (ch < 0x10000)
    return appendEscape(out, ch);
  appendEscape(out, 0xD800 + ((ch - 0x10000) >> 10));
  appendEscape(out, 0xDC00 + (ch & 0x3FF));
}

// Would a decoder of these bytes find more than stray bytes?
bool misleads(std::string_view bytes) {
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    if (utf8At(bytes.substr(at)).bytes != 0 || escapedByte(bytes.substr(at)) >= 0)
      return true;
  }
  return false;
}

} // namespace

bool hasLineBreak(std::string_view text) {
  return text.find('\n') != std::string_view::npos || text.find('\r') != std::string_view::npos;
}

void breakToCarets(std::string_view text, std::string& out) {
  out.clear();
  for (char ch : text) {
    if (ch == '\r' || ch == '\n')
      out += '^';
    out += ch == '\r' ? 'M' : ch == '\n' ? 'J' : ch;
  }
}

// Puts decoded text together. Bytes that the page does not know are looked at together: side by side they could pass
// for a character.
class TextCodec::Writer {
public:
  Writer(std::string& out, bool escapesBytes) : out_(out), escapesBytes_(escapesBytes) {}

  void escape(const Escape& escape) {
    const char byte = static_cast<char>(escape.character);
    if (escape.isByte)
      text({&byte, 1});
    else
      character(escape.character);
  }
  void text(std::string_view characters) {
    endRun();
    out_ += characters;
  }
  void character(std::uint32_t ch) {
    endRun();
    appendUtf8(out_, ch);
  }
  void unknown(char byte) { run_ += byte; }
  void endRun() {
    if (run_.empty())
      return;
    if (escapesBytes_ && run_.size() > 1 && misleads(run_)) {
      for (char byte : run_)
        appendEscapedByte(out_, byte);
    } else {
      out_ += run_;
    }
    run_.clear();
  }

private:
  std::string& out_;
  std::string run_;
  bool escapesBytes_;
};

TextCodec::TextCodec(std::string_view codePage, Mode mode) : number_(codePageNumber(codePage)) {
  if (number_ == 0) {
    number_ = 1252;
    isKnown_ = false;
  }
  isUtf8_ = mode == Mode::kUtf8 || number_ == kUtf8Page;
}

TextCodec::~TextCodec() = default;

std::string TextCodec::codePage() const {
  return codePageName(number_);
}

CodePage& TextCodec::page(int number, std::unique_ptr<CodePage>& slot) {
  if (slot == nullptr)
    slot = std::make_unique<CodePage>(number);
  return *slot;
}

TextCodec::Escape TextCodec::unicodeEscape(std::string_view text) const {
  std::uint32_t unit = 0;
  if (!readHex(text.substr(3, 4), unit))
    return {};
  if (!isSurrogate(unit))
    return {unit, kUnicodeEscape, false};
  if (unit >= 0xDC00) {
    const bool isByte = !isUtf8_ && unit >= kStrayByte + 0x80 && unit <= kStrayByte + 0xFF;
    return isByte ? Escape{unit - kStrayByte, kUnicodeEscape, true} : Escape();
  }
  const std::string_view next = text.substr(kUnicodeEscape);
  std::uint32_t low = 0;
  if (!beginsEscape(next) || next[1] != 'U' || !readHex(next.substr(3, 4), low) || low < 0xDC00 || low > 0xDFFF)
    return {};
  return {0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00), 2 * kUnicodeEscape, false};
}

TextCodec::Escape TextCodec::pageEscape(std::string_view text) {
  std::uint32_t code = 0;
  if (text.size() < kPageEscape || text[3] < '1' || text[3] > '5' || !readHex(text.substr(4, 4), code))
    return {};
  if (code < 0x80)
    return {code, kPageEscape, false};
  const char bytes[2] = {static_cast<char>(code >> 8), static_cast<char>(code)};
  const std::string_view known = code < 0x100 ? std::string_view(bytes + 1, 1) : std::string_view(bytes, 2);
  const auto which = static_cast<std::size_t>(text[3] - '1');
  const CodePage::Character found = page(kEscapedPages[which], escaped_[which]).decode(known);
  return found.bytes == known.size() ? Escape{found.value, kPageEscape, false} : Escape();
}

TextCodec::Escape TextCodec::escapeAt(std::string_view text) {
  if (!beginsEscape(text))
    return {};
  return text[1] == 'U' ? unicodeEscape(text) : pageEscape(text);
}

void TextCodec::count(const char* position) {
  if (++undecodable_ == 1)
    firstUndecodable_ = position;
}

Utf8Character TextCodec::characterAt(std::string_view bytes) {
  if (isUtf8_)
    return utf8At(bytes);
  const CodePage::Character found = page(number_, own_).decode(bytes);
  return {found.value, found.bytes};
}

void TextCodec::decodeTo(std::string_view bytes, std::string& out, bool counts) {
  out.clear();
  Writer writer(out, !isUtf8_);
  for (std::size_t at = 0; at < bytes.size();) {
    const std::string_view rest = bytes.substr(at);
    if (const Escape escape = escapeAt(rest); escape.length != 0) {
      writer.escape(escape);
      at += escape.length;
    } else if (static_cast<unsigned char>(rest[0]) < 0x80) {
      writer.text(rest.substr(0, 1));
      ++at;
    } else if (const Utf8Character one = characterAt(rest); one.bytes != 0) {
      writer.character(one.character);
      at += one.bytes;
    } else {
      writer.unknown(rest[0]);
      if (counts)
        count(rest.data());
      ++at;
    }
  }
  writer.endRun();
}

std::string_view TextCodec::decode(std::string_view bytes, std::string& buffer) {
  const bool escaped = hasEscape(bytes);
  if (!escaped && isAscii(bytes))
    return bytes;
  if (!escaped && isUtf8_) {
    countStrays(bytes);
    return bytes;
  }
  decodeTo(bytes, buffer, true);
  return buffer;
}

void TextCodec::countStrays(std::string_view bytes) {
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t length = utf8At(bytes.substr(at)).bytes;
    if (length == 0)
      count(bytes.data() + at);
    at += length == 0 ? 1 : length;
  }
}

void TextCodec::encodeCharacter(std::uint32_t ch, std::string_view utf8, std::string& out) {
  if (isUtf8_) {
    out += utf8;
    return;
  }
  const CodePage::Code code = page(number_, own_).encode(ch);
  if (code.length != 0) {
    out += code.text();
  } else {
    appendEscapes(out, ch);
  }
}

// Answers whether there are stray bytes. Strictly, they are written as escapes.
bool TextCodec::encodeTo(std::string_view text, std::string& out, bool strictly) {
  bool strays = false;
  out.clear();
  for (std::size_t at = 0; at < text.size();) {
    const std::string_view rest = text.substr(at);
    const Utf8Character one = utf8At(rest);
    at += one.bytes;
    if (one.bytes > 1) {
      encodeCharacter(one.character, rest.substr(0, one.bytes), out);
    } else if (one.bytes == 1) {
      if (strictly ? beginsEscape(rest) : escapeAt(rest).length != 0)
        appendEscape(out, '\\');
      else
        out += rest[0];
    } else {
      strays = true;
      const int stray = isUtf8_ || strictly ? -1 : escapedByte(rest);
      if (strictly)
        appendEscape(out, kStrayByte + static_cast<unsigned char>(rest[0]));
      else
        out += stray < 0 ? rest[0] : static_cast<char>(stray);
      at += stray < 0 ? 1 : 3;
    }
  }
  return strays;
}

std::string_view TextCodec::encodeInPage(std::string_view text, std::string& buffer) {
  const bool broken = hasLineBreak(text);
  if (broken)
    breakToCarets(text, unbroken_);
  const std::string_view whole = broken ? std::string_view(unbroken_) : text;
  if ((isUtf8_ || isAscii(whole)) && !hasEscape(whole)) {
    if (!broken)
      return text;
    buffer = unbroken_;
    return buffer;
  }
  const bool strays = encodeTo(whole, buffer, false);
  if (!strays || isUtf8_)
    return buffer;
  // Stray bytes go out as they are unless the page, or the bytes after them, give them another meaning.
  decodeTo(buffer, check_, false);
  if (check_ != whole)
    encodeTo(whole, buffer, true);
  return buffer;
}

namespace {

bool passesForUtf8(std::string_view bytes) {
  bool hasMore = false;
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t length = utf8At(bytes.substr(at)).bytes;
    if (length == 0)
      return false;
    hasMore = hasMore || length > 1;
    at += length;
  }
  return hasMore;
}

} // namespace

void TextCodec::encodeInEscapes(std::string_view text, std::string& out) const {
  out.clear();
  for (std::size_t at = 0; at < text.size();) {
    const std::string_view rest = text.substr(at);
    const Utf8Character one = utf8At(rest);
    if (one.bytes == 0)
      appendEscape(out, kStrayByte + static_cast<unsigned char>(rest[0]));
    else if (one.bytes > 1)
      appendEscapes(out, one.character);
    else if (beginsEscape(rest))
      appendEscape(out, '\\');
    else
      out += rest[0];
    at += std::max<std::size_t>(one.bytes, 1);
  }
}

std::string_view TextCodec::encode(std::string_view text, std::string& buffer) {
  const std::string_view bytes = encodeInPage(text, buffer);
  if (!escapesAmbiguous_ || !passesForUtf8(bytes))
    return bytes;
  const std::string whole(hasLineBreak(text) ? std::string_view(unbroken_) : text);
  encodeInEscapes(whole, buffer);
  return buffer;
}

} // namespace drawing::dxf
