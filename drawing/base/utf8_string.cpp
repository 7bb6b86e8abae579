#include "OdString.h"
#include "drawing/base/utf8.h"

using drawing::appendUtf8;
using drawing::isSurrogate;
using drawing::utf8At;
using drawing::Utf8Character;

namespace {

constexpr std::uint32_t kLastCharacter = 0x10FFFF;
constexpr std::uint32_t kUnknown = 0xFFFD;
constexpr std::uint32_t kStrayByte = 0xDC00; // a byte b that is not UTF-8 is stored as kStrayByte + b

// How many bytes a character takes by its first, and the least character that needs so many.
Utf8Character shapeOf(std::uint8_t lead) {
  if (lead >= 0xC2 && lead < 0xE0)
    return {0x80, 2};
  if (lead >= 0xE0 && lead < 0xF0)
    return {0x800, 3};
  if (lead >= 0xF0 && lead < 0xF5)
    return {0x10000, 4};
  return {};
}

} // namespace

namespace drawing {

void appendUtf8(std::string& out, std::uint32_t ch) {
  const auto tail = [&](int shift) { out += static_cast<char>(0x80 | ((ch >> shift) & 0x3F)); };
  if (ch < 0x80) {
    out += static_cast<char>(ch);
  } else if (ch < 0x800) {
    out += static_cast<char>(0xC0 | (ch >> 6));
    tail(0);
  } else if (ch < 0x10000) {
    out += static_cast<char>(0xE0 | (ch >> 12));
    tail(6);
    tail(0);
  } else {
    out += static_cast<char>(0xF0 | (ch >> 18));
    tail(12);
    tail(6);
    tail(0);
  }
}

Utf8Character utf8At(std::string_view bytes) {
  if (bytes.empty())
    return {};
  const auto lead = static_cast<std::uint8_t>(bytes[0]);
  if (lead < 0x80)
    return {lead, 1};
  const Utf8Character shape = shapeOf(lead);
  if (shape.bytes == 0 || bytes.size() < shape.bytes)
    return {};
  std::uint32_t ch = lead & (0xFFu >> (shape.bytes + 1));
  for (std::size_t i = 1; i < shape.bytes; ++i) {
    const auto next = static_cast<std::uint8_t>(bytes[i]);
    if ((next & 0xC0) != 0x80)
      return {};
    ch = (ch << 6) | (next & 0x3Fu);
  }
  if (ch < shape.character || ch > kLastCharacter || isSurrogate(ch))
    return {};
  return {ch, shape.bytes};
}

} // namespace drawing

std::string OdString::toUtf8() const {
  std::string bytes;
  const std::wstring_view text = visible();
  bytes.reserve(text.size());
  for (wchar_t wide : text) {
    const auto ch = static_cast<std::uint32_t>(wide);
    if (ch > kLastCharacter || isSurrogate(ch))
      return {};
    appendUtf8(bytes, ch);
  }
  return bytes;
}

OdString OdString::fromUtf8(std::string_view bytes) {
  std::wstring text;
  text.reserve(bytes.size());
  for (std::size_t at = 0; at < bytes.size();) {
    const auto byte = static_cast<std::uint8_t>(bytes[at]);
    const Utf8Character one = utf8At(bytes.substr(at));
    text += static_cast<wchar_t>(one.bytes == 0 ? kStrayByte + byte : one.character);
    at += one.bytes == 0 ? 1 : one.bytes;
  }
  return OdString(std::move(text));
}

std::string OdString::toUtf8Lossless() const {
  std::string bytes;
  bytes.reserve(text_.size());
  for (wchar_t wide : text_) {
    const auto ch = static_cast<std::uint32_t>(wide);
    if (ch >= kStrayByte + 0x80 && ch <= kStrayByte + 0xFF)
      bytes += static_cast<char>(ch - kStrayByte);
    else
      appendUtf8(bytes, ch > kLastCharacter || isSurrogate(ch) ? kUnknown : ch);
  }
  return bytes;
}
