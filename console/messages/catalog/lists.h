// Texts of the console: lists of objects.
#pragma once

#include "console/messages/messages.h"

namespace console::msg {

inline constexpr MessageText kListObject{"list.object", L"{1}  handle {2}  layer \"{3}\"  {4}"};
inline constexpr MessageText kListBlock{"list.block",
                                        L"Block \"{1}\": {2} {2:object|objects}, {3} {3:reference|references}"};
inline constexpr MessageText kListSummary{"list.summary", L"{1} {1:object|objects}, {2} {2:block|blocks}"};
inline constexpr MessageText kNoBlocks{"list.no-blocks", L"The drawing has no blocks."};
inline constexpr MessageText kDescribeLine{"describe.line", L"from {1} to {2}"};
inline constexpr MessageText kDescribeCircle{"describe.circle", L"center {1}, radius {2}"};
inline constexpr MessageText kDescribeText{"describe.text", L"at {1}, height {2}, \"{3}\""};
inline constexpr MessageText kDescribeAttribute{"describe.attribute", L"tag {4}, at {1}, height {2}, \"{3}\""};
inline constexpr MessageText kDescribeReference{
    "describe.reference", L"block \"{1}\" at {2}, scale {3}, rotation {4}, {5} {5:attribute|attributes}"};
inline constexpr MessageText kDescribeExtents{"describe.extents", L"between {1} and {2}"};

} // namespace console::msg
