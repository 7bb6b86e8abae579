// Cuts a file into groups, and groups into records.
#pragma once

#include "drawing/model/record.h"
#include "drawing/report.h"

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace drawing::dxf {

class GroupSource {
public:
  virtual ~GroupSource() = default;
  // The next group; false at the end of the file.
  virtual bool next(RawGroup& group) = 0;
  // Whether more than blanks and zeros is left behind what was taken.
  virtual bool hasRest() const { return false; }

  // The next record; false when there is none. Groups before the first start form a separate record; EOF is a record
  // alone, and data after it is ignored.
  bool nextRecord(Record& record);
  // A record ends early at that many groups; `isOverLimit` is then true.
  void limitRecords(std::size_t groups) { maxGroups_ = groups; }
  bool isOverLimit() const { return isOverLimit_; }

private:
  std::size_t maxGroups_ = SIZE_MAX;
  bool isOverLimit_ = false;
  RawGroup ahead_;
  bool hasAhead_ = false;
};

// A text file: a line with the code, a line with the value. Lines end with LF or CR LF; CR alone ends a line where a
// code follows, and everywhere in a file without any LF. A line without the expected code is reported and skipped.
class TextGroupSource final : public GroupSource {
public:
  TextGroupSource(std::string_view content, Report& report);
  bool next(RawGroup& group) override;
  bool hasRest() const override;

private:
  bool line(std::string_view& text, bool isValue);
  std::size_t loneReturn(std::string_view text, bool isValue) const;
  bool code(int& value);

  const char* at_;
  const char* end_;
  Report& report_;
  std::uint64_t lineNumber_ = 0;
  static constexpr int kOneSign = 1, kReturnAndFeed = 2, kReturnAlone = 4;
  void recordLineEnding(int ending, std::size_t length);
  int endings_ = 0; // that came
  bool sawLong_ = false;
  bool hasReturns_ = false;
  static constexpr std::size_t kMaxLineLength = 2049; // in any version
  char ending_ = '\n';
};

// A binary file behind its sentinel: a code of two bytes (one byte, or three of which the first is 255, before R13),
// then the value in the form that its code asks for. Places are byte offsets in the file. An invalid code means that
// the reader is out of step: the rest cannot be parsed, so the file ends there.
class BinaryGroupSource final : public GroupSource {
public:
  BinaryGroupSource(std::string_view content, Report& report);
  bool next(RawGroup& group) override;

private:
  bool code(int& value);
  bool value(RawGroup& group);
  bool text(RawGroup& group);
  bool bytes(RawGroup& group);
  bool number(RawGroup& group, std::size_t size);
  void addIssue(const char* code, int groupCode, const char* found, const char* done);
  std::size_t left() const { return content_.size() - at_; }

  std::string_view content_;
  std::size_t at_;
  Report& report_;
  bool shortCodes_;
  std::deque<std::string> unbroken_; // texts with line breaks, as text files have them
};

// Where the groups of a binary file begin.
constexpr std::size_t kBinarySentinel = 22;
// What a number of that kind takes in a binary file; 0 for other kinds.
std::size_t binarySizeOf(GroupKind kind);

} // namespace drawing::dxf
