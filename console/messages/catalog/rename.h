// Texts of the console: renaming.
#pragma once

#include "console/messages/messages.h"

namespace console::msg {

inline constexpr MessageText kPromptRenameKind{"prompt.rename-kind",
                                               L"Rename [Block/LAyer/LType/Textstyle/Dimstyle] <Block>:"};
inline constexpr MessageText kKeywordsRename{
    "keywords.rename", L"Block LAyer LType Textstyle Dimstyle _Block Layer Linetype Textstyle Dimstyle"};
inline constexpr MessageText kPromptOldName{"prompt.old-name", L"Old name:"};
inline constexpr MessageText kPromptNewName{"prompt.new-name", L"New name:"};
inline constexpr MessageText kRenamed{"rename.renamed", L"Renamed {1} \"{2}\" to \"{3}\"."};
inline constexpr MessageText kRenameUnknown{"rename.unknown", L"Cannot find {1} \"{2}\"."};
inline constexpr MessageText kRenameTaken{"rename.taken", L"A {1} \"{2}\" already exists."};
inline constexpr MessageText kRenameFixed{"rename.fixed", L"Cannot rename {1} \"{2}\": every drawing requires it."};
inline constexpr MessageText kRenameIllegal{"rename.illegal",
                                            L"\"{2}\" is not a valid name for a {1} in this drawing."};
inline constexpr MessageText kBadRename{"usage.rename", L"{1} takes OLD=NEW, not \"{2}\"."};
inline constexpr MessageText kNoRename{
    "usage.no-rename",
    L"Specify what to rename with --block, --layer, --linetype, --style or --dimstyle, each with OLD=NEW."};

} // namespace console::msg
