// One group and one record of a file, before they become values.
#pragma once

#include "drawing/detail/groups.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace drawing {

// One group as the file holds it. Text files give text only; binary files give numbers as they are. Views point into
// the file's memory and live as long as the reading.
struct RawGroup {
  enum class Form : std::uint8_t { kText, kReal, kInteger, kBytes };
  int code = 0;
  Form form = Form::kText;
  std::string_view text;
  double real = 0;
  std::int64_t integer = 0;
  std::uint64_t line = 0; // of the value; the byte offset in binary files
};

// Decodes the text of a file into lossless UTF-8 (see OdString::fromUtf8).
class TextDecoder {
public:
  virtual ~TextDecoder() = default;
  // Answers `bytes` itself when they are what they should be, else the decoded text in `buffer`.
  virtual std::string_view decode(std::string_view bytes, std::string& buffer) = 0;
};

// A record: its start (code 0) and every group up to the next start. The views point into the file.
using Record = std::vector<RawGroup>;

} // namespace drawing
