#include "console/messages/number_text.h"

#include "morvane/documents.h"
#include "morvane/result_codes.h"
#include "morvane/units.h"
#include "morvane/variables.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>
#include <string>
#include <vector>

namespace console {
namespace {

template <class Number>
std::optional<Number> wholeNumber(std::string_view text, int base) {
  Number number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
  return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

std::vector<std::string_view> split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (auto at = text.find(separator); at != std::string_view::npos; at = text.find(separator)) {
    parts.push_back(text.substr(0, at));
    text.remove_prefix(at + 1);
  }
  parts.push_back(text);
  return parts;
}

struct UnitName {
  std::string_view name;
  OdDb::UnitsValue units;
};

constexpr std::array<UnitName, 34> kUnitNames = {{
    {"none", OdDb::kUnitsUndefined},
    {"unitless", OdDb::kUnitsUndefined},
    {"in", OdDb::kUnitsInches},
    {"inches", OdDb::kUnitsInches},
    {"ft", OdDb::kUnitsFeet},
    {"feet", OdDb::kUnitsFeet},
    {"mi", OdDb::kUnitsMiles},
    {"miles", OdDb::kUnitsMiles},
    {"mm", OdDb::kUnitsMillimeters},
    {"millimeters", OdDb::kUnitsMillimeters},
    {"cm", OdDb::kUnitsCentimeters},
    {"centimeters", OdDb::kUnitsCentimeters},
    {"m", OdDb::kUnitsMeters},
    {"meters", OdDb::kUnitsMeters},
    {"km", OdDb::kUnitsKilometers},
    {"uin", OdDb::kUnitsMicroinches},
    {"mil", OdDb::kUnitsMils},
    {"mils", OdDb::kUnitsMils},
    {"yd", OdDb::kUnitsYards},
    {"yards", OdDb::kUnitsYards},
    {"angstroms", OdDb::kUnitsAngstroms},
    {"nm", OdDb::kUnitsNanometers},
    {"um", OdDb::kUnitsMicrons},
    {"microns", OdDb::kUnitsMicrons},
    {"dm", OdDb::kUnitsDecimeters},
    {"dam", OdDb::kUnitsDekameters},
    {"hm", OdDb::kUnitsHectometers},
    {"gm", OdDb::kUnitsGigameters},
    {"au", OdDb::kUnitsAstronomical},
    {"ly", OdDb::kUnitsLightYears},
    {"pc", OdDb::kUnitsParsecs},
    {"usft", OdDb::kUnitsUSSurveyFeet},
    {"usin", OdDb::kUnitsUSSurveyInch},
    {"usmi", OdDb::kUnitsUSSurveyMile},
}};

std::optional<OdGeVector3d> parseAxis(std::string_view text) {
  const auto point = parsePoint(text);
  if (!point)
    return std::nullopt;
  const OdGeVector3d axis(point->x, point->y, point->z);
  return axis.isZeroLength() ? std::nullopt : std::optional(axis.normal());
}

short shortVariable(const wchar_t* name, short missing) {
  short value = missing;
  mvsi::getVar(name, value);
  return value;
}

} // namespace

std::optional<double> parseReal(std::string_view text) {
  if (text.starts_with('+'))
    text.remove_prefix(1);
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool whole = error == std::errc() && end == text.data() + text.size() && std::isfinite(number);
  return whole ? std::optional(number) : std::nullopt;
}

std::optional<OdGePoint3d> parsePoint(std::string_view text) {
  const auto parts = split(text, ',');
  if (parts.size() < 2 || parts.size() > 3)
    return std::nullopt;
  std::array<double, 3> point{};
  for (std::size_t at = 0; at < parts.size(); ++at) {
    const auto number = parseReal(parts[at]);
    if (!number)
      return std::nullopt;
    point[at] = *number;
  }
  return OdGePoint3d(point[0], point[1], point[2]);
}

std::optional<OdGeMatrix3d> parseUcs(std::string_view text) {
  constexpr double kTolerance = 1e-6;
  const auto parts = split(text, '/');
  if (parts.size() != 3)
    return std::nullopt;
  const auto origin = parsePoint(parts[0]);
  const auto x = parseAxis(parts[1]);
  const auto y = parseAxis(parts[2]);
  if (!origin || !x || !y || std::fabs(x->dotProduct(*y)) > kTolerance)
    return std::nullopt;
  const OdGeVector3d z = x->crossProduct(*y).normal();
  return OdGeMatrix3d::coordSystem(*origin, *x, z.crossProduct(*x), z);
}

std::optional<OdDb::UnitsValue> parseUnits(std::string_view text) {
  if (const auto code = wholeNumber<int>(text, 10))
    return *code >= 0 && *code <= OdDb::kUnitsMax ? std::optional(static_cast<OdDb::UnitsValue>(*code)) : std::nullopt;
  const OdString wanted = OdString::fromUtf8(text);
  const auto found = std::find_if(kUnitNames.begin(), kUnitNames.end(), [&](const UnitName& row) {
    return wanted.iCompare(OdString::fromUtf8(row.name)) == 0;
  });
  return found == kUnitNames.end() ? std::nullopt : std::optional(found->units);
}

OdString unitsText(OdDb::UnitsValue units) {
  const auto found =
      std::find_if(kUnitNames.begin(), kUnitNames.end(), [&](const UnitName& row) { return row.units == units; });
  return found == kUnitNames.end() ? OdString(std::to_wstring(units)) : OdString::fromUtf8(found->name);
}

std::optional<std::uint64_t> parseHandle(std::string_view text) {
  const auto handle = wholeNumber<std::uint64_t>(text, 16);
  return handle && *handle != 0 ? handle : std::nullopt;
}

OdString realText(double value) {
  const auto form = static_cast<morvane::LinearUnits>(std::clamp<short>(shortVariable(L"LUNITS", 2), 1, 5));
  const auto text = morvane::formatReal(value, form, std::clamp<short>(shortVariable(L"LUPREC", 4), 0, 8));
  if (!text)
    return exactText(value);
  std::wstring result = *text;
  if (form == morvane::LinearUnits::kDecimal && result.find(L'.') != std::wstring::npos &&
      result.find(L'E') == std::wstring::npos) {
    result.resize(result.find_last_not_of(L'0') + 1);
    if (result.back() == L'.')
      result.pop_back();
  }
  return OdString(result == L"-0" ? std::wstring(L"0") : result);
}

OdString tripleText(double x, double y, double z) {
  return realText(x) + L"," + realText(y) + L"," + realText(z);
}

OdString pointText(const OdGePoint3d& pointWcs) {
  const double world[3] = {pointWcs.x, pointWcs.y, pointWcs.z};
  double ucs[3] = {pointWcs.x, pointWcs.y, pointWcs.z};
  mvsi::mvsidbWcs2Ucs(world, ucs, false);
  return tripleText(ucs[0], ucs[1], ucs[2]);
}

OdString exactText(double value) {
  char buffer[32];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
  return OdString::fromUtf8(std::string_view(buffer, static_cast<std::size_t>(end - buffer)));
}

OdString degreesText(double angleRad) {
  return realText(angleRad * 180.0 / std::numbers::pi);
}

OdString handleText(OdDbObjectId id) {
  return OdString::fromUtf8(id.getHandle().ascii());
}

} // namespace console
