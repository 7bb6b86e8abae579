#include "drawing/report.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace drawing {

void Report::add(Issue issue) {
  worst_ = std::max(worst_, issue.severity);
  if (issues_.size() >= limit_) {
    ++suppressed_;
    return;
  }
  issues_.push_back(std::move(issue));
}

Outcome Report::outcome() const {
  if (worst_ == Severity::kFatal)
    return Outcome::kRefused;
  return worst_ == Severity::kNote ? Outcome::kWhole : Outcome::kRepaired;
}

std::size_t Report::count(const char* code) const {
  return static_cast<std::size_t>(
      std::count_if(issues_.begin(), issues_.end(), [code](const Issue& issue) { return issue.code == code; }));
}

bool Report::has(const char* code) const {
  return count(code) != 0;
}

namespace {

// Hexadecimal capitals without leading zeros, as files hold handles.
std::string handleText(std::uint64_t handle) {
  char digits[16];
  const auto end = std::to_chars(digits, digits + sizeof digits, handle, 16).ptr;
  std::transform(digits, end, digits, [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  return std::string(digits, end);
}

} // namespace

std::string locationOf(const Issue& issue) {
  std::string location;
  const auto add = [&location](const std::string& part) { location += (location.empty() ? "" : ", ") + part; };
  if (issue.line != 0)
    add((issue.isOffset ? "byte " : "line ") + std::to_string(issue.line));
  if (!issue.section.empty())
    add("section " + issue.section);
  if (!issue.kind.empty())
    add(issue.kind + (issue.handle != 0 ? " " + handleText(issue.handle) : ""));
  else if (issue.handle != 0)
    add("handle " + handleText(issue.handle));
  if (issue.groupCode >= 0)
    add("group " + std::to_string(issue.groupCode));
  return location;
}

std::string describe(const Issue& issue) {
  const std::string location = locationOf(issue);
  return location + (location.empty() ? "" : ": ") + issue.found + (issue.done.empty() ? "" : "; " + issue.done);
}

} // namespace drawing
