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
  case GroupKind::kBool:
    return 1;
  case GroupKind::kInt16:
    return 2;
  case GroupKind::kInt32:
    return 4;
  case GroupKind::kInt64:
  case GroupKind::kReal:
    return 8;
  default:
    return 0;
  }
}

BinaryGroupSource::BinaryGroupSource(std::string_view content, Report& report)
    : content_(content), at_(std::min(kBinarySentinel, content.size())), report_(report),
      shortCodes_(hasShortCodes(content.substr(at_))) {}

void BinaryGroupSource::addIssue(const char* code, int groupCode, const char* found, const char* done) {
  report_.add({.code = code,
               .severity = Severity::kLost,
               .line = at_,
               .groupCode = groupCode,
               .found = found,
               .done = done,
               .isOffset = true});
}

bool BinaryGroupSource::code(int& value) {
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
    addIssue("dxf.binary-out-of-step", value, "a group code is expected here", "the rest of the file is not read");
    at_ = content_.size();
    return false;
  }
  at_ += size;
  return true;
}

bool BinaryGroupSource::text(RawGroup& group) {
  const std::size_t end = content_.find('\0', at_);
  if (end == std::string_view::npos)
    return false;
  group.form = RawGroup::Form::kText;
  group.text = content_.substr(at_, end - at_);
  if (hasLineBreak(group.text)) {
    breakToCarets(group.text, unbroken_.emplace_back());
    group.text = unbroken_.back();
  }
  at_ = end + 1;
  return true;
}

bool BinaryGroupSource::bytes(RawGroup& group) {
  const std::size_t size = left() == 0 ? 0 : static_cast<unsigned char>(content_[at_]);
  if (left() < size + 1)
    return false;
  group.form = RawGroup::Form::kBytes;
  group.text = content_.substr(at_ + 1, size);
  at_ += size + 1;
  return true;
}

bool BinaryGroupSource::number(RawGroup& group, std::size_t size) {
  if (left() < size)
    return false;
  const std::uint64_t bits = lowFirst(content_.substr(at_, size));
  group.text = {};
  if (groupKindOf(group.code) == GroupKind::kReal) {
    group.form = RawGroup::Form::kReal;
    static_assert(sizeof group.real == sizeof bits);
    std::memcpy(&group.real, &bits, sizeof bits);
  } else {
    group.form = RawGroup::Form::kInteger;
    group.integer = signExtended(bits, size);
  }
  at_ += size;
  return true;
}

bool BinaryGroupSource::value(RawGroup& group) {
  const GroupKind kind = groupKindOf(group.code);
  if (kind == GroupKind::kBinary)
    return bytes(group);
  const std::size_t size = binarySizeOf(kind);
  return size == 0 ? text(group) : number(group, size);
}

bool BinaryGroupSource::next(RawGroup& group) {
  if (!code(group.code))
    return false;
  group.line = at_;
  if (value(group))
    return true;
  addIssue("dxf.cut-off", group.code, "the file ends inside a value", "the group is dropped");
  at_ = content_.size();
  return false;
}

} // namespace drawing::dxf
