#include "morvane/result_codes.h"
#include "morvane/variables.h"

#include <algorithm>
#include <cmath>

namespace morvane {
namespace {

std::wstring inCapitals(std::wstring_view name) {
  OdString text(name);
  text.makeUpper();
  return text.str();
}

// The number in a value of a numeric kind.
std::optional<double> numberIn(const VariableValue& value) {
  if (const auto* small = std::get_if<std::int16_t>(&value))
    return *small;
  if (const auto* whole = std::get_if<std::int32_t>(&value))
    return *whole;
  if (const auto* real = std::get_if<double>(&value))
    return *real;
  return std::nullopt;
}

// Values that numbers may have, the drawing's included; others may have any.
struct Range {
  std::wstring_view name;
  double lowest, highest;
};

constexpr std::array<Range, 16> kRanges = {{
    {L"EXTNAMES", 0, 1},
    {L"LUNITS", 1, 5},
    {L"LUPREC", 0, 8},
    {L"AUNITS", 0, 4},
    {L"AUPREC", 0, 8},
    {L"ATTREQ", 0, 1},
    {L"ATTDIA", 0, 1},
    {L"CMDECHO", 0, 1},
    {L"EXPERT", 0, 5},
    {L"FILEDIA", 0, 1},
    {L"INSUNITS", 0, 24},
    {L"INSUNITSDEFSOURCE", 0, 24},
    {L"INSUNITSDEFTARGET", 0, 24},
    {L"MEASUREMENT", 0, 1},
    {L"TILEMODE", 0, 1},
    {L"XEDIT", 0, 1},
}};

bool inRange(std::wstring_view name, const VariableValue& value) {
  const auto range = std::find_if(kRanges.begin(), kRanges.end(), [&](const Range& row) { return row.name == name; });
  const auto number = numberIn(value);
  return range == kRanges.end() || !number || (*number >= range->lowest && *number <= range->highest);
}

bool allFinite(const VariableValue& value) {
  if (const auto* real = std::get_if<double>(&value))
    return std::isfinite(*real);
  if (const auto* flat = std::get_if<VariablePoint2d>(&value))
    return std::isfinite((*flat)[0]) && std::isfinite((*flat)[1]);
  if (const auto* point = std::get_if<VariablePoint3d>(&value))
    return std::isfinite((*point)[0]) && std::isfinite((*point)[1]) && std::isfinite((*point)[2]);
  return true;
}

} // namespace

DrawingVariables::~DrawingVariables() = default;

VariableStore::VariableStore() {
  const auto small = [](int value) { return VariableValue(static_cast<std::int16_t>(value)); };
  own_ = {
      {L"INSNAME", {OdString()}},
      {L"EXTNAMES", {small(1)}},
      {L"LUNITS", {small(2)}},
      {L"LUPREC", {small(4)}},
      {L"AUNITS", {small(0)}},
      {L"AUPREC", {small(0)}},
      {L"ATTREQ", {small(1)}},
      {L"ATTDIA", {small(0)}},
      {L"CMDECHO", {small(1)}},
      {L"EXPERT", {small(0)}},
      {L"FILEDIA", {small(0)}},
      {L"INSUNITSDEFSOURCE", {small(1)}},
      {L"INSUNITSDEFTARGET", {small(1)}},
      {L"DWGNAME", {OdString(), true}},
      {L"DWGPREFIX", {OdString(), true}},
      {L"DWGTITLED", {small(0), true}},
  };
}

std::optional<VariableValue> VariableStore::get(std::wstring_view name) const {
  const std::wstring key = inCapitals(name);
  if (const DrawingVariables* header = drawing()) {
    if (auto value = header->get(key))
      return value;
  }
  const auto found = own_.find(key);
  return found == own_.end() ? std::nullopt : std::optional(found->second.value);
}

int VariableStore::set(std::wstring_view name, const VariableValue& value) {
  const std::wstring key = inCapitals(name);
  const bool fits = allFinite(value) && inRange(key, value);
  if (DrawingVariables* header = drawing()) {
    if (const auto existing = header->get(key))
      return fits && existing->index() == value.index() ? header->set(key, value) : RTREJ;
  }
  const auto found = own_.find(key);
  if (found == own_.end())
    return RTERROR;
  Entry& entry = found->second;
  if (!fits || entry.readOnly || entry.value.index() != value.index())
    return RTREJ;
  entry.value = value;
  return RTNORM;
}

void VariableStore::setOwn(std::wstring_view name, VariableValue value) {
  own_[inCapitals(name)].value = std::move(value);
}

} // namespace morvane
