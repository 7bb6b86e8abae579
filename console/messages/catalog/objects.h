// Texts of the console: drawing objects.
#pragma once

#include "console/messages/messages.h"

namespace console::msg {

inline constexpr MessageText kPromptFromPoint{"prompt.from-point", L"From point:"};
inline constexpr MessageText kPromptToPoint{"prompt.to-point", L"To point <done>:"};
inline constexpr MessageText kPromptToPointOrClose{"prompt.to-point-or-close", L"To point [Close] <done>:"};
inline constexpr MessageText kKeywordsClose{"keywords.close", L"Close _Close"};
inline constexpr MessageText kPromptCenter{"prompt.center", L"Center:"};
inline constexpr MessageText kPromptRadius{"prompt.radius", L"Radius:"};
inline constexpr MessageText kRadiusTooSmall{"circle.radius", L"The radius must be greater than 0."};
inline constexpr MessageText kPromptTextStart{"prompt.text-start", L"Start point of the text:"};
inline constexpr MessageText kPromptHeight{"prompt.height", L"Height <{1}>:"};
inline constexpr MessageText kHeightTooSmall{"text.height", L"The height must be greater than 0."};
inline constexpr MessageText kPromptAngle{"prompt.angle", L"Rotation <0>:"};
inline constexpr MessageText kNotAnAngle{"prompt.not-an-angle", L"\"{1}\" is not an angle."};
inline constexpr MessageText kPromptText{"prompt.text", L"Text:"};
inline constexpr MessageText kPromptTag{"prompt.tag", L"Tag:"};
inline constexpr MessageText kBadTag{"attribute.bad-tag",
                                     L"\"{1}\" is not a valid tag: a tag must not be empty or contain spaces or !."};
inline constexpr MessageText kPromptTagPrompt{"prompt.tag-prompt", L"Prompt text <{1}>:"};
inline constexpr MessageText kPromptTagDefault{"prompt.tag-default", L"Default value:"};

} // namespace console::msg
