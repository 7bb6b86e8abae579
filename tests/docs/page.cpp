#include "tests/docs/page.h"

#include <algorithm>
#include <stdexcept>

namespace docs {
namespace {

std::vector<std::string> namesOf(std::string_view heading) {
  std::vector<std::string> names;
  while (!heading.empty()) {
    const std::size_t end = std::min(heading.find(", "), heading.size());
    names.emplace_back(heading.substr(0, end));
    heading.remove_prefix(std::min(end + 2, heading.size()));
  }
  return names;
}

class Reader {
public:
  Page page;

  void take(std::string_view line, int number) {
    if (inFence_)
      takeInside(line);
    else if (line.starts_with("```"))
      open(line == "```cpp", number);
    else if (line.starts_with("### "))
      page.entries.push_back({number, namesOf(line.substr(4)), {}}), inEntry_ = true;
    else if (line.starts_with("# ") || line.starts_with("## "))
      inEntry_ = false;
  }
  void end() const {
    if (inFence_)
      throw std::runtime_error("line " + std::to_string(example_.line - 1) + ": the block has no end");
  }

private:
  void open(bool isCode, int number) {
    inFence_ = true;
    isCode_ = isCode;
    example_ = {number + 1, {}};
  }
  void takeInside(std::string_view line) {
    if (line != "```") {
      example_.code.append(line) += '\n';
      return;
    }
    inFence_ = false;
    if (isCode_)
      (inEntry_ ? page.entries.back().examples : page.fileScope).push_back(example_);
  }

  Example example_;
  bool inFence_ = false;
  bool isCode_ = false;
  bool inEntry_ = false;
};

} // namespace

Page readPage(std::string_view text) {
  Reader reader;
  for (int number = 1; !text.empty(); ++number) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    reader.take(text.substr(0, end), number);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  reader.end();
  return reader.page;
}

} // namespace docs
