#include "drawing/dxf/group_source.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace drawing::dxf {

bool GroupSource::nextRecord(Record& record) {
  record.clear();
  if (!hasAhead_ && !next(ahead_))
    return false;
  hasAhead_ = false;
  record.push_back(ahead_);
  if (ahead_.code == 0 && ahead_.text == "EOF")
    return true;
  while (next(ahead_)) {
    isOverLimit_ = record.size() >= maxGroups_;
    if (ahead_.code == 0 || isOverLimit_) {
      hasAhead_ = true;
      break;
    }
    record.push_back(ahead_);
  }
  return true;
}

TextGroupSource::TextGroupSource(std::string_view content, Report& report)
    : at_(content.data()), end_(content.data() + content.size()), report_(report) {
  if (content.substr(0, 3) == "\xEF\xBB\xBF")
    at_ += 3;
  hasReturns_ = content.find('\r') != std::string_view::npos;
  if (hasReturns_ && content.find('\n') == std::string_view::npos)
    ending_ = '\r';
}

namespace {

bool parseCode(std::string_view text, int& value) {
  std::size_t i = 0;
  while (i < text.size() && (text[i] == ' ' || text[i] == '\t'))
    ++i;
  const bool negative = i < text.size() && text[i] == '-';
  i += negative ? 1 : 0;
  int number = 0;
  std::size_t digits = 0;
  for (; i < text.size() && text[i] >= '0' && text[i] <= '9' && digits < 5; ++i, ++digits)
    number = number * 10 + (text[i] - '0');
  while (i < text.size() && (text[i] == ' ' || text[i] == '\t'))
    ++i;
  value = negative ? -number : number;
  return digits != 0 && i == text.size();
}

} // namespace

bool TextGroupSource::line(std::string_view& text, bool isValue) {
  if (at_ >= end_)
    return false;
  const auto* stop = static_cast<const char*>(std::memchr(at_, ending_, static_cast<std::size_t>(end_ - at_)));
  const char* last = stop == nullptr ? end_ : stop;
  text = std::string_view(at_, static_cast<std::size_t>(last - at_));
  at_ = stop == nullptr ? end_ : stop + 1;
  ++lineNumber_;
  if (!hasReturns_) { // most files
    if (text.size() > kMaxLineLength)
      recordLineEnding(kOneSign, text.size());
    return true;
  }
  const std::size_t whole = text.size();
  while (!text.empty() && text.back() == '\r')
    text.remove_suffix(1);
  if (stop != nullptr)
    recordLineEnding(whole != text.size() ? kReturnAndFeed : kOneSign, text.size());
  if (const std::size_t cut = loneReturn(text, isValue); cut < text.size()) {
    at_ = text.data() + cut + 1;
    recordLineEnding(kReturnAlone, cut);
    text = text.substr(0, cut);
  }
  return true;
}

// Deviations that other programs may not accept; each is reported once.
void TextGroupSource::recordLineEnding(int ending, std::size_t length) {
  const auto addIssue = [this](const char* code, const char* found) {
    report_.add(
        {.code = code, .severity = Severity::kNote, .line = lineNumber_, .found = found, .done = "it is read anyway"});
  };
  const int before = std::exchange(endings_, endings_ | ending);
  if (before != 0 && before != endings_ && (before & (before - 1)) == 0)
    addIssue("dxf.mixed-line-ends", "mixed line endings");
  if (length > kMaxLineLength && !std::exchange(sawLong_, true))
    addIssue("dxf.long-line", "a line is longer than the format allows");
}

// A return inside a value may belong to it, unless a group code follows it.
std::size_t TextGroupSource::loneReturn(std::string_view text, bool isValue) const {
  const std::size_t at = text.find('\r');
  if (at == std::string_view::npos || !isValue)
    return std::min(at, text.size());
  const std::string_view rest = text.substr(at + 1);
  int code = 0;
  return parseCode(rest.substr(0, rest.find('\r')), code) ? at : text.size();
}

bool TextGroupSource::hasRest() const {
  constexpr std::string_view kNothing(" \t\r\n\x1a\0", 6);
  return std::string_view(at_, static_cast<std::size_t>(end_ - at_)).find_first_not_of(kNothing) !=
         std::string_view::npos;
}

bool TextGroupSource::code(int& value) {
  std::string_view text;
  while (line(text, false)) {
    if (parseCode(text, value))
      return true;
    const bool space = text.find_first_not_of(" \t\x1a") == std::string_view::npos;
    if (space && at_ >= end_)
      return false; // the file's last line
    report_.add({.code = "dxf.group-code-expected",
                 .severity = Severity::kLost,
                 .line = lineNumber_,
                 .found = "the line \"" + std::string(text.substr(0, 40)) + "\" is not a group code",
                 .done = "the line is skipped"});
  }
  return false;
}

bool TextGroupSource::next(RawGroup& group) {
  if (!code(group.code))
    return false;
  group.form = RawGroup::Form::kText;
  if (!line(group.text, true)) {
    report_.add({.code = "dxf.cut-off",
                 .severity = Severity::kLost,
                 .line = lineNumber_,
                 .groupCode = group.code,
                 .found = "the file ends after a group code",
                 .done = "the group is dropped"});
    return false;
  }
  group.line = lineNumber_;
  return true;
}

} // namespace drawing::dxf
