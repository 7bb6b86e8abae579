#include "tests/architecture/source_tree.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

namespace architecture {
namespace {

namespace fs = std::filesystem;

// A file without an extension is a script or a tool's settings.
const std::set<std::string> kExtensions{"",    ".h",    ".cpp", ".cmake", ".md", ".sh",
                                        ".in", ".json", ".txt", ".py",    ".map"};
const std::set<std::string> kPassedOver{"build", ".git", ".cache"};
const std::array<std::string, 3> kPublicFolders{"drawing/include/", "morvane/include/", "blockcommon/include/"};

std::string textOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// What is left of the line behind blanks and that word; nothing when that does not stand there.
std::string_view after(std::string_view line, std::string_view word) {
  line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
  return startsWith(line, word) ? line.substr(word.size()) : std::string_view();
}

// The include on this line; an empty name when there is none.
Include includeOn(std::string_view line, int number) {
  const std::string_view named = after(after(line, "#"), "include");
  const bool quoted = !after(named, "\"").empty();
  const std::string_view name = after(named, quoted ? "\"" : "<");
  const std::size_t end = name.find(quoted ? '"' : '>');
  return end == std::string_view::npos ? Include{} : Include{std::string(name.substr(0, end)), quoted, number};
}

// Follows block comments over one line: whether the next line starts inside one.
bool endsInComment(std::string_view line, bool inside) {
  for (std::size_t at = 0;; at += 2) {
    at = line.find(inside ? "*/" : "/*", at);
    const bool inLineComment = !inside && line.substr(0, at).find("//") != std::string_view::npos;
    if (at == std::string_view::npos || inLineComment)
      return inside;
    inside = !inside;
  }
}

} // namespace

bool startsWith(std::string_view text, std::string_view prefix) {
  return text.substr(0, prefix.size()) == prefix;
}

SourceTree readTree(const std::string& root) {
  SourceTree tree;
  for (auto at = fs::recursive_directory_iterator(root); at != fs::recursive_directory_iterator(); ++at) {
    const fs::path relative = at->path().lexically_relative(root);
    if (kPassedOver.contains(relative.string()))
      at.disable_recursion_pending();
    else if (at->is_regular_file() && kExtensions.contains(relative.extension().string()))
      tree.emplace(relative.generic_string(), textOf(at->path()));
  }
  return tree;
}

std::vector<std::string_view> linesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    lines.push_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

std::vector<Include> includesOf(std::string_view text) {
  std::vector<Include> includes;
  bool inComment = false;
  int number = 0;
  for (std::string_view line : linesOf(text)) {
    ++number;
    Include found = inComment ? Include{} : includeOn(line, number);
    if (!found.name.empty())
      includes.push_back(std::move(found));
    inComment = endsInComment(line, inComment);
  }
  return includes;
}

std::string resolveInclude(const SourceTree& tree, const std::string& from, const Include& include) {
  std::vector<fs::path> folders(kPublicFolders.begin(), kPublicFolders.end());
  folders.insert(folders.end(), {"", moduleOf(from)});
  if (include.quoted)
    folders.insert(folders.begin(), fs::path(from).parent_path());
  for (const fs::path& folder : folders) {
    std::string path = (folder / include.name).lexically_normal().generic_string();
    if (tree.count(path) != 0)
      return path;
  }
  return {};
}

bool isCode(std::string_view path) {
  const std::string extension = fs::path(path).extension().string();
  return extension == ".h" || extension == ".cpp";
}

std::string moduleOf(std::string_view path) {
  return std::string(path.substr(0, path.find('/')));
}

bool isPublicHeader(std::string_view path) {
  return std::any_of(kPublicFolders.begin(), kPublicFolders.end(),
                     [path](const std::string& folder) { return startsWith(path, folder); });
}

std::string stemOf(std::string_view path) {
  return fs::path(path).stem().string();
}

std::string describe(const std::vector<Finding>& findings) {
  std::string text;
  for (const Finding& finding : findings)
    text += finding.file + ":" + std::to_string(finding.line) + ": " + finding.text + "\n";
  return text;
}

} // namespace architecture
