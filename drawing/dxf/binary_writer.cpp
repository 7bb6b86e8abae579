#include "drawing/dxf/group_source.h"
#include "drawing/dxf/text_writer.h"

#include <charconv>
#include <cstring>
#include <limits>

namespace drawing::dxf {

namespace {

// The sentence that begins every binary file, by its bytes.
constexpr char kSentence[] = {0x41, 0x75, 0x74, 0x6F, 0x43, 0x41, 0x44, 0x20, 0x42, 0x69, 0x6E,
                              0x61, 0x72, 0x79, 0x20, 0x44, 0x58, 0x46, 0x0D, 0x0A, 0x1A, 0x00};
static_assert(sizeof kSentence == kBinarySentinel);

constexpr std::size_t kLongestChunk = 127; // what text files hold in a line
constexpr int kShortEscape = 255;

bool fits(std::int64_t value, std::size_t size) {
  if (size == 8)
    return true;
  // Some programs write the bits of a negative number as a positive one.
  const std::int64_t half = std::int64_t{1} << (8 * size - 1);
  return value >= -half && value < 2 * half;
}

} // namespace

BinaryWriter::BinaryWriter(Target target) : FormWriter(std::move(target)), shortCodes_(version() < OdDb::kRelease13) {
  put(std::string_view(kSentence, sizeof kSentence));
}

void BinaryWriter::lowFirst(std::uint64_t bits, std::size_t size) {
  for (std::size_t i = 0; i < size; ++i)
    put(1, static_cast<char>(bits >> (8 * i)));
}

void BinaryWriter::begin(int code) {
  groupEnds();
  const bool isShort = shortCodes_ && code >= 0 && code < kShortEscape;
  if (shortCodes_ && !isShort)
    put(1, static_cast<char>(kShortEscape));
  lowFirst(static_cast<std::uint64_t>(code), isShort ? 1 : 2);
}

void BinaryWriter::plain(int number, std::string_view text) {
  begin(number);
  for (std::size_t end; (end = text.find('\0')) != std::string_view::npos; text.remove_prefix(end + 1)) {
    put(text.substr(0, end));
    put("\\U+0000"); // a text ends at its first zero
  }
  put(text);
  put(1, '\0');
}

void BinaryWriter::doesNotFit(int code, std::string_view text) {
  lost({.code = "dxf.value-not-in-binary",
        .severity = Severity::kLost,
        .groupCode = code,
        .found = "the value \"" + std::string(text.substr(0, 40)) + "\" does not fit its group code",
        .done = "binary DXF cannot store it; the group is omitted"});
}

void BinaryWriter::utf8(int code, std::string_view text) {
  recordPosition(code, text);
  plain(code, encoded(text));
}
void BinaryWriter::handle(int code, OdDbHandle value) {
  recordPosition(code, value);
  plain(code, value.ascii());
}
void BinaryWriter::reference(int code, OdDbObjectId id) {
  plain(code, id.getHandle().ascii());
}

void BinaryWriter::real(int number, double value) {
  begin(number);
  std::uint64_t bits = 0;
  static_assert(sizeof bits == sizeof value);
  std::memcpy(&bits, &value, sizeof bits);
  lowFirst(bits, sizeof bits);
}

void BinaryWriter::integer(int number, std::int64_t value) {
  const std::size_t size = binarySizeOf(groupKindOf(number));
  if (size == 0 || !fits(value, size))
    return doesNotFit(number, std::to_string(value));
  begin(number);
  lowFirst(static_cast<std::uint64_t>(value), size);
}

void BinaryWriter::binary(int number, std::string_view bytes) {
  do {
    const std::string_view chunk = bytes.substr(0, kLongestChunk);
    begin(number);
    put(1, static_cast<char>(chunk.size()));
    put(chunk);
    bytes.remove_prefix(chunk.size());
  } while (!bytes.empty());
}

// A value that could not be parsed for its code is written as text if the code is that of a text, and as its number if
// it is only not finite.
void BinaryWriter::unparsed(int number, std::string_view text) {
  const GroupKind kind = groupKindOf(number);
  if (kind == GroupKind::kText || kind == GroupKind::kHandle || kind == GroupKind::kReference)
    return plain(number, text);
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (kind == GroupKind::kReal && error == std::errc() && end == text.data() + text.size())
    return real(number, value);
  doesNotFit(number, text);
}

} // namespace drawing::dxf
