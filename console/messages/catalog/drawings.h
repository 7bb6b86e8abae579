// Texts of the console: opening and saving.
#pragma once

#include "console/messages/messages.h"

namespace console::msg {

inline constexpr MessageText kNewDrawing{"drawing.new", L"New drawing."};
inline constexpr MessageText kOpened{"drawing.opened", L"Opened {1}: {2} {2:object|objects}, version {3}."};
inline constexpr MessageText kUnreadable{"drawing.unreadable", L"{1}"};
inline constexpr MessageText kReadIssue{"drawing.issue", L"{1}: {2}"};
inline constexpr MessageText kMoreIssues{"drawing.more-issues", L"{1}: {2} more {2:finding|findings} of this kind."};
inline constexpr MessageText kRepaired{"drawing.repaired",
                                       L"{1} was damaged. {2} {2:problem|problems}: data repaired or lost."};
inline constexpr MessageText kPromptFileName{"prompt.file-name", L"File name:"};
inline constexpr MessageText kPromptFileNameOr{"prompt.file-name-or", L"File name <{1}>:"};
inline constexpr MessageText kPromptVersion{"prompt.version", L"Version [12/2000/2004/2007/2010/2013/2018] <{1}>:"};
inline constexpr MessageText kNoSuchVersion{
    "version.unknown", L"\"{1}\" is not a version. Versions: 12, 2000, 2004, 2007, 2010, 2013, 2018."};
inline constexpr MessageText kFileExists{"file.exists", L"{1} exists; --force replaces it."};
inline constexpr MessageText kReplaceQuestion{"file.replace-question", L"{1} exists. Replace it? [Yes/No] <No>:"};
inline constexpr MessageText kRepairedOwnFile{
    "file.repaired-own",
    L"{1} was damaged and is repaired in memory only; --force overwrites it with the repaired drawing."};
inline constexpr MessageText kRepairedOwnQuestion{
    "file.repaired-own-question",
    L"{1} was damaged and is repaired in memory only. Overwrite it with the repaired drawing? [Yes/No] <No>:"};
inline constexpr MessageText kNotADrawingName{"file.dwg", L"{1}: DWG files cannot be written; specify a .dxf file."};
inline constexpr MessageText kSaved{"drawing.saved", L"Saved {1}, version {2}."};
inline constexpr MessageText kSaveFailed{"drawing.save-failed", L"Not saved; the file on disk is unchanged: {1}"};
inline constexpr MessageText kVersionLoss{"drawing.version-loss", L"{1}: {2}"};
inline constexpr MessageText kNoFileName{"file.no-name", L"Specify a file name."};
inline constexpr MessageText kXrefNote{"drawing.xref", L"{1}: {2}"};

} // namespace console::msg
