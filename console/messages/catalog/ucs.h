// Texts of the console: user coordinate systems.
#pragma once

#include "console/messages/messages.h"

namespace console::msg {

inline constexpr MessageText kPromptUcs{"prompt.ucs",
                                        L"User coordinate system [World/Origin/3point/Z/Previous/?] <World>:"};
inline constexpr MessageText kKeywordsUcs{"keywords.ucs",
                                          L"World Origin 3point Z Previous ? _World Origin 3point Z Previous ?"};
inline constexpr MessageText kPromptOrigin{"prompt.origin", L"New origin <0,0,0>:"};
inline constexpr MessageText kPromptXAxis{"prompt.x-axis", L"Point on the positive X axis:"};
inline constexpr MessageText kPromptYAxis{"prompt.y-axis", L"Point on the positive-Y side:"};
inline constexpr MessageText kPromptRotation{"prompt.rotation-about-z", L"Rotation about the Z axis <90>:"};
inline constexpr MessageText kUcsWorld{"ucs.world", L"The current coordinate system is the world coordinate system."};
inline constexpr MessageText kUcsLine{"ucs.current", L"Current coordinate system: origin {1}, X axis {2}, Y axis {3}."};
inline constexpr MessageText kUcsRecord{"ucs.record",
                                        L"Coordinate system \"{1}\": origin {2}, X axis {3}, Y axis {4}."};
inline constexpr MessageText kNoEarlierUcs{"ucs.no-previous", L"No previous coordinate system."};
inline constexpr MessageText kPointsInLine{"ucs.in-line", L"The three points are collinear."};

} // namespace console::msg
