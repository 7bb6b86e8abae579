#include "tests/architecture/text_rules.h"

#include <algorithm>
#include <cctype>
#include <map>

namespace architecture {
namespace {

// A word in lower case in which # stands for a digit. The pieces keep this file free of the words themselves.
struct Banned {
  std::string word;
  std::string allowedIn; // a file that may hold it
};

const std::vector<Banned> kBanned{
    {std::string("the sp") + "ec", ""},      {std::string("per sp") + "ec", ""},
    {std::string("specif") + "ication", ""}, {std::string("pa") + "rt #.#", ""},
    {std::string("pa") + "rts #.#", ""},     {std::string("iss") + "ue #", ""},
    {std::string("to") + "do", ""},          {std::string("fix") + "me", ""},
    {std::string("/wo") + "rk/", ".ci/run"}, {std::string("../sh") + "ared", ".ci/run"},
};

bool isWordCharacter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

bool fits(char wanted, char found) {
  const auto character = static_cast<unsigned char>(found);
  return wanted == '#' ? std::isdigit(character) != 0 : wanted == std::tolower(character);
}

// Whether the word stands at that place and no longer word holds it; behind a number further digits may follow.
bool isAt(std::string_view line, std::size_t at, std::string_view word) {
  for (std::size_t i = 0; i < word.size(); ++i)
    if (at + i >= line.size() || !fits(word[i], line[at + i]))
      return false;
  const std::size_t end = at + word.size();
  const bool runsInto = at > 0 && isWordCharacter(line[at]) && isWordCharacter(line[at - 1]);
  const bool runsOn =
      end < line.size() && word.back() != '#' && isWordCharacter(line[end - 1]) && isWordCharacter(line[end]);
  return !runsInto && !runsOn;
}

bool holds(std::string_view line, std::string_view word) {
  for (std::size_t at = 0; at + word.size() <= line.size(); ++at)
    if (isAt(line, at, word))
      return true;
  return false;
}

void checkLine(const std::string& path, int number, std::string_view line, std::vector<Finding>& out) {
  for (const Banned& banned : kBanned)
    if (path != banned.allowedIn && holds(line, banned.word))
      out.push_back({path, number, "holds '" + banned.word + "'"});
}

} // namespace

std::vector<Finding> checkSizes(const SourceTree& tree) {
  std::vector<Finding> findings;
  for (const auto& [path, text] : tree) {
    const auto lines = std::count(text.begin(), text.end(), '\n');
    if (isCode(path) && lines > kMaxLines)
      findings.push_back({path, 0, "has " + std::to_string(lines) + " lines"});
  }
  return findings;
}

std::vector<Finding> checkMessageIds(const SourceTree& tree) {
  const std::string catalog = "console/messages/catalog/", start = "MessageText k";
  std::map<std::string, std::string> files; // by id
  std::vector<Finding> findings;
  for (const auto& [path, text] : tree) {
    for (auto at = text.find(start); startsWith(path, catalog) && at != std::string::npos;
         at = text.find(start, at + 1)) {
      const auto open = text.find('"', at);
      const std::string id = text.substr(open + 1, text.find('"', open + 1) - open - 1);
      if (const auto [known, isNew] = files.try_emplace(id, path); !isNew)
        findings.push_back({path, 0, "the id " + id + " is that of a text in " + known->second});
    }
  }
  if (files.empty())
    findings.push_back({catalog, 0, "has no texts"});
  return findings;
}

std::vector<Finding> checkWords(const SourceTree& tree) {
  std::vector<Finding> findings;
  for (const auto& [path, text] : tree) {
    int number = 0;
    for (std::string_view line : linesOf(text))
      checkLine(path, ++number, line, findings);
  }
  return findings;
}

} // namespace architecture
