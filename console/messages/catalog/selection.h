// Texts of the console: selection.
#pragma once

#include "console/messages/messages.h"

namespace console::msg {

inline constexpr MessageText kPromptSelect{
    "prompt.select", L"Select objects [All/Window/Crossing/Fence/LAyer/Type/Handle/Last/Previous/Remove/ADd] <done>:"};
inline constexpr MessageText kPromptRemove{
    "prompt.remove", L"Remove objects [All/Window/Crossing/Fence/LAyer/Type/Handle/Last/Previous/Remove/ADd] <done>:"};
inline constexpr MessageText kKeywordsSelect{"keywords.select",
                                             L"All Window Crossing Fence LAyer Type Handle Last Previous Remove ADd "
                                             L"_All Window Crossing Fence Layer Type Handle Last Previous Remove Add"};
inline constexpr MessageText kPromptCorner{"prompt.corner", L"First corner:"};
inline constexpr MessageText kPromptOtherCorner{"prompt.other-corner", L"Other corner:"};
inline constexpr MessageText kPromptFence{"prompt.fence", L"First point of the fence:"};
inline constexpr MessageText kPromptFenceNext{"prompt.fence-next", L"Next point <done>:"};
inline constexpr MessageText kPromptSelectLayer{"prompt.select-layer", L"Layer:"};
inline constexpr MessageText kPromptSelectType{"prompt.select-type", L"Object type:"};
inline constexpr MessageText kPromptSelectHandle{"prompt.select-handle", L"Handle:"};
inline constexpr MessageText kSelected{"select.count", L"{1} {1:object|objects} selected."};
inline constexpr MessageText kSelectedBefore{"select.before", L"{1} {1:object|objects} selected before the command."};
inline constexpr MessageText kNothingPrevious{"select.no-previous", L"No previous selection."};
inline constexpr MessageText kNothingSelected{"select.nothing", L"No objects are selected."};
inline constexpr MessageText kNoSuchLayerAmong{"select.unknown-layer", L"Layer \"{1}\" not found. Layers: {2}."};
inline constexpr MessageText kNoSuchTypeAmong{"select.unknown-type", L"No object of type \"{1}\" found. Types: {2}."};
inline constexpr MessageText kNoSuchHandle{
    "select.unknown-handle", L"No selectable object has the handle \"{1}\". LIST shows the hexadecimal handles."};
inline constexpr MessageText kSpaceEmpty{"select.empty-space", L"The drawing has no objects to select."};
inline constexpr MessageText kLockedSkipped{"select.locked",
                                            L"{1} {1:object is|objects are} on locked layers and skipped."};
inline constexpr MessageText kAllLocked{"select.all-locked", L"All selected objects are on locked layers."};
inline constexpr MessageText kErased{"erase.count", L"{1} {1:object|objects} erased."};

} // namespace console::msg
