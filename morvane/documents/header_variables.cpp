#include "morvane/documents/header_variables.h"
#include "morvane/result_codes.h"

#include "DbSymbolTable.h"

#include <algorithm>
#include <array>
#include <limits>

namespace morvane::documents {
namespace {

using drawing::Group;
using drawing::GroupKind;
using drawing::GroupList;

// What a drawing without the variable has, and the group code under which it is written.
struct Absent {
  std::string_view name;
  int code;
  VariableValue value;
};

const std::array<Absent, 5>& absentVariables() {
  const auto small = [](int value) { return VariableValue(static_cast<std::int16_t>(value)); };
  static const std::array<Absent, 5> table = {{
      {"INSUNITS", 70, small(0)},
      {"CLAYER", 8, OdString(L"0")},
      {"INSBASE", 10, VariablePoint3d{}},
      {"XEDIT", 290, small(1)},
      {"TILEMODE", 70, small(1)},
  }};
  return table;
}

const Absent* findAbsent(std::string_view name) {
  const auto& table = absentVariables();
  const auto found = std::find_if(table.begin(), table.end(), [&](const Absent& row) { return row.name == name; });
  return found == table.end() ? nullptr : &*found;
}

// Written by the SDK alone.
bool isReadOnly(std::string_view name) {
  constexpr std::array<std::string_view, 8> kNames = {"ACADVER",   "HANDSEED", "DWGCODEPAGE",     "TDCREATE",
                                                      "TDUCREATE", "TDUPDATE", "FINGERPRINTGUID", "VERSIONGUID"};
  return std::find(kNames.begin(), kNames.end(), name) != kNames.end();
}

std::string asciiName(std::wstring_view name) {
  return OdString(name).toUtf8();
}

std::optional<VariableValue> pointIn(const GroupList& groups) {
  VariablePoint3d point{};
  for (std::size_t at = 0; at < groups.size(); ++at) {
    if (at >= point.size() || groups[at].kind != GroupKind::kReal)
      return std::nullopt;
    point[at] = groups[at].real;
  }
  if (groups.size() == 2)
    return VariablePoint2d{point[0], point[1]};
  return point;
}

// Nothing for a number that a damaged file has too large.
template <class T>
std::optional<VariableValue> narrowed(std::int64_t value) {
  if (value < std::numeric_limits<T>::min() || value > std::numeric_limits<T>::max())
    return std::nullopt;
  return static_cast<T>(value);
}

std::optional<VariableValue> valueIn(const GroupList& groups) {
  if (groups.size() > 1)
    return pointIn(groups);
  if (groups.empty())
    return std::nullopt;
  const Group& group = groups[0];
  switch (group.kind) {
  case GroupKind::kInt16:
  case GroupKind::kBool:
    return narrowed<std::int16_t>(group.integer);
  case GroupKind::kInt32:
    return narrowed<std::int32_t>(group.integer);
  case GroupKind::kReal:
    return group.real;
  case GroupKind::kText:
    return groups.stringOf(group);
  default:
    return std::nullopt; // handles and bytes are not supported as variables
  }
}

struct ToGroups {
  int code;
  GroupList operator()(std::int16_t value) const { return ofInteger(value); }
  GroupList operator()(std::int32_t value) const { return ofInteger(value); }
  GroupList operator()(double value) const {
    GroupList groups;
    groups.real(code, value);
    return groups;
  }
  GroupList operator()(const OdString& value) const {
    GroupList groups;
    groups.text(code, value);
    return groups;
  }
  GroupList operator()(const VariablePoint2d& value) const {
    GroupList groups;
    groups.real(code, value[0]);
    groups.real(code + 10, value[1]);
    return groups;
  }
  GroupList operator()(const VariablePoint3d& value) const {
    GroupList groups;
    groups.point(code, OdGePoint3d(value[0], value[1], value[2]));
    return groups;
  }

private:
  GroupList ofInteger(std::int64_t value) const {
    GroupList groups;
    groups.integer(code, value);
    return groups;
  }
};

// The layer must be there, and is named as its record spells it.
int setCurrentLayer(OdDbDatabase& database, const VariableValue& value) {
  const auto* name = std::get_if<OdString>(&value); // a damaged header may hold anything else
  if (name == nullptr)
    return RTREJ;
  return database.setCLAYER(database.symbol(OdDb::kLayerTable, *name)) == eOk ? RTNORM : RTREJ;
}

// The current scale is not in the header but among the drawing's dictionaries.
constexpr std::string_view kCurrentScale = "CANNOSCALE";

OdString currentScale(const OdDbDatabase& database) {
  const OdString name = database.dictionaryVar(L"CANNOSCALE");
  return name.isEmpty() ? OdString(L"1:1") : name;
}

int setCurrentScale(OdDbDatabase& database, const VariableValue& value) {
  const auto* name = std::get_if<OdString>(&value);
  return name != nullptr && database.setCannoscale(*name) == eOk ? RTNORM : RTREJ;
}

} // namespace

std::optional<VariableValue> HeaderVariables::get(std::wstring_view name) const {
  const std::string key = asciiName(name);
  if (key == kCurrentScale)
    return currentScale(*database_);
  if (const GroupList* groups = database_->headerVar(key))
    return valueIn(*groups);
  const Absent* absent = findAbsent(key);
  return absent == nullptr ? std::nullopt : std::optional(absent->value);
}

int HeaderVariables::set(std::wstring_view name, const VariableValue& value) {
  const std::string key = asciiName(name);
  if (isReadOnly(key))
    return RTREJ;
  if (key == "CLAYER")
    return setCurrentLayer(*database_, value);
  if (key == kCurrentScale)
    return setCurrentScale(*database_, value);
  const GroupList* existing = database_->headerVar(key);
  const Absent* absent = findAbsent(key);
  const int code = existing != nullptr ? (*existing)[0].code : absent->code;
  database_->setHeaderVar(key, std::visit(ToGroups{code}, value));
  return RTNORM;
}

} // namespace morvane::documents
