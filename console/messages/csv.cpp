#include "console/messages/csv.h"

#include <algorithm>

namespace console {

std::string csvRow(const std::vector<std::string>& cells) {
  std::string row;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    row += i == 0 ? "" : ",";
    const std::string& cell = cells[i];
    const bool quoted = cell.find_first_of(",\"\r\n") != cell.npos;
    if (!quoted) {
      row += cell;
      continue;
    }
    row += '"';
    for (const char c : cell)
      row += c == '"' ? std::string("\"\"") : std::string(1, c);
    row += '"';
  }
  return row + "\r\n";
}

namespace {

class Parser {
public:
  explicit Parser(std::string_view text) : text_(text) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (text_.substr(0, kMark.size()) == kMark)
      at_ = kMark.size();
  }

  CsvTable parse() {
    while (at_ < text_.size() && !table_.fault)
      readRow();
    return std::move(table_);
  }

private:
  void readRow() {
    CsvRow row{line_, {}};
    bool more = true;
    while (more && !table_.fault) {
      row.cells.push_back(readCell());
      more = at_ < text_.size() && text_[at_] == ',';
      at_ += more ? 1 : 0;
    }
    if (table_.fault)
      return;
    skipLineEnd();
    if (row.cells.size() > 1 || !row.cells[0].empty())
      table_.rows.push_back(std::move(row));
  }

  bool isAtEnd() const {
    return at_ >= text_.size() || text_[at_] == ',' || text_[at_] == '\n' || text_.substr(at_, 2) == "\r\n";
  }

  std::string readCell() {
    std::string cell;
    if (at_ < text_.size() && text_[at_] == '"')
      return readQuoted();
    for (; !isAtEnd(); ++at_) {
      if (text_[at_] == '"')
        fail(CsvFault::kQuoteInside, line_);
      cell += text_[at_];
    }
    return cell;
  }

  std::string readQuoted() {
    const std::size_t first = line_;
    std::string cell;
    for (++at_; at_ < text_.size(); ++at_) {
      if (text_[at_] == '"' && text_.substr(at_, 2) != "\"\"") {
        ++at_;
        if (!isAtEnd())
          fail(CsvFault::kQuoteInside, line_);
        return cell;
      }
      at_ += text_[at_] == '"' ? 1 : 0;
      line_ += text_[at_] == '\n' ? 1 : 0;
      cell += text_[at_];
    }
    fail(CsvFault::kQuoteOpen, first);
    return cell;
  }

  void skipLineEnd() {
    if (text_.substr(at_, 2) == "\r\n")
      ++at_;
    if (at_ < text_.size() && text_[at_] == '\n')
      ++at_;
    ++line_;
  }

  void fail(CsvFault fault, std::size_t line) {
    if (!table_.fault) {
      table_.fault = fault;
      table_.faultLine = line;
    }
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
  CsvTable table_;
};

} // namespace

CsvTable parseCsv(std::string_view text) {
  return Parser(text).parse();
}

} // namespace console
