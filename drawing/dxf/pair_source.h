// Cuts a file into groups, and groups into records.
#pragma once

#include "DbReport.h"
#include "db/load_context.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace drawing::dxf {

// A record: its start (code 0) and every group up to the next start. The views point into the file.
using Record = std::vector<Pair>;

class PairSource {
public:
  virtual ~PairSource() = default;
  // The next group; false at the end of the file.
  virtual bool next(Pair& pair) = 0;

  // The next record; false when there is none. Groups in front of the first start form a record of their own.
  bool nextRecord(Record& record);

private:
  Pair ahead_;
  bool hasAhead_ = false;
};

// A text file: a line with the code, a line with the value. Lines end with LF or CR LF; a file without any LF is cut
// at CR. A line where a code is due and none stands is reported and passed over.
class TextPairSource final : public PairSource {
public:
  TextPairSource(std::string_view content, Report& report);
  bool next(Pair& pair) override;

private:
  bool line(std::string_view& text);
  bool code(int& value);

  const char* at_;
  const char* end_;
  Report& report_;
  std::uint64_t lineNumber_ = 0;
  char ending_ = '\n';
};

} // namespace drawing::dxf
