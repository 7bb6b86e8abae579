#include "morvane/result_codes.h"
#include "morvane/variables.h"

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
      {L"EXTNAMES", {small(1), false, 0, 1}},
      {L"LUNITS", {small(2), false, 1, 5}},
      {L"LUPREC", {small(4), false, 0, 8}},
      {L"AUNITS", {small(0), false, 0, 4}},
      {L"AUPREC", {small(0), false, 0, 8}},
      {L"ATTREQ", {small(1), false, 0, 1}},
      {L"ATTDIA", {small(0), false, 0, 1}},
      {L"CMDECHO", {small(1), false, 0, 1}},
      {L"EXPERT", {small(0), false, 0, 5}},
      {L"FILEDIA", {small(0), false, 0, 1}},
      {L"PICKFIRST", {small(1), false, 0, 1}},
      {L"INSUNITSDEFSOURCE", {small(1), false, 0, 24}},
      {L"INSUNITSDEFTARGET", {small(1), false, 0, 24}},
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
  if (!allFinite(value))
    return RTREJ;
  if (DrawingVariables* header = drawing()) {
    if (const auto held = header->get(key))
      return held->index() == value.index() ? header->set(key, value) : RTREJ;
  }
  const auto found = own_.find(key);
  if (found == own_.end())
    return RTERROR;
  Entry& entry = found->second;
  if (entry.readOnly || entry.value.index() != value.index())
    return RTREJ;
  const auto number = numberIn(value);
  if (number && entry.lowest <= entry.highest && (*number < entry.lowest || *number > entry.highest))
    return RTREJ;
  entry.value = value;
  return RTNORM;
}

void VariableStore::setOwn(std::wstring_view name, VariableValue value) {
  own_[inCapitals(name)].value = std::move(value);
}

} // namespace morvane
