// Texts of the console: options of subcommands.
#pragma once

#include "console/messages/messages.h"

namespace console::msg {

inline constexpr MessageText kBadPoint{"usage.point", L"{1} takes X,Y or X,Y,Z, not \"{2}\"."};
inline constexpr MessageText kBadUcs{
    "usage.ucs", L"{1} takes an origin and two axes at right angles, OX,OY,OZ/XX,XY,XZ/YX,YY,YZ, not \"{2}\"."};
inline constexpr MessageText kBadUnits{
    "usage.units", L"{1} takes a code from 0 to 24 or a name such as mm, cm, m, in, ft, not \"{2}\"."};
inline constexpr MessageText kBadVersion{"usage.version",
                                         L"{1} takes 12, 2000, 2004, 2007, 2010, 2013 or 2018, not \"{2}\"."};
inline constexpr MessageText kBadHandle{"usage.handle", L"{1} takes a hexadecimal handle, not \"{2}\"."};
inline constexpr MessageText kNoSelector{"usage.no-selector",
                                         L"Specify the objects with --select, --layer, --type or --handle."};
inline constexpr MessageText kScriptUnreadable{"script.unreadable", L"The script {1} cannot be read."};

} // namespace console::msg
