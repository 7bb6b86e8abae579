#include "tests/architecture/folder_rules.h"

#include <algorithm>
#include <map>
#include <set>
#include <sstream>
#include <utility>

namespace architecture {
namespace {

const FolderRule* folderRule(const std::vector<FolderRule>& table, const std::string& folder) {
  const auto found =
      std::find_if(table.begin(), table.end(), [&](const FolderRule& rule) { return rule.folder == folder; });
  return found == table.end() ? nullptr : &*found;
}

std::string parentOf(const std::string& path) {
  return path.substr(0, path.rfind('/'));
}

// Why the one folder may not use the other; "" if it may.
std::string folderRefusal(const std::vector<FolderRule>& table, const std::string& from, const std::string& to) {
  const FolderRule* rule = folderRule(table, from);
  if (from == to || rule == nullptr || folderRule(table, to) == nullptr)
    return "";
  const bool isListed = std::find(rule->uses.begin(), rule->uses.end(), to) != rule->uses.end();
  return isListed ? "" : from + " may not use " + to;
}

void checkIncludesOf(const SourceTree& tree, const std::vector<FolderRule>& table, const std::string& module,
                     const std::string& path, std::vector<Finding>& out) {
  for (const Include& include : includesOf(tree.at(path))) {
    const std::string target = resolveInclude(tree, path, include);
    if (!startsWith(target, module + "/") || isPublicHeader(target))
      continue;
    if (std::string why = folderRefusal(table, parentOf(path), parentOf(target)); !why.empty())
      out.push_back({path, include.line, why + " (" + target + ")"});
  }
}

struct SymbolUse {
  std::string source, symbol;
};

struct Symbols {
  std::map<std::string, std::string> definedIn; // by symbol the source; "" for several
  std::vector<SymbolUse> uses;
};

// The source of an object of the target, from the project's root; "" for another object.
std::string sourceOf(const std::string& object, const std::string& module, const std::string& target) {
  const std::string folder = "/" + target + ".dir/", suffix = ".o:";
  const std::size_t at = object.find(folder);
  if (at == std::string::npos || !object.ends_with(suffix))
    return "";
  const std::size_t first = at + folder.size();
  return module + "/" + object.substr(first, object.size() - first - suffix.size());
}

Symbols readSymbols(std::istream& in, const std::string& module, const std::string& target) {
  Symbols symbols;
  for (std::string line; std::getline(in, line);) {
    std::istringstream fields(line);
    std::string object, name, type;
    fields >> object >> name >> type;
    const std::string source = sourceOf(object, module, target);
    if (source.empty() || type.empty())
      continue;
    if (type == "U")
      symbols.uses.push_back({source, name});
    else if (auto [at, isNew] = symbols.definedIn.try_emplace(name, source); !isNew && at->second != source)
      at->second.clear();
  }
  return symbols;
}

} // namespace

std::vector<Finding> checkFolderTable(const std::vector<FolderRule>& table) {
  std::vector<Finding> findings;
  std::set<std::string> before;
  for (const FolderRule& rule : table) {
    for (const std::string& used : rule.uses)
      if (before.count(used) == 0)
        findings.push_back({rule.folder, 0, "uses " + used + ", which is not above it in the table"});
    before.insert(rule.folder);
  }
  return findings;
}

std::vector<Finding> checkFolderIncludes(const SourceTree& tree, const std::vector<FolderRule>& table,
                                         const std::string& module) {
  std::vector<Finding> findings;
  for (const auto& [path, text] : tree) {
    if (!isCode(path) || !startsWith(path, module + "/") || isPublicHeader(path))
      continue;
    if (folderRule(table, parentOf(path)) == nullptr)
      findings.push_back({path, 0, "the folder is not in the table of folders"});
    checkIncludesOf(tree, table, module, path, findings);
  }
  return findings;
}

std::vector<Finding> checkFolderSymbols(std::istream& in, const std::vector<FolderRule>& table,
                                        const std::string& module, const std::string& target) {
  const Symbols symbols = readSymbols(in, module, target);
  std::map<std::pair<std::string, std::string>, Finding> findings; // the first symbol of each pair of files
  for (const SymbolUse& use : symbols.uses) {
    const auto defined = symbols.definedIn.find(use.symbol);
    if (defined == symbols.definedIn.end() || defined->second.empty())
      continue;
    const std::string why = folderRefusal(table, parentOf(use.source), parentOf(defined->second));
    if (!why.empty())
      findings.try_emplace({use.source, defined->second},
                           Finding{use.source, 0, why + " (" + use.symbol + " of " + defined->second + ")"});
  }
  std::vector<Finding> all;
  for (auto& [pair, finding] : findings)
    all.push_back(std::move(finding));
  return all;
}

} // namespace architecture
