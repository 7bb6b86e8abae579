// Texts of the console: several drawings.
#pragma once

#include "console/messages/messages.h"

namespace console::msg {

inline constexpr MessageText kHelpDocs{"help.docs",
                                       L"List the open drawings; open more, switch between them, close one"};
inline constexpr MessageText kPromptDocs{"prompt.docs", L"Open drawings [?/Open/Switch/Close] <?>:"};
inline constexpr MessageText kKeywordsDocs{"keywords.docs", L"? Open Switch Close _? Open Switch Close"};
inline constexpr MessageText kPromptDocNumber{"prompt.doc-number", L"Number of the drawing:"};
inline constexpr MessageText kNoSuchDoc{"docs.unknown", L"Open drawing \"{1}\" not found."};
inline constexpr MessageText kDocLine{"docs.line", L"{1}. {2}{3}"};
inline constexpr MessageText kDocCurrent{"docs.is-current", L", current"};
inline constexpr MessageText kDocModified{"docs.is-modified", L", not saved"};
inline constexpr MessageText kDocIsCurrent{"docs.current", L"{1} is current."};
inline constexpr MessageText kOnlyDoc{"docs.only", L"No other drawing is open; QUIT ends the program."};

} // namespace console::msg
