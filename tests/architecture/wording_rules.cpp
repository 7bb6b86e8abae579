#include "tests/architecture/wording_rules.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace architecture {
namespace {

// Text in lower case with single spaces, and the line of each character.
struct Passage {
  std::string text;
  std::vector<int> lines;

  void add(char c, int line) {
    const bool space = std::isspace(static_cast<unsigned char>(c)) != 0;
    if (space && (text.empty() || text.back() == ' '))
      return;
    text += space ? ' ' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    lines.push_back(line);
  }
};

// Takes code apart: comments that follow each other are one passage, and so are adjacent string literals.
class CodeText {
public:
  explicit CodeText(std::string_view code) : code_(code) {
    while (at_ < code_.size())
      step();
    endPassages();
  }
  std::vector<Passage> comments, literals;

private:
  void step() {
    if (startsWith(code_.substr(at_), "//"))
      readComment("\n");
    else if (startsWith(code_.substr(at_), "/*"))
      readComment("*/");
    else if (startsWith(code_.substr(at_), "R\"("))
      readRaw();
    else if (code_[at_] == '"')
      readLiteral();
    else
      readCode();
  }
  void readComment(std::string_view end) {
    for (at_ += 2; at_ < code_.size() && !startsWith(code_.substr(at_), end);)
      comment_.add(next(), line_);
    comment_.add(' ', line_);
    for (std::size_t i = 0; i < end.size() && at_ < code_.size(); ++i)
      next();
  }
  void readRaw() {
    for (at_ += 3; at_ < code_.size() && !startsWith(code_.substr(at_), ")\"");)
      literal_.add(next(), line_);
    at_ = std::min(at_ + 2, code_.size());
  }
  void readLiteral() {
    for (++at_; at_ < code_.size() && code_[at_] != '"';) {
      const bool escaped = next() == '\\' && at_ < code_.size();
      const char c = escaped ? next() : code_[at_ - 1];
      literal_.add(escaped && c != '"' ? ' ' : c, line_);
    }
    ++at_;
  }
  void readCode() {
    const bool isPrefix = code_[at_] == 'L' && at_ + 1 < code_.size() && code_[at_ + 1] == '"';
    const bool isCharacter =
        code_[at_] == '\'' && (at_ == 0 || std::isalnum(static_cast<unsigned char>(code_[at_ - 1])) == 0);
    if (std::isspace(static_cast<unsigned char>(code_[at_])) == 0 && !isPrefix)
      endPassages();
    if (!isCharacter) {
      next();
      return;
    }
    at_ += at_ + 1 < code_.size() && code_[at_ + 1] == '\\' ? 3 : 2;
    at_ = std::min(code_.find('\'', at_), code_.size() - 1) + 1;
  }
  char next() {
    line_ += code_[at_] == '\n' ? 1 : 0;
    return code_[at_++];
  }
  void endPassages() {
    comments.push_back(std::exchange(comment_, {}));
    literals.push_back(std::exchange(literal_, {}));
  }

  std::string_view code_;
  std::size_t at_ = 0;
  int line_ = 1;
  Passage comment_, literal_;
};

bool isPartOfWord(std::string_view text, std::size_t at) {
  return at < text.size() && (std::isalnum(static_cast<unsigned char>(text[at])) != 0 || text[at] == '_');
}

bool isQuoted(std::string_view text, std::size_t at, std::size_t end) {
  const bool begins = at == 0 || text[at - 1] == '"' || text[at - 1] == '`';
  return begins && (end >= text.size() || text[end] == '"' || text[end] == '`');
}

bool isWordingAt(std::string_view text, std::size_t at, const Wording& wording) {
  const std::size_t end = at + wording.words.size();
  if (isPartOfWord(text, end) || (at > 0 && isPartOfWord(text, at - 1)) || isQuoted(text, at, end))
    return false;
  const std::string after = wording.after + " ", before = " " + wording.before;
  if (after.size() > 1 && at >= after.size() && text.substr(at - after.size(), after.size()) == after)
    return false;
  return before.size() == 1 || !startsWith(text.substr(end), before);
}

void findWordings(const std::string& path, const Passage& passage, const std::vector<Wording>& table,
                  std::vector<Finding>& out) {
  for (const Wording& wording : table) {
    for (auto at = passage.text.find(wording.words); at != std::string::npos;
         at = passage.text.find(wording.words, at + 1)) {
      if (isWordingAt(passage.text, at, wording))
        out.push_back({path, passage.lines[at], "'" + wording.words + "': write " + wording.instead});
    }
  }
}

bool isProduct(const std::string& path) {
  const std::string module = moduleOf(path);
  return isCode(path) && (module == "drawing" || module == "morvane" || module == "blockcommon" || module == "console");
}

bool isPage(const std::string& path) {
  return path == "run" || path == "README.md" || path == "CHANGELOG.md" || path == "CONTRIBUTING.md" ||
         (startsWith(path, "docs/") && path.ends_with(".md"));
}

bool isReviewed(const std::string& path, const std::vector<std::string>& reviewed) {
  return isPublicHeader(path) || std::any_of(reviewed.begin(), reviewed.end(),
                                             [&path](const std::string& start) { return startsWith(path, start); });
}

std::vector<Passage> passagesOf(const std::string& path, std::string_view text,
                                const std::vector<std::string>& reviewed) {
  std::vector<Passage> passages;
  if (isPage(path)) {
    Passage& page = passages.emplace_back();
    int line = 1;
    for (const char c : text) {
      page.add(c, line);
      line += c == '\n' ? 1 : 0;
    }
  } else if (isProduct(path)) {
    CodeText code(text);
    for (const Passage& literal : code.literals) // one word is a name
      if (literal.text.find(' ') != std::string::npos)
        passages.push_back(literal);
    if (isReviewed(path, reviewed))
      passages.insert(passages.end(), code.comments.begin(), code.comments.end());
  }
  return passages;
}

} // namespace

std::vector<Finding> checkWording(const SourceTree& tree, const std::vector<Wording>& table,
                                  const std::vector<std::string>& reviewed) {
  std::vector<Finding> findings;
  for (const auto& [path, text] : tree)
    for (const Passage& passage : passagesOf(path, text, reviewed))
      findWordings(path, passage, table, findings);
  return findings;
}

} // namespace architecture
