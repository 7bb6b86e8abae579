#include "DbDump.h"
#include "DbDxf.h"
#include "tests/corpus/groups.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <iostream>

namespace {
std::string fileText(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream s; s << in.rdbuf(); return s.str();
}
TEST(RoundTrip, Survey) {
  const std::string root = std::getenv("BLOCKCOMMON_CORPUS");
  std::ifstream list(root + "/FILES.tsv");
  std::string line;
  std::getline(list, line);
  std::map<std::string, std::pair<int, std::string>> sum;
  while (std::getline(list, line)) {
    const std::string path = line.substr(0, line.find('\t'));
    if (path.substr(0, 7) == "damaged" || path.substr(0,3)=="old") continue;
    const std::string text = fileText(root + "/" + path);
    if (drawing::formOf(text) != drawing::FileForm::TextDxf) continue;
    auto read = drawing::readDrawingFromMemory(text, path);
    if (read.database.isNull()) { std::cout << "REFUSED " << read.message << "\n"; continue; }
    const std::string bytes = drawing::writeDrawingToMemory(*read.database);
    const auto src = corpus::contentsOf(text), out = corpus::contentsOf(bytes);
    for (const auto& loss : corpus::lossesBetween(src, out)) {
      std::string key = loss.section + " " + loss.kind + " " + (loss.written ? std::to_string(loss.group.code) : "WHOLE");
      auto& s = sum[key];
      if (s.first++ < 3) {
        s.second += "\n      " + path + " " + loss.record + ": " + loss.group.value.substr(0, 60);
        if (loss.written) for (auto& g : loss.written->groups) if (g.code == loss.group.code) { s.second += " / have " + g.value.substr(0,60); break; }
      }
    }
  }
  for (auto& [k, v] : sum) std::cout << k << " x" << v.first << v.second << "\n";
}
}
