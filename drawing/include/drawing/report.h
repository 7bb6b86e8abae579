// What reading, auditing and cloning tell about a drawing, and the limits they keep.
#pragma once

#include "OdPlatform.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace drawing {

enum class Severity : std::uint8_t {
  Note,     // worth knowing, nothing is lost
  Repaired, // something was mended or replaced
  Lost,     // something could not be kept
  Fatal     // there is no drawing left
};

// Codes are stable names such as "dxf.duplicate-handle"; scripts compare them.
struct Issue {
  std::string code;
  Severity severity = Severity::Note;
  std::uint64_t line = 0; // of the file, 1-based; 0 unknown; see isOffset
  int groupCode = -1;     // -1 none
  std::uint64_t handle = 0;
  std::string section;   // HEADER, TABLES ...
  std::string kind;      // the record's name in the file: LINE, LAYER ...
  std::string found;     // one English sentence: what was found
  std::string done;      // and what was done about it
  bool isOffset = false; // a binary file: `line` is the offset of a byte
};

// Ends of a reading: everything came in; everything came in but some of it was mended or lost; no drawing.
enum class Outcome : std::uint8_t { Whole, Repaired, Refused };

class MVDRAWING_API Report {
public:
  // Counts of records: read as typed objects, kept as they are because their kind is not modelled, kept unread
  // because something in them could not be understood, and dropped.
  struct Account {
    std::size_t read = 0;
    std::size_t kept = 0;
    std::size_t keptUnread = 0;
    std::size_t dropped = 0;
  };

  void add(Issue issue);
  const std::vector<Issue>& issues() const { return issues_; }
  std::size_t suppressed() const { return suppressed_; } // issues beyond the limit, counted only
  void limitMessages(std::size_t most) { most_ = most; }
  Outcome outcome() const;
  bool has(const char* code) const;
  std::size_t count(const char* code) const;

  Account account;

private:
  std::vector<Issue> issues_;
  std::size_t most_ = 10000;
  std::size_t suppressed_ = 0;
  Severity worst_ = Severity::Note;
};

// For people: "line 120, LINE 2F", empty when the issue has no place.
MVDRAWING_API std::string placeOf(const Issue& issue);
// One line: "line 120, LINE 2F: ... ; ...".
MVDRAWING_API std::string describe(const Issue& issue);

// Limits of one job. Every number may be set; the defaults suit drawings of any honest size.
struct Budget {
  // Memory that the drawing's own data may take. 0: 64 MiB and a hundred times the file's size, but at most three
  // quarters of the machine's memory. What a reading takes is reckoned from records, groups and texts, not measured: on
  // real drawings the figure lies between what is taken and three times as much.
  std::uint64_t bytes = 0;
  std::uint64_t objects = 200'000'000;
  std::uint32_t depth = 1000; // nesting of definitions: 1 for a block without references
  std::size_t messages = 10'000;
};

} // namespace drawing
