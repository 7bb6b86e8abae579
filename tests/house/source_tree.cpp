#include "tests/house/source_tree.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace house {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 10> kExtensions{".h",  ".cpp",  ".cmake", ".md", ".sh",
                                                       ".in", ".json", ".txt",   ".py", ".map"};
constexpr std::array<std::string_view, 3> kPassedOver{"build", ".git", ".cache"};
constexpr std::array<std::string_view, 3> kPublicFolders{"drawing/include/", "morvane/include/",
                                                         "blockcommon/include/"};

template <std::size_t n>
bool contains(const std::array<std::string_view, n>& all, std::string_view wanted) {
  for (std::string_view one : all)
    if (one == wanted)
      return true;
  return false;
}

// A file without an extension is a script or a tool's settings.
bool isSource(const fs::path& path) {
  const std::string extension = path.extension().string();
  return extension.empty() || contains(kExtensions, extension);
}

std::string textOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

std::string_view skipBlanks(std::string_view text) {
  const std::size_t start = text.find_first_not_of(" \t");
  return start == std::string_view::npos ? std::string_view{} : text.substr(start);
}

// The include on this line; an empty name when there is none.
Include includeOn(std::string_view line, int number) {
  line = skipBlanks(line);
  if (!startsWith(line, "#"))
    return {};
  line = skipBlanks(line.substr(1));
  if (!startsWith(line, "include"))
    return {};
  line = skipBlanks(line.substr(7));
  const bool quoted = startsWith(line, "\"");
  if (!quoted && !startsWith(line, "<"))
    return {};
  const std::size_t end = line.find(quoted ? '"' : '>', 1);
  if (end == std::string_view::npos)
    return {};
  return {std::string(line.substr(1, end - 1)), quoted, number};
}

// Follows block comments over one line: whether the next line starts inside one.
bool endsInComment(std::string_view line, bool inside) {
  std::size_t at = 0;
  while (at != std::string_view::npos) {
    at = line.find(inside ? "*/" : "/*", at);
    if (at == std::string_view::npos)
      break;
    if (!inside && line.substr(0, at).find("//") != std::string_view::npos)
      break;
    inside = !inside;
    at += 2;
  }
  return inside;
}

} // namespace

bool startsWith(std::string_view text, std::string_view prefix) {
  return text.substr(0, prefix.size()) == prefix;
}

SourceTree readTree(const std::string& root) {
  SourceTree tree;
  for (auto at = fs::recursive_directory_iterator(root); at != fs::recursive_directory_iterator(); ++at) {
    const fs::path relative = at->path().lexically_relative(root);
    if (contains(kPassedOver, relative.string()))
      at.disable_recursion_pending();
    else if (at->is_regular_file() && isSource(relative))
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
  std::vector<std::string> candidates;
  if (include.quoted)
    candidates.push_back((fs::path(from).parent_path() / include.name).lexically_normal().generic_string());
  for (std::string_view folder : kPublicFolders)
    candidates.push_back(fs::path(std::string(folder) + include.name).lexically_normal().generic_string());
  candidates.push_back(fs::path(include.name).lexically_normal().generic_string());
  candidates.push_back(
      (fs::path(roomOf(from)) / include.name).lexically_normal().generic_string()); // from the room's root
  for (const std::string& candidate : candidates)
    if (tree.count(candidate) != 0)
      return candidate;
  return {};
}

bool isCode(std::string_view path) {
  const std::string extension = fs::path(path).extension().string();
  return extension == ".h" || extension == ".cpp";
}

std::string roomOf(std::string_view path) {
  return std::string(path.substr(0, path.find('/')));
}

bool isPublicHeader(std::string_view path) {
  for (std::string_view folder : kPublicFolders)
    if (startsWith(path, folder))
      return true;
  return false;
}

std::string stemOf(std::string_view path) {
  return fs::path(path).stem().string();
}

std::string describe(const std::vector<Finding>& findings) {
  std::ostringstream text;
  for (const Finding& finding : findings)
    text << finding.file << ':' << finding.line << ": " << finding.text << '\n';
  return text.str();
}

} // namespace house
