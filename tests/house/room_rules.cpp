#include "tests/house/room_rules.h"

#include <algorithm>

namespace house {
namespace {

struct RoomRule {
  std::string room;
  std::vector<std::string> knows; // rooms whose public headers it may include
};

// Rooms that are not listed (tests, benchmarks, fuzz targets) may look everywhere.
const std::vector<RoomRule> kRules{
    {"drawing", {}},
    {"morvane", {"drawing"}},
    {"blockcommon", {"drawing", "morvane"}},
    {"console", {"drawing", "morvane", "blockcommon"}},
    {"examples", {"drawing", "morvane", "blockcommon"}},
};

const RoomRule* ruleOf(const std::string& room) {
  const auto found =
      std::find_if(kRules.begin(), kRules.end(), [&room](const RoomRule& rule) { return rule.room == room; });
  return found == kRules.end() ? nullptr : &*found;
}

std::string folderOf(const std::string& path) {
  return path.substr(0, path.find('/', path.find('/') + 1));
}

// Why that file may not include the other file of the tree; "" when it may.
std::string refusal(const RoomRule& rule, const std::string& from, const std::string& to) {
  if (isPublicHeader(from) && !isPublicHeader(to))
    return "a public header includes the private " + to;
  if (roomOf(to) != rule.room) {
    if (std::find(rule.knows.begin(), rule.knows.end(), roomOf(to)) == rule.knows.end())
      return rule.room + " does not know " + roomOf(to) + " (" + to + ")";
    return isPublicHeader(to) ? "" : rule.room + " knows only the public headers of " + roomOf(to) + ", not " + to;
  }
  // The wrappers over host services are not exported and serve every folder: the one private header that does.
  const bool sharedInside = to == "blockcommon/host/services.h";
  if (rule.room == "blockcommon" && !isPublicHeader(to) && !sharedInside && folderOf(from) != folderOf(to))
    return folderOf(from) + " reaches into " + folderOf(to) + " (" + to + ") instead of a public header";
  return "";
}

bool isServiceHeader(const std::string& path) {
  static const std::string kHostHeaders = "morvane/include/";
  return startsWith(path, kHostHeaders) && path.find("/service", kHostHeaders.size()) != std::string::npos;
}

std::string refusalOfForeign(const RoomRule& rule, const Include& include) {
  if (include.quoted)
    return "\"" + include.name + "\" names no file of the project";
  if (rule.room == "blockcommon" && include.name.find_first_of("./") != std::string::npos)
    return "<" + include.name + "> is not of the standard library";
  return "";
}

void checkIncludes(const SourceTree& tree, const std::string& path, const RoomRule& rule, std::vector<Finding>& out) {
  const bool mayUseServices = rule.room != "blockcommon" || startsWith(path, "blockcommon/host/");
  for (const Include& include : includesOf(tree.at(path))) {
    const std::string target = resolveInclude(tree, path, include);
    std::string why = target.empty() ? refusalOfForeign(rule, include) : refusal(rule, path, target);
    if (why.empty() && !mayUseServices && isServiceHeader(target))
      why = "only blockcommon/host includes service interfaces (" + target + ")";
    if (!why.empty())
      out.push_back({path, include.line, why});
  }
}

void checkDictionaryUse(const SourceTree& tree, const std::string& path, std::vector<Finding>& out) {
  if (roomOf(path) != "blockcommon" || startsWith(path, "blockcommon/host/"))
    return;
  int number = 0;
  for (std::string_view line : linesOf(tree.at(path))) {
    ++number;
    if (line.find("mv_arbitDict_getservice") != std::string_view::npos)
      out.push_back({path, number, "only blockcommon/host talks to the service dictionary"});
  }
}

} // namespace

std::vector<Finding> checkRooms(const SourceTree& tree) {
  std::vector<Finding> findings;
  for (const auto& [path, text] : tree) {
    const RoomRule* rule = isCode(path) ? ruleOf(roomOf(path)) : nullptr;
    if (!rule)
      continue;
    checkIncludes(tree, path, *rule, findings);
    checkDictionaryUse(tree, path, findings);
  }
  return findings;
}

} // namespace house
