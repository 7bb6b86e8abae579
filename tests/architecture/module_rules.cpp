#include "tests/architecture/module_rules.h"

#include <map>
#include <set>

namespace architecture {
namespace {

// Of each room those whose public headers it may include. Rooms that are not listed (tests, benchmarks, fuzz targets)
// may look everywhere.
const std::map<std::string, std::set<std::string>> kKnown{
    {"drawing", {}},
    {"morvane", {"drawing"}},
    {"blockcommon", {"drawing", "morvane"}},
    {"console", {"drawing", "morvane", "blockcommon"}},
    {"examples", {"drawing", "morvane", "blockcommon"}},
};

std::string folderOf(const std::string& path) {
  return path.substr(0, path.find('/', path.find('/') + 1));
}

// Why that file may not include the other file of the tree; "" when it may.
std::string refusal(const std::string& from, const std::string& to) {
  const std::string module = moduleOf(from);
  if (isPublicHeader(from) && !isPublicHeader(to))
    return "a public header includes the private " + to;
  if (moduleOf(to) != module) {
    if (!kKnown.at(module).contains(moduleOf(to)))
      return module + " does not know " + moduleOf(to) + " (" + to + ")";
    return isPublicHeader(to) ? "" : module + " knows only the public headers of " + moduleOf(to) + ", not " + to;
  }
  // The wrappers over host services are not exported and serve every folder: the one private header that does.
  const bool sharedInside = to == "blockcommon/host/services.h";
  if (module == "blockcommon" && !isPublicHeader(to) && !sharedInside && folderOf(from) != folderOf(to))
    return folderOf(from) + " reaches into " + folderOf(to) + " (" + to + ") instead of a public header";
  return "";
}

bool isServiceHeader(const std::string& path) {
  static const std::string kHostHeaders = "morvane/include/";
  return startsWith(path, kHostHeaders) && path.find("/service", kHostHeaders.size()) != std::string::npos;
}

std::string refusalOutside(const std::string& from, const Include& include) {
  if (include.quoted)
    return "\"" + include.name + "\" names no file of the project";
  if (moduleOf(from) == "blockcommon" && include.name.find_first_of("./") != std::string::npos)
    return "<" + include.name + "> is not of the standard library";
  return "";
}

bool mayUseServices(const std::string& path) {
  return moduleOf(path) != "blockcommon" || startsWith(path, "blockcommon/host/");
}

void checkIncludes(const SourceTree& tree, const std::string& path, std::vector<Finding>& out) {
  for (const Include& include : includesOf(tree.at(path))) {
    const std::string target = resolveInclude(tree, path, include);
    std::string why = target.empty() ? refusalOutside(path, include) : refusal(path, target);
    if (why.empty() && !mayUseServices(path) && isServiceHeader(target))
      why = "only blockcommon/host includes service interfaces (" + target + ")";
    if (!why.empty())
      out.push_back({path, include.line, why});
  }
}

void checkDictionaryUse(const SourceTree& tree, const std::string& path, std::vector<Finding>& out) {
  int number = 0;
  for (std::string_view line : linesOf(tree.at(path))) {
    ++number;
    if (!mayUseServices(path) && line.find("mv_arbitDict_getservice") != std::string_view::npos)
      out.push_back({path, number, "only blockcommon/host talks to the service dictionary"});
  }
}

} // namespace

std::vector<Finding> checkModules(const SourceTree& tree) {
  std::vector<Finding> findings;
  for (const auto& [path, text] : tree) {
    if (!isCode(path) || !kKnown.contains(moduleOf(path)))
      continue;
    checkIncludes(tree, path, findings);
    checkDictionaryUse(tree, path, findings);
  }
  return findings;
}

} // namespace architecture
