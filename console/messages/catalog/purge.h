// Texts of the console: purging.
#pragma once

#include "console/messages/messages.h"

namespace console::msg {

inline constexpr MessageText kPromptPurge{"prompt.purge",
                                          L"Purge [All/Blocks/LAyers/LTypes/Textstyles/Dimstyles/Others/?] <All>:"};
inline constexpr MessageText kKeywordsPurge{"keywords.purge",
                                            L"All Blocks LAyers LTypes Textstyles Dimstyles Others ? _All Blocks "
                                            L"Layers Linetypes Textstyles Dimstyles Others ?"};
inline constexpr MessageText kPurged{"purge.purged", L"Purged {1} \"{2}\"."};
inline constexpr MessageText kPurgeable{"purge.purgeable", L"Can be purged: {1} \"{2}\"."};
inline constexpr MessageText kPurgeCount{"purge.count", L"{1} {1:object|objects} purged."};
inline constexpr MessageText kNothingToPurge{"purge.nothing", L"Nothing to purge."};
inline constexpr MessageText kNotPurged{"purge.kept", L"Not purged: {1} \"{2}\": {3}."};
inline constexpr MessageText kUseByBlock{"purge.use-by-block", L"referenced by block \"{1}\" ({2} {2:time|times})"};
inline constexpr MessageText kUseBySpace{"purge.use-by-space", L"used in \"{1}\" ({2} {2:time|times})"};
inline constexpr MessageText kUseByArrow{"purge.use-by-arrow", L"arrowhead of dimension style \"{1}\""};
inline constexpr MessageText kUseByRecord{"purge.use-by-record", L"used by {3} \"{1}\" ({2} {2:time|times})"};
inline constexpr MessageText kUseByVariable{"purge.use-by-variable", L"referenced by the variable {1}"};
inline constexpr MessageText kUseNeeded{"purge.needed", L"required in every drawing"};
inline constexpr MessageText kUseExternal{"purge.external", L"belongs to an external reference"};
inline constexpr MessageText kUseMore{"purge.more-uses", L"and {1} more"};
inline constexpr MessageText kNoOutput{"usage.no-output", L"Specify the drawing to write with -o, or use --dry-run."};

} // namespace console::msg
