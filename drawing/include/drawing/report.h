// Reports of reading, auditing and cloning a drawing, and the limits of these operations.
#pragma once

#include "drawing/export.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace drawing {

// Severity of an issue, in ascending order.
enum class Severity : std::uint8_t {
  kNote,     // information; nothing is lost
  kRepaired, // something was repaired or replaced
  kLost,     // something could not be preserved
  kFatal     // the drawing cannot be used
};

// A finding. Codes are stable names such as "dxf.duplicate-handle", which scripts compare. Texts are UTF-8. Every part
// has an initializer, so that designated initializers may leave it out.
struct Issue {
  std::string code{};
  Severity severity = Severity::kNote;
  std::uint64_t line = 0; // line of the file from 1 on; 0: unknown; see isOffset
  int groupCode = -1;     // -1: none
  std::uint64_t handle = 0;
  std::string section{}; // HEADER, TABLES ...
  std::string kind{};    // name of the record in the file: LINE, LAYER ...
  std::string found{};   // the finding as an English clause
  std::string done{};    // what was done about it
  bool isOffset = false; // `line` is a byte offset in a binary file
};

// Result of reading: everything was read; everything was read, but some of it was repaired or lost; no drawing.
enum class Outcome : std::uint8_t { kWhole, kRepaired, kRefused };

// A list of issues.
class MVDRAWING_API Report {
public:
  // Counts of records: read as typed objects, preserved because their kind is not modelled, preserved because something
  // in them could not be parsed, and dropped.
  struct Counts {
    std::size_t read = 0;
    std::size_t opaque = 0;
    std::size_t unparsed = 0;
    std::size_t dropped = 0;
  };

  // Issues in order of addition. Those beyond the limit (10,000 unless set) only count as suppressed.
  void add(Issue issue);
  const std::vector<Issue>& issues() const { return issues_; }
  std::size_t suppressed() const { return suppressed_; }
  void limitMessages(std::size_t limit) { limit_ = limit; }

  // Outcome by the highest severity, suppressed issues included, and the stored issues of a code.
  Outcome outcome() const;
  bool has(const char* code) const;
  std::size_t count(const char* code) const;

  Counts counts;

private:
  std::vector<Issue> issues_;
  std::size_t limit_ = 10000;
  std::size_t suppressed_ = 0;
  Severity worst_ = Severity::kNote;
};

// Location of an issue for people: "line 120, LINE 2F"; empty if the issue has none.
MVDRAWING_API std::string locationOf(const Issue& issue);
// The issue in one line: "line 120, LINE 2F: ... ; ...".
MVDRAWING_API std::string describe(const Issue& issue);

// Limits of an operation. The defaults suit drawings of any reasonable size.
struct Budget {
  // Memory for the data of the drawing. 0: 64 MiB plus a hundred times the size of the file, but at most three quarters
  // of the machine's memory. The memory that reading uses is estimated from records, groups and texts, not measured: on
  // real drawings the estimate is between the actual amount and three times that.
  std::uint64_t bytes = 0;
  std::uint64_t objects = 200'000'000;
  std::uint32_t depth = 1000; // nesting of definitions: 1 for a block without references
  std::size_t messages = 10'000;
};

} // namespace drawing
