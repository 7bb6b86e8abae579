// Texts of the console: system variables.
#pragma once

#include "console/messages/messages.h"

namespace console::msg {

inline constexpr MessageText kPromptVariable{"prompt.variable", L"Variable:"};
inline constexpr MessageText kPromptValue{"prompt.value", L"New value for {1} <{2}>:"};
inline constexpr MessageText kNoSuchVariable{"variable.unknown", L"Unknown variable \"{1}\"."};
inline constexpr MessageText kVariableRefused{"variable.refused", L"{1} cannot be set to \"{2}\"."};
inline constexpr MessageText kVariableLine{"variable.value", L"{1} = {2}"};

} // namespace console::msg
