// Numbers as users enter and read them, independent of the locale. Functions return no value for text that is not valid
// and numbers that are not finite.
#pragma once

#include "morvane/export.h"

#include <optional>
#include <string>
#include <string_view>

namespace morvane {

// Forms of lengths; values of the variable LUNITS.
enum class LinearUnits { kScientific = 1, kDecimal = 2, kEngineering = 3, kArchitectural = 4, kFractional = 5 };

// Maximum precision: decimal places, or the power of two in a denominator.
inline constexpr int kFinestPrecision = 8;

// Parses a distance in any form: 12.5  1.25E+01  1'-2.5"  1'-2 1/2"  1'-2-1/2"  14 1/2  1/2. A foot is 12 units.
MORVANE_API std::optional<double> parseDistance(std::wstring_view text);

// Parses an angle into radians: 45  45d30'15"  50g  0.5r.
MORVANE_API std::optional<double> parseAngle(std::wstring_view text);

// Formats a value in that form. No value also for a precision outside 0 to kFinestPrecision. A value that is too large
// for its form is written in scientific form, so that no text is longer than kMaxNumberLength.
MORVANE_API std::optional<std::wstring> formatReal(double value, LinearUnits form, int precision);

// Length of one unit of an insertion units code in millimetres (0 unitless: 1; 1 inches ... 24 survey miles).
MORVANE_API std::optional<double> unitsFactor(int unitsCode);

} // namespace morvane
