// Texts of the console: undo and redo.
#pragma once

#include "console/messages/messages.h"

namespace console::msg {

inline constexpr MessageText kUndone{"undo.undone", L"{1} undone."};
inline constexpr MessageText kRedone{"undo.redone", L"{1} redone."};
inline constexpr MessageText kNothingToUndo{"undo.nothing", L"Nothing to undo."};
inline constexpr MessageText kNothingToRedo{"redo.nothing", L"Nothing to redo."};

} // namespace console::msg
