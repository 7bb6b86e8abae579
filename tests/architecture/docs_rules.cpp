#include "tests/architecture/docs_rules.h"

#include "tests/docs/page.h"

#include <algorithm>
#include <set>
#include <stdexcept>

namespace architecture {
namespace {

const std::string kPages = "docs/functions/", kEntryPage = "docs/programming.md";
const std::string kHeaders = "blockcommon/include/blockcommon/", kExports = "blockcommon/exports.txt";
constexpr int kLongestExample = 16, kLongestPage = 800;
const std::set<std::string> kNoUnits{"box_texts", "export", "blockcommon"};

// "ns::name" of a line of the export list; constructors and destructors are their class.
std::string nameOf(std::string_view line) {
  std::string name(line.substr(0, line.find('(')));
  const std::size_t colons = name.rfind("::");
  if (colons == std::string::npos)
    return name;
  std::string scope = name.substr(0, colons), last = name.substr(colons + 2);
  last.erase(0, startsWith(last, "~") ? 1 : 0);
  return scope.substr(scope.rfind(':') + 1) == last ? scope : name;
}

bool hasWord(std::string_view text, std::string_view word) {
  const auto goesOn = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; };
  for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) {
    const std::size_t end = at + word.size();
    if ((at == 0 || !goesOn(text[at - 1])) && (end == text.size() || !goesOn(text[end])))
      return true;
  }
  return false;
}

// Whether the header holds all pieces of the name as words.
bool declares(std::string_view header, std::string_view name) {
  while (!name.empty()) {
    const std::size_t end = std::min(name.find("::"), name.size());
    if (!hasWord(header, name.substr(0, end)))
      return false;
    name.remove_prefix(std::min(end + 2, name.size()));
  }
  return true;
}

class PageCheck {
public:
  explicit PageCheck(const SourceTree& tree) : tree_(tree) {}

  std::vector<Finding> run() {
    if (const auto list = tree_.find(kExports); list != tree_.end())
      readExports(list->second);
    for (const auto& [path, text] : tree_) {
      if (startsWith(path, kPages) && path.ends_with(".md"))
        checkPage(path, text);
      else if (startsWith(path, kHeaders))
        checkHeader(path);
    }
    for (const auto& [name, line] : wanted_)
      if (!explained_.contains(name))
        findings_.push_back({kExports, line, name + " is explained on no page"});
    return std::move(findings_);
  }

private:
  void readExports(std::string_view text) {
    int number = 0;
    for (std::string_view line : linesOf(text))
      wanted_.emplace(nameOf(line), ++number);
  }

  void checkHeader(const std::string& path) {
    const std::string unit = stemOf(path);
    if (!kNoUnits.contains(unit) && tree_.count(kPages + unit + ".md") == 0)
      findings_.push_back({path, 0, "has no page"});
  }

  void checkPage(const std::string& path, const std::string& text) {
    const std::string unit = stemOf(path);
    const auto header = tree_.find(kHeaders + unit + ".h");
    const auto entryPage = tree_.find(kEntryPage);
    if (header == tree_.end())
      return findings_.push_back({path, 0, "is the page of no header"});
    if (std::count(text.begin(), text.end(), '\n') > kLongestPage)
      findings_.push_back({path, 0, "is too long"});
    if (entryPage == tree_.end() || entryPage->second.find("functions/" + unit + ".md") == std::string::npos)
      findings_.push_back({path, 0, "is not listed in " + kEntryPage});
    try {
      for (const docs::Entry& entry : docs::readPage(text).entries)
        checkEntry(path, header->second, entry);
    } catch (const std::runtime_error& error) {
      findings_.push_back({path, 0, error.what()});
    }
  }

  void checkEntry(const std::string& path, std::string_view header, const docs::Entry& entry) {
    for (const std::string& name : entry.names) {
      if (wanted_.count(name) == 0 || !declares(header, name))
        findings_.push_back({path, entry.line, name + " is no exported name of this unit"});
      if (!explained_.insert(name).second)
        findings_.push_back({path, entry.line, name + " has a heading already"});
    }
    if (entry.examples.size() != 1)
      return findings_.push_back({path, entry.line, "has " + std::to_string(entry.examples.size()) + " examples"});
    const std::string& code = entry.examples[0].code;
    if (code.find("assert(") == std::string::npos)
      findings_.push_back({path, entry.line, "has an example that checks nothing"});
    if (std::count(code.begin(), code.end(), '\n') > kLongestExample)
      findings_.push_back({path, entry.line, "has an example that is too long"});
  }

  const SourceTree& tree_;
  std::map<std::string, int> wanted_; // with their lines in the list
  std::set<std::string> explained_;
  std::vector<Finding> findings_;
};

} // namespace

std::vector<Finding> checkPages(const SourceTree& tree) {
  return PageCheck(tree).run();
}

} // namespace architecture
