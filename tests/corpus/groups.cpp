#include "tests/corpus/groups.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <set>

namespace corpus {

namespace {

struct Range {
  int first, last;
  Kind kind;
};
constexpr Range kRanges[] = {
    {5, 5, Kind::kHandle},     {10, 59, Kind::kReal},      {60, 79, Kind::kWhole},     {90, 99, Kind::kWhole},
    {105, 105, Kind::kHandle}, {110, 149, Kind::kReal},    {160, 179, Kind::kWhole},   {210, 239, Kind::kReal},
    {270, 299, Kind::kWhole},  {310, 319, Kind::kBytes},   {320, 369, Kind::kHandle},  {370, 389, Kind::kWhole},
    {390, 399, Kind::kHandle}, {400, 409, Kind::kWhole},   {420, 429, Kind::kWhole},   {440, 459, Kind::kWhole},
    {460, 469, Kind::kReal},   {480, 481, Kind::kHandle},  {1004, 1004, Kind::kBytes}, {1005, 1005, Kind::kHandle},
    {1010, 1059, Kind::kReal}, {1060, 1071, Kind::kWhole},
};

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
    text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t'))
    text.remove_suffix(1);
  return text;
}

std::string spelled(int code, std::string_view value) {
  const Kind kind = kindOf(code);
  if (kind == Kind::kText)
    return std::string(value);
  std::string_view text = trimmed(value);
  if (kind == Kind::kBytes)
    return upper(text);
  if (kind == Kind::kHandle) {
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

bool takeLine(std::string_view& text, std::string_view& line) {
  if (text.empty())
    return false;
  const std::size_t end = std::min(text.find('\n'), text.size());
  line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  if (line.ends_with('\r'))
    line.remove_suffix(1);
  return true;
}

bool isOpaqueWhole(const std::string& section) {
  return section == "CLASSES" || section == "THUMBNAILIMAGE" || section == "ACDSDATA";
}

const std::set<std::string> kBrackets{"SECTION", "ENDSEC", "TABLE", "ENDTAB"};

class Collector {
public:
  void take(int code, std::string_view value) {
    if (code == 0) {
      close();
      record_.kind = trimmed(value);
      contents.starts += kBrackets.contains(record_.kind) ? 0 : 1;
      if (isOpaqueWhole(section_) && record_.kind != "ENDSEC")
        contents.others[section_].groups.push_back({0, record_.kind});
    } else if (code == 9 && record_.kind == "SECTION") { // a header variable
      variable_ = &contents.header[std::string(value)];
      *variable_ = {std::string(value), "HEADER", "", {}};
    } else {
      (variable_ != nullptr ? variable_->groups : record_.groups).push_back({code, spelled(code, value)});
    }
  }

  void close() {
    if (record_.kind == "SECTION" && !record_.groups.empty())
      section_ = record_.groups[0].value;
    else if (record_.kind == "ENDSEC")
      section_.clear();
    if (isOpaqueWhole(section_)) {
      auto& groups = contents.others[section_].groups;
      groups.insert(groups.end(), record_.groups.begin(), record_.groups.end());
    } else {
      keepByHandle();
    }
    record_ = {};
    variable_ = nullptr;
  }
  Contents contents;

private:
  void keepByHandle() {
    auto& groups = record_.groups;
    const int code = record_.kind == "DIMSTYLE" ? 105 : 5;
    const auto head = std::find_if(groups.begin(), groups.end(), [](const Group& group) { return group.code == 100; });
    const auto handle = std::find_if(groups.begin(), head, [code](const Group& group) { return group.code == code; });
    if (handle == head)
      return;
    const std::string name = handle->value;
    bool inApplication = false; // the owner stands outside "{NAME" ... "}"
    const auto owner = std::find_if(groups.begin(), head, [&inApplication](const Group& group) {
      if (group.code == 102)
        inApplication = group.value.starts_with('{');
      return group.code == 330 && !inApplication;
    });
    if (owner != head) {
      record_.owner = owner->value;
      groups.erase(owner);
    }
    record_.section = section_;
    contents.byHandle.emplace(name, std::move(record_));
  }

  Record record_;
  Record* variable_ = nullptr;
  std::string section_;
};

using Records = std::map<std::string, Record>;

class Comparison {
public:
  explicit Comparison(const Records& sources) : sources_(sources) {}

  void compareAll(const Records& sources, const Records& written) {
    for (const auto& [name, record] : sources) {
      const auto found = written.find(name);
      compare(name, record, found == written.end() ? nullptr : &found->second);
    }
  }
  std::vector<Loss> losses;

private:
  void compare(const std::string& name, const Record& source, const Record* written) {
    std::map<std::pair<int, std::string>, int> there;
    if (written != nullptr) {
      for (const Group& group : written->groups)
        ++there[{group.code, group.value}];
      if (source.owner != written->owner && ownerIsItsOwn(source))
        add(name, source, written, {330, source.owner});
    }
    for (const Group& group : source.groups) {
      if (--there[{group.code, group.value}] < 0)
        add(name, source, written, group);
    }
  }

  // Where a record stands decides about its owner, except for objects and for entities of the drawing; and only an
  // owner that can own it is believed.
  bool ownerIsItsOwn(const Record& record) const {
    if (record.owner.empty() || record.section == "OBJECTS")
      return !record.owner.empty();
    const auto owner = sources_.find(record.owner);
    if (record.section != "ENTITIES" || owner == sources_.end())
      return false;
    const bool isPart = record.kind == "ATTRIB" || record.kind == "VERTEX" || record.kind == "SEQEND";
    return (owner->second.kind == "BLOCK_RECORD") != isPart;
  }

  void add(const std::string& name, const Record& source, const Record* written, const Group& group) {
    const bool toNothing = kindOf(group.code) == Kind::kHandle && sources_.find(group.value) == sources_.end();
    losses.push_back({name, &source, written, group, toNothing});
  }

  const Records& sources_;
};

} // namespace

Kind kindOf(int code) {
  for (const Range& range : kRanges) {
    if (code >= range.first && code <= range.last)
      return range.kind;
  }
  return Kind::kText;
}

std::string upper(std::string_view text) {
  std::string out(text);
  std::transform(out.begin(), out.end(), out.begin(),
                 [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
  return out;
}

Contents contentsOf(std::string_view text) {
  Collector collector;
  if (text.starts_with("\xEF\xBB\xBF"))
    text.remove_prefix(3);
  std::string_view codeLine, value;
  while (takeLine(text, codeLine)) {
    int code = 0;
    const std::string_view digits = trimmed(codeLine);
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), code);
    if (digits.empty() || read.ptr != digits.data() + digits.size())
      continue; // a stray line
    if (!takeLine(text, value) || (code == 0 && value == "EOF"))
      break;
    collector.take(code, value);
  }
  collector.close();
  return std::move(collector.contents);
}

std::vector<Loss> lossesBetween(const Contents& source, const Contents& written) {
  Comparison comparison(source.byHandle);
  comparison.compareAll(source.byHandle, written.byHandle);
  comparison.compareAll(source.header, written.header);
  comparison.compareAll(source.others, written.others);
  return std::move(comparison.losses);
}

} // namespace corpus
