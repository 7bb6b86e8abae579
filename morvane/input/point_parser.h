// Points as they are typed.
#pragma once

#include "morvane/input.h"

#include <array>
#include <optional>
#include <string_view>

namespace morvane::input {

// X,Y[,Z]  @dX,dY[,dZ]  @  distance<angle[,Z]  @distance<angle[,dZ], each with '*' (behind the '@') for world
// coordinates. `lastPointWcs` is what '@' starts from; a null frame makes UCS and world the same. The answer is in the
// UCS.
std::optional<std::array<double, 3>> parsePoint(std::wstring_view text, const std::array<double, 3>& lastPointWcs,
                                                const CoordinateFrame* frame);

} // namespace morvane::input
