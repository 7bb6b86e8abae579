// Lengths, in characters without the closing zero, of the texts that the host writes into buffers of its callers.
#pragma once

namespace morvane {
inline constexpr int kLongestAnswer = 4095; // a line of input
inline constexpr int kLongestNumber = 255;  // a number as text
inline constexpr int kLongestPath = 4095;   // a path
} // namespace morvane
