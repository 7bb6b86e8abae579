// Numbers as people type and read them. Without regard to the locale; numbers that are not finite are refused.
#pragma once

#include "morvane/export.h"

#include <optional>
#include <string>
#include <string_view>

namespace morvane {

enum class LinearUnits { kScientific = 1, kDecimal = 2, kEngineering = 3, kArchitectural = 4, kFractional = 5 };

inline constexpr int kFinestPrecision = 8; // decimal places, or the power of two below a fraction

// A distance in any form: 12.5  1.25E+01  1'-2.5"  1'-2 1/2"  1'-2-1/2"  14 1/2  1/2. A foot is 12 units.
MORVANE_API std::optional<double> parseDistance(std::wstring_view text);

// An angle in radians: 45  45d30'15"  50g  0.5r.
MORVANE_API std::optional<double> parseAngle(std::wstring_view text);

// The value in that form. Nothing for a value that is not finite or a precision outside 0..kFinestPrecision. A value
// too large to be written out in its form comes in scientific form, so that no text is longer than kMaxNumberLength.
MORVANE_API std::optional<std::wstring> formatReal(double value, LinearUnits form, int precision);

// Millimetres of one unit of an insertion-units code (0 no units: 1; 1 inches ... 24 survey miles).
MORVANE_API std::optional<double> unitsFactor(int unitsCode);

} // namespace morvane
