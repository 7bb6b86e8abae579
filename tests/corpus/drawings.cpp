#include "tests/corpus/drawings.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

namespace corpus {

std::string textOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in)
    ADD_FAILURE() << path << " is missing";
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

std::string folder() {
  const char* named = std::getenv("BLOCKCOMMON_CORPUS");
  if (named == nullptr) {
    ADD_FAILURE() << "BLOCKCOMMON_CORPUS is not set";
    return {};
  }
  return std::string(named) + "/";
}

std::vector<std::string> listed() {
  const std::string at = folder();
  std::vector<std::string> lines;
  if (at.empty())
    return lines;
  std::istringstream list(textOf(at + "FILES.tsv"));
  std::string line;
  std::getline(list, line); // headings
  while (std::getline(list, line))
    lines.push_back(line);
  return lines;
}

std::vector<std::string> paths() {
  std::vector<std::string> all;
  const std::string at = folder();
  for (const std::string& line : listed())
    all.push_back(at + line.substr(0, line.find('\t')));
  return all;
}

void forEachDrawing(const std::function<void(const std::string&, const drawing::ReadResult&)>& look) {
  for (const std::string& path : paths()) {
    SCOPED_TRACE(path);
    const drawing::ReadResult read = drawing::readDrawing(path);
    if (!read.database.isNull())
      look(path, read);
  }
}

} // namespace corpus
