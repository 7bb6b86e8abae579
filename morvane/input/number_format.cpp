#include "morvane/limits.h"
#include "morvane/units.h"

#include <array>
#include <charconv>
#include <cmath>

namespace morvane {
namespace {

constexpr double kInchesInFoot = 12.0;
// Above this a double holds no fractions any more and its digits no longer fit integer arithmetic.
constexpr double kLargestWrittenOut = 9.0e15;

std::wstring widen(std::string_view narrow) {
  return std::wstring(narrow.begin(), narrow.end());
}

std::wstring digits(double value, std::chars_format format, int precision) {
  std::array<char, 400> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format, precision).ptr;
  std::wstring text = widen({buffer.data(), static_cast<std::size_t>(end - buffer.data())});
  // A value that rounds to nothing has no sign.
  if (text.starts_with(L'-') && text.find_first_of(L"123456789") == std::wstring::npos)
    text.erase(0, 1);
  return text;
}

std::wstring scientific(double value, int precision) {
  std::wstring text = digits(value, std::chars_format::scientific, precision);
  if (const auto at = text.find(L'e'); at != std::wstring::npos)
    text[at] = L'E';
  return text;
}

std::wstring decimal(double value, int precision) {
  return digits(value, std::chars_format::fixed, precision);
}

// Feet and inches; `inches` is the text of what is left of a foot, empty when that is exactly nothing.
std::wstring withFeet(double feet, const std::wstring& inches) {
  if (feet == 0.0)
    return (inches.empty() ? L"0" : inches) + std::wstring(L"\"");
  const std::wstring whole = decimal(feet, 0) + L"'";
  return inches.empty() ? whole : whole + L"-" + inches + L"\"";
}

std::wstring engineering(double magnitude, int precision) {
  // Rounded as a whole first, so that 11.99999" becomes a foot and never 12.0000".
  const double scale = std::pow(10.0, precision);
  const double rounded = std::round(magnitude * scale) / scale;
  const double feet = std::floor(rounded / kInchesInFoot);
  const double inches = rounded - feet * kInchesInFoot;
  std::wstring text = decimal(inches, precision);
  const bool nothing = text.find_first_of(L"123456789") == std::wstring::npos;
  return withFeet(feet, nothing && feet != 0.0 ? std::wstring() : text);
}

// Whole and fraction of a value in units of 1 / 2^precision, reduced. Empty for 0.
std::wstring mixedNumber(double value, int precision) {
  double denominator = std::ldexp(1.0, precision);
  double numerator = std::round(value * denominator);
  const double whole = std::floor(numerator / denominator);
  numerator -= whole * denominator;
  while (numerator > 0.0 && std::fmod(numerator, 2.0) == 0.0) {
    numerator /= 2.0;
    denominator /= 2.0;
  }
  std::wstring text = whole > 0.0 ? decimal(whole, 0) : std::wstring();
  if (numerator > 0.0)
    text += (text.empty() ? L"" : L" ") + decimal(numerator, 0) + L"/" + decimal(denominator, 0);
  return text;
}

std::wstring architectural(double magnitude, int precision) {
  const double scale = std::ldexp(1.0, precision);
  const double rounded = std::round(magnitude * scale) / scale;
  const double feet = std::floor(rounded / kInchesInFoot);
  return withFeet(feet, mixedNumber(rounded - feet * kInchesInFoot, precision));
}

std::wstring fractional(double magnitude, int precision) {
  const std::wstring text = mixedNumber(magnitude, precision);
  return text.empty() ? L"0" : text;
}

std::wstring withSign(double value, std::wstring text) {
  const bool shows = text.find_first_of(L"123456789") != std::wstring::npos;
  return value < 0.0 && shows ? L"-" + text : text;
}

} // namespace

std::optional<std::wstring> formatReal(double value, LinearUnits form, int precision) {
  if (!std::isfinite(value) || precision < 0 || precision > kFinestPrecision)
    return std::nullopt;
  const double magnitude = std::fabs(value);
  switch (form) {
  case LinearUnits::kScientific:
    return scientific(value, precision);
  case LinearUnits::kDecimal:
    if (std::wstring text = decimal(value, precision); text.size() <= static_cast<std::size_t>(kMaxNumberLength))
      return text;
    return scientific(value, precision);
  case LinearUnits::kEngineering:
  case LinearUnits::kArchitectural:
  case LinearUnits::kFractional:
    break;
  default:
    return std::nullopt;
  }
  if (magnitude * std::pow(10.0, precision) > kLargestWrittenOut)
    return scientific(value, precision);
  if (form == LinearUnits::kEngineering)
    return withSign(value, engineering(magnitude, precision));
  if (form == LinearUnits::kArchitectural)
    return withSign(value, architectural(magnitude, precision));
  return withSign(value, fractional(magnitude, precision));
}

} // namespace morvane
