// Texts of the console: options of reading.
#pragma once

#include "console/messages/messages.h"

namespace console::msg {

inline constexpr MessageText kBadEncoding{
    "usage.encoding", L"{1} takes a code page such as ANSI_1251, ANSI_936, DOS437, ISO8859-5 or UTF-8, not \"{2}\"."};
inline constexpr MessageText kBadMemory{"usage.memory",
                                        L"{1} takes a number of bytes, or one with K, M or G, not \"{2}\"."};

} // namespace console::msg
