// Numbers and points of command lines, and how the console shows them.
#pragma once

#include "DbObjectId.h"
#include "Ge/GeMatrix3d.h"
#include "OdDb.h"
#include "OdString.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace console {

// The whole text must be a finite number.
std::optional<double> parseReal(std::string_view text);
std::optional<OdGePoint3d> parsePoint(std::string_view text); // X,Y or X,Y,Z
// OX,OY,OZ/XX,XY,XZ/YX,YY,YZ: origin and two axes at right angles, of any length.
std::optional<OdGeMatrix3d> parseUcs(std::string_view text);
std::optional<OdDb::UnitsValue> parseUnits(std::string_view text); // a code, or a name such as mm
OdString unitsText(OdDb::UnitsValue units);                        // the first of its names, or the code
std::optional<std::uint64_t> parseHandle(std::string_view text);   // hexadecimal, not 0

// In the drawing's units of length, without zeros at the end of decimals.
OdString realText(double value);
OdString pointText(const OdGePoint3d& pointWcs); // in the current UCS
OdString tripleText(double x, double y, double z);
OdString exactText(double value); // the shortest text that reads back equal
OdString degreesText(double angleRad);
OdString handleText(OdDbObjectId id); // hexadecimal

} // namespace console
