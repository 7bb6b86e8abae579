// The project's files as text, and what their #include lines name.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace architecture {

// Path from the project's root, with '/', to the whole text.
using SourceTree = std::map<std::string, std::string>;

// One breach of a rule: where, and what is wrong. Line 0 means the whole file.
struct Finding {
  std::string file;
  int line = 0;
  std::string text;
};

struct Include {
  std::string name;
  bool quoted = false;
  int line = 0;
};

// All written sources below the folder: code, scripts, build files, documents. What is built is passed over.
SourceTree readTree(const std::string& root);

std::vector<std::string_view> linesOf(std::string_view text);
std::vector<Include> includesOf(std::string_view text);

// The file of the tree that the include of that file names, "" when it names none: looked for beside the file, in the
// rooms' public folders, then from the root, which is the order of the compiler.
std::string resolveInclude(const SourceTree& tree, const std::string& from, const Include& include);

bool startsWith(std::string_view text, std::string_view prefix);
bool isCode(std::string_view path);          // .h or .cpp
std::string moduleOf(std::string_view path); // first folder
bool isPublicHeader(std::string_view path);  // lies in <room>/include
std::string stemOf(std::string_view path);   // file name without folder and extension
std::string describe(const std::vector<Finding>& findings);

} // namespace architecture
