// Maximum lengths of texts that the host writes into buffers of its callers.
#pragma once

namespace morvane {
// Numbers of characters without the terminating zero.
inline constexpr int kMaxAnswerLength = 4095; // a line of input
inline constexpr int kMaxNumberLength = 255;  // a number as text
inline constexpr int kMaxPathLength = 4095;   // a path
} // namespace morvane
