#include "DbReport.h"

#include <algorithm>
#include <charconv>

namespace drawing {

void Report::add(Issue issue) {
  worst_ = std::max(worst_, issue.severity);
  if (issues_.size() >= most_) {
    ++suppressed_;
    return;
  }
  issues_.push_back(std::move(issue));
}

Outcome Report::outcome() const {
  if (worst_ == Severity::Fatal)
    return Outcome::Refused;
  return worst_ == Severity::Note ? Outcome::Whole : Outcome::Repaired;
}

std::size_t Report::count(const char* code) const {
  return static_cast<std::size_t>(
      std::count_if(issues_.begin(), issues_.end(), [code](const Issue& issue) { return issue.code == code; }));
}

bool Report::has(const char* code) const {
  return count(code) != 0;
}

namespace {

std::string hex(std::uint64_t number) {
  char text[17];
  auto [end, error] = std::to_chars(text, text + sizeof text, number, 16);
  std::transform(text, end, text, [](char c) { return c >= 'a' ? static_cast<char>(c - 32) : c; });
  return {text, end};
}

} // namespace

std::string describe(const Issue& issue) {
  std::string place;
  const auto add = [&place](const std::string& part) { place += (place.empty() ? "" : ", ") + part; };
  if (issue.line != 0)
    add("line " + std::to_string(issue.line));
  if (!issue.section.empty())
    add("section " + issue.section);
  if (!issue.kind.empty())
    add(issue.kind + (issue.handle != 0 ? " " + hex(issue.handle) : ""));
  else if (issue.handle != 0)
    add("handle " + hex(issue.handle));
  if (issue.groupCode >= 0)
    add("group " + std::to_string(issue.groupCode));
  return place + (place.empty() ? "" : ": ") + issue.found + (issue.done.empty() ? "" : "; " + issue.done);
}

} // namespace drawing
