// Tables as text: cells between commas, in quotes where they hold commas, quotes or line breaks.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace console {

// A row, quoted where it must be, with its line end.
std::string csvRow(const std::vector<std::string>& cells);

struct CsvRow {
  std::size_t line = 0; // where it begins, counted from 1
  std::vector<std::string> cells;
};
enum class CsvFault { kQuoteInside, kQuoteOpen };
struct CsvTable {
  std::vector<CsvRow> rows; // empty lines are not rows
  std::optional<CsvFault> fault;
  std::size_t faultLine = 0;
};
// Rows may end with or without carriage return; a UTF-8 byte order mark is skipped.
CsvTable parseCsv(std::string_view text);

} // namespace console
