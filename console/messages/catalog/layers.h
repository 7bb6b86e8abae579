// Texts of the console: layers.
#pragma once

#include "console/messages/messages.h"

namespace console::msg {

inline constexpr MessageText kPromptLayerOption{"prompt.layer-option", L"Layers [?/Make/Set/Lock/Unlock] <done>:"};
inline constexpr MessageText kKeywordsLayer{"keywords.layer", L"? Make Set Lock Unlock _? Make Set Lock Unlock"};
inline constexpr MessageText kPromptLayerName{"prompt.layer-name", L"Layer <{1}>:"};
inline constexpr MessageText kNoSuchLayer{"layer.unknown", L"Layer \"{1}\" not found."};
inline constexpr MessageText kLayerFrozen{"layer.frozen", L"The layer \"{1}\" is frozen and cannot be current."};
inline constexpr MessageText kLayerLine{"layer.line", L"Layer \"{1}\"{2}"};
inline constexpr MessageText kLayerFlagCurrent{"layer.mark-current", L", current"};
inline constexpr MessageText kLayerFlagLocked{"layer.mark-locked", L", locked"};
inline constexpr MessageText kLayerFlagFrozen{"layer.mark-frozen", L", frozen"};
inline constexpr MessageText kLayerFlagOff{"layer.mark-off", L", off"};
inline constexpr MessageText kLayerIsCurrent{"layer.current", L"The layer \"{1}\" is current."};
inline constexpr MessageText kLayerLocked{"layer.locked", L"The layer \"{1}\" is locked."};
inline constexpr MessageText kLayerUnlocked{"layer.unlocked", L"The layer \"{1}\" is unlocked."};
inline constexpr MessageText kBadLayerName{"layer.bad-name", L"\"{1}\" is not a valid layer name."};

} // namespace console::msg
