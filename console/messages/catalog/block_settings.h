// Texts of the console: settings of BLOCK.
#pragma once

#include "console/messages/messages.h"

namespace console::msg {

inline constexpr MessageText kPromptBlockBasePoint{"prompt.block-base-point", L"Base point [Settings] <0,0,0>:"};
inline constexpr MessageText kKeywordsBlock{"keywords.block", L"Settings _Settings"};
inline constexpr MessageText kBlockSettings{"block.settings",
                                            L"Explodable: {1}. Uniform scale: {2}. Open in the editor: {3}."};
inline constexpr MessageText kPromptBlockOptions{"prompt.block-settings",
                                                 L"Setting to toggle [Explodable/Uniform/Open] <done>:"};
inline constexpr MessageText kKeywordsBlockOptions{"keywords.block-settings",
                                                   L"Explodable Uniform Open _Explodable Uniform Open"};

} // namespace console::msg
