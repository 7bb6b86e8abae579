#include "tests/architecture/unit_rules.h"

#include <algorithm>
#include <set>

namespace architecture {
namespace {

constexpr std::string_view kPublicFolder = "blockcommon/include/blockcommon/";
constexpr std::string_view kUmbrella = "blockcommon/include/blockcommon/blockcommon.h";

bool isListed(const std::vector<std::string>& names, const std::string& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

const UnitRule* ruleOf(const std::vector<UnitRule>& table, const std::string& unit) {
  const auto found =
      std::find_if(table.begin(), table.end(), [&unit](const UnitRule& rule) { return rule.unit == unit; });
  return found == table.end() ? nullptr : &*found;
}

bool isFoundation(const std::string& path) {
  return startsWith(path, kPublicFolder) && isListed(foundationHeaders(), stemOf(path));
}

// The longest unit name that begins the stem and ends there or at an underscore.
std::string unitByName(const std::vector<UnitRule>& table, const std::string& stem) {
  std::string best;
  for (const UnitRule& rule : table)
    if (rule.unit.size() > best.size() && startsWith(stem + "_", rule.unit + "_"))
      best = rule.unit;
  return best;
}

struct Target {
  std::string path;
  int line = 0; // of the include
};

// What the file includes of blockcommon above the headers below all units.
std::vector<Target> targetsOf(const SourceTree& tree, const std::string& path) {
  std::vector<Target> targets;
  for (const Include& include : includesOf(tree.at(path))) {
    const std::string target = resolveInclude(tree, path, include);
    if (moduleOf(target) == "blockcommon" && !isFoundation(target))
      targets.push_back({target, include.line});
  }
  return targets;
}

// Whether one of those units is among the rule's own.
bool usesOneOf(const UnitRule& rule, const std::set<std::string>& units) {
  return std::any_of(rule.uses.begin(), rule.uses.end(),
                     [&units](const std::string& used) { return units.count(used) != 0; });
}

// Takes away, again and again, every unit that uses only units taken away before; what stays runs in circles.
std::set<std::string> unitsInCircles(const std::vector<UnitRule>& table) {
  std::set<std::string> left;
  for (const UnitRule& rule : table)
    left.insert(rule.unit);
  for (std::size_t before = left.size() + 1; left.size() < before;) {
    before = left.size();
    for (const UnitRule& rule : table)
      if (!usesOneOf(rule, left))
        left.erase(rule.unit);
  }
  return left;
}

std::string refusal(const std::vector<UnitRule>& table, const std::string& from, const std::string& to) {
  const UnitRule* rule = ruleOf(table, from);
  if (!rule)
    return "the unit " + from + " is not in the table of units";
  if (!ruleOf(table, to))
    return "the unit " + to + " is not in the table of units";
  return isListed(rule->uses, to) ? "" : "the unit " + from + " may not use the unit " + to;
}

void checkPairs(const SourceTree& tree, const std::vector<UnitRule>& table, const std::string& path,
                const std::string& unit, std::vector<Finding>& out) {
  for (const Target& target : targetsOf(tree, path)) {
    const std::string used = unitOf(tree, table, target.path);
    if (target.path == kUmbrella)
      out.push_back({path, target.line, "the library itself does not use the header of all headers"});
    else if (!used.empty() && used != unit)
      if (const std::string why = refusal(table, unit, used); !why.empty())
        out.push_back({path, target.line, why});
  }
}

} // namespace

std::vector<Finding> checkTable(const std::vector<UnitRule>& table) {
  std::vector<Finding> findings;
  for (const UnitRule& rule : table)
    for (const std::string& used : rule.uses)
      if (!ruleOf(table, used))
        findings.push_back({rule.unit, 0, "uses " + used + ", which is no unit"});
  for (const std::string& unit : unitsInCircles(table))
    findings.push_back({unit, 0, "is part of a circle of units or stands on one"});
  return findings;
}

std::string unitOf(const SourceTree& tree, const std::vector<UnitRule>& table, const std::string& path) {
  if (startsWith(path, kPublicFolder))
    return stemOf(path);
  std::set<std::string> seen;
  for (std::string at = path; !at.empty() && seen.insert(at).second;) {
    if (std::string named = unitByName(table, stemOf(at)); !named.empty())
      return named;
    const std::vector<Target> targets = targetsOf(tree, at);
    const auto header =
        std::find_if(targets.begin(), targets.end(), [](const Target& target) { return isPublicHeader(target.path); });
    if (header != targets.end())
      return stemOf(header->path);
    at = targets.empty() ? std::string() : targets[0].path;
  }
  return {};
}

std::vector<Finding> checkUnits(const SourceTree& tree, const std::vector<UnitRule>& table) {
  std::vector<Finding> findings;
  for (const auto& [path, text] : tree) {
    if (moduleOf(path) != "blockcommon" || !isCode(path) || path == kUmbrella)
      continue;
    if (isFoundation(path)) {
      for (const Target& target : targetsOf(tree, path))
        findings.push_back({path, target.line, "a header below all units includes " + target.path});
      continue;
    }
    const std::string unit = unitOf(tree, table, path);
    if (unit.empty() && path.substr(path.rfind('.')) == ".cpp")
      findings.push_back({path, 0, "belongs to no unit: name it after one, or let it include its public header"});
    else if (!unit.empty() && !ruleOf(table, unit))
      findings.push_back({path, 0, "the unit " + unit + " is not in the table of units"});
    else if (!unit.empty())
      checkPairs(tree, table, path, unit, findings);
  }
  return findings;
}

} // namespace architecture
