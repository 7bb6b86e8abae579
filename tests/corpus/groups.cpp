#include "tests/corpus/groups.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace corpus {

namespace {

struct Range {
  int first, last;
  Kind kind;
};
constexpr Range kRanges[] = {
    {5, 5, Kind::Handle},         {10, 59, Kind::Real},         {60, 79, Kind::Whole},      {90, 99, Kind::Whole},
    {105, 105, Kind::Handle},     {110, 149, Kind::Real},       {160, 179, Kind::Whole},    {210, 239, Kind::Real},
    {270, 299, Kind::Whole},      {310, 319, Kind::Bytes},      {320, 369, Kind::Handle},   {370, 389, Kind::Whole},
    {390, 399, Kind::Handle},     {400, 409, Kind::Whole},      {420, 429, Kind::Whole},    {440, 459, Kind::Whole},
    {460, 469, Kind::Real},       {480, 481, Kind::Handle},     {1004, 1004, Kind::Bytes},  {1005, 1005, Kind::Handle},
    {1010, 1059, Kind::Real},     {1060, 1071, Kind::Whole},
};

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
    text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t'))
    text.remove_suffix(1);
  return text;
}

std::string upper(std::string_view text) {
  std::string out(text);
  std::transform(out.begin(), out.end(), out.begin(), [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
  return out;
}

std::string spelled(int code, std::string_view value) {
  const Kind kind = kindOf(code);
  if (kind == Kind::Text)
    return std::string(value);
  std::string_view text = trimmed(value);
  if (kind == Kind::Bytes)
    return upper(text);
  if (kind == Kind::Handle) {
    text.remove_prefix(std::min(text.find_first_not_of('0'), text.size()));
    return text.empty() ? "0" : upper(text);
  }
  double number = 0;
  if (!text.empty() && text.front() == '+')
    text.remove_prefix(1);
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  if (read.ec != std::errc() || read.ptr != text.data() + text.size() || !std::isfinite(number))
    return std::string(value);
  char digits[40];
  const auto end = std::to_chars(digits, digits + sizeof digits, number == 0 ? 0.0 : number).ptr;
  return std::string(digits, end);
}

class Lines {
public:
  explicit Lines(std::string_view text) : rest_(text) {
    if (rest_.substr(0, 3) == "\xEF\xBB\xBF")
      rest_.remove_prefix(3);
  }
  bool next(std::string_view& line) {
    if (rest_.empty())
      return false;
    const std::size_t end = std::min(rest_.find('\n'), rest_.size());
    line = rest_.substr(0, end);
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    if (!line.empty() && line.back() == '\r')
      line.remove_suffix(1);
    return true;
  }

private:
  std::string_view rest_;
};

class Collector {
public:
  void take(int code, std::string_view value) {
    if (code == 0) {
      close();
      record_.kind = trimmed(value);
    } else if (code == 9 && record_.kind == "SECTION") { // a header variable
      variable_ = &contents.header[std::string(value)];
      variable_->kind = value;
      variable_->section = "HEADER";
    } else if (variable_ != nullptr) {
      variable_->groups.push_back({code, spelled(code, value)});
    } else {
      record_.groups.push_back({code, spelled(code, value)});
    }
  }
  void close() {
    if (record_.kind == "SECTION" && !record_.groups.empty())
      section_ = record_.groups[0].value;
    const bool hasObjects = section_ != "CLASSES" && section_ != "THUMBNAILIMAGE" && section_ != "ACDSDATA";
    const int code = record_.kind == "DIMSTYLE" ? 105 : 5;
    const auto handle = std::find_if(record_.groups.begin(), record_.groups.end(),
                                     [code](const Group& group) { return group.code == code || group.code == 100; });
    if (hasObjects && handle != record_.groups.end() && handle->code == code) {
      record_.section = section_;
      contents.byHandle.emplace(handle->value, std::move(record_));
    }
    record_ = {};
    variable_ = nullptr;
  }
  Contents contents;

private:
  Record record_;
  Record* variable_ = nullptr;
  std::string section_;
};

void compare(const std::string& name, const Record& source, const Record* written, std::vector<Loss>& losses) {
  std::map<std::pair<int, std::string>, int> there;
  if (written != nullptr) {
    for (const Group& group : written->groups)
      ++there[{group.code, group.value}];
  }
  for (const Group& group : source.groups) {
    if (--there[{group.code, group.value}] < 0)
      losses.push_back({source.kind + " " + name, source.section, source.kind, group, written});
  }
}

} // namespace

Kind kindOf(int code) {
  for (const Range& range : kRanges) {
    if (code >= range.first && code <= range.last)
      return range.kind;
  }
  return Kind::Text;
}

Contents contentsOf(std::string_view text) {
  Collector collector;
  Lines lines(text);
  std::string_view codeLine, value;
  while (lines.next(codeLine)) {
    int code = 0;
    const std::string_view digits = trimmed(codeLine);
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), code);
    if (digits.empty() || read.ptr != digits.data() + digits.size())
      continue; // a stray line
    if (!lines.next(value))
      break;
    collector.take(code, value);
  }
  collector.close();
  return std::move(collector.contents);
}

std::vector<Loss> lossesBetween(const Contents& source, const Contents& written) {
  std::vector<Loss> losses;
  for (const auto& [handle, record] : source.byHandle) {
    const auto found = written.byHandle.find(handle);
    compare(handle, record, found == written.byHandle.end() ? nullptr : &found->second, losses);
  }
  for (const auto& [name, variable] : source.header) {
    const auto found = written.header.find(name);
    compare(name, variable, found == written.header.end() ? nullptr : &found->second, losses);
  }
  return losses;
}

} // namespace corpus
