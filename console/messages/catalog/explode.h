// Texts of the console: exploding.
#pragma once

#include "console/messages/messages.h"

namespace console::msg {

inline constexpr MessageText kHelpExplode{"help.explode", L"Explode block references, one level"};
inline constexpr MessageText kPromptAttributesAsText{"prompt.attributes-as-text",
                                                     L"Convert attributes to text? [Yes/No] <No>:"};
inline constexpr MessageText kExploded{"explode.done",
                                       L"{1} {1:reference|references} exploded into {2} {2:object|objects}."};
inline constexpr MessageText kNothingExploded{"explode.nothing", L"Nothing was exploded."};
inline constexpr MessageText kExplodeNoReference{"explode.no-reference",
                                                 L"{1} is not a block reference and is unchanged."};
inline constexpr MessageText kExplodeExternal{"explode.external",
                                              L"The reference {1} is an external reference and is unchanged."};
inline constexpr MessageText kExplodeNotAllowed{"explode.not-allowed",
                                                L"The block of the reference {1} is not explodable."};
inline constexpr MessageText kExplodeCannotPlace{
    "explode.cannot-place",
    L"The reference {1} is unchanged: its transformation cannot be applied to these objects of its block: {2}."};
inline constexpr MessageText kExplodeTooMuch{"explode.too-much",
                                             L"The reference {1} is unchanged: it contains too many objects."};
inline constexpr MessageText kExplodeClip{
    "explode.clip", L"The clip boundary of the reference {1} is removed; all objects of its block are visible."};
inline constexpr MessageText kExplodeValues{"explode.values-lost",
                                            L"{1} {1:attribute value is|attribute values are} lost."};

} // namespace console::msg
