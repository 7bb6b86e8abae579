#include "drawing/dxf/group_source.h"
#include "drawing/io/text_codec.h"

#include <cstring>

namespace drawing::dxf {

namespace {

constexpr int kLastCode = 1071;
constexpr int kFirstCode = -5;

// Numbers stand with their lowest byte first, whatever the machine.
std::uint64_t lowFirst(std::string_view bytes) {
  std::uint64_t value = 0;
  for (std::size_t i = bytes.size(); i-- > 0;)
    value = (value << 8) | static_cast<unsigned char>(bytes[i]);
  return value;
}

std::int64_t signExtended(std::uint64_t bits, std::size_t size) {
  const unsigned unused = static_cast<unsigned>(8 * (8 - size));
  return static_cast<std::int64_t>(bits << unused) >> unused;
}

// Files of R13 and later begin with the two bytes of code 0, or of 999 for a comment.
bool hasShortCodes(std::string_view groups) {
  return groups.substr(0, 2) != std::string_view("\0\0", 2) && groups.substr(0, 2) != "\xE7\x03";
}

} // namespace

std::size_t binarySizeOf(GroupKind kind) {
  switch (kind) {
  case GroupKind::Bool:
    return 1;
  case GroupKind::Int16:
    return 2;
  case GroupKind::Int32:
    return 4;
  case GroupKind::Int64:
  case GroupKind::Real:
    return 8;
  default:
    return 0;
  }
}

BinaryPairSource::BinaryPairSource(std::string_view content, Report& report)
    : content_(content), at_(std::min(kBinarySentinel, content.size())), report_(report),
      shortCodes_(hasShortCodes(content.substr(at_))) {}

void BinaryPairSource::addIssue(const char* code, int groupCode, const char* found, const char* done) {
  report_.add({code, Severity::Lost, at_, groupCode, 0, "", "", found, done, true});
}

bool BinaryPairSource::code(int& value) {
  std::size_t size = shortCodes_ ? 1 : 2;
  if (shortCodes_ && left() > 0 && content_[at_] == '\xFF') {
    ++at_;
    size = 2;
  }
  if (left() < size) {
    at_ = content_.size();
    return false;
  }
  const std::uint64_t bits = lowFirst(content_.substr(at_, size));
  value = static_cast<int>(size == 1 ? static_cast<std::int64_t>(bits) : signExtended(bits, size));
  if (value < kFirstCode || value > kLastCode) {
    addIssue("dxf.binary-out-of-step", value, "no group code stands here", "the rest of the file is not read");
    at_ = content_.size();
    return false;
  }
  at_ += size;
  return true;
}

bool BinaryPairSource::text(Pair& pair) {
  const std::size_t end = content_.find('\0', at_);
  if (end == std::string_view::npos)
    return false;
  pair.form = Pair::Form::Text;
  pair.text = content_.substr(at_, end - at_);
  if (hasLineBreak(pair.text)) {
    breakToCarets(pair.text, unbroken_.emplace_back());
    pair.text = unbroken_.back();
  }
  at_ = end + 1;
  return true;
}

bool BinaryPairSource::bytes(Pair& pair) {
  const std::size_t size = left() == 0 ? 0 : static_cast<unsigned char>(content_[at_]);
  if (left() < size + 1)
    return false;
  pair.form = Pair::Form::Bytes;
  pair.text = content_.substr(at_ + 1, size);
  at_ += size + 1;
  return true;
}

bool BinaryPairSource::number(Pair& pair, std::size_t size) {
  if (left() < size)
    return false;
  const std::uint64_t bits = lowFirst(content_.substr(at_, size));
  pair.text = {};
  if (groupKindOf(pair.code) == GroupKind::Real) {
    pair.form = Pair::Form::Real;
    static_assert(sizeof pair.real == sizeof bits);
    std::memcpy(&pair.real, &bits, sizeof bits);
  } else {
    pair.form = Pair::Form::Integer;
    pair.integer = signExtended(bits, size);
  }
  at_ += size;
  return true;
}

bool BinaryPairSource::value(Pair& pair) {
  const GroupKind kind = groupKindOf(pair.code);
  if (kind == GroupKind::Binary)
    return bytes(pair);
  const std::size_t size = binarySizeOf(kind);
  return size == 0 ? text(pair) : number(pair, size);
}

bool BinaryPairSource::next(Pair& pair) {
  if (!code(pair.code))
    return false;
  pair.line = at_;
  if (value(pair))
    return true;
  addIssue("dxf.cut-off", pair.code, "the file ends inside a value", "the group is dropped");
  at_ = content_.size();
  return false;
}

} // namespace drawing::dxf
