// Texts of the console: writing blocks to files.
#pragma once

#include "console/messages/messages.h"

namespace console::msg {

inline constexpr MessageText kHelpWblock{"help.wblock",
                                         L"Write a block, objects or the whole drawing to a separate file"};
inline constexpr MessageText kPromptWblockFile{"prompt.wblock-file", L"File to write:"};
inline constexpr MessageText kPromptWblockSource{
    "prompt.wblock-source",
    L"Block to write, = for the block with the name of the file, * for the whole drawing [?] <select objects>:"};
inline constexpr MessageText kPromptUnits{"prompt.units", L"Units <{1}>:"};
inline constexpr MessageText kNoSuchUnits{
    "units.unknown", L"\"{1}\" is not a unit. Enter a code from 0 to 24 or a name such as mm, cm, m, in, ft."};
inline constexpr MessageText kTargetCompleted{"wblock.named", L"The file is {1}."};
inline constexpr MessageText kTargetMadeDxf{"wblock.dwg-settled",
                                            L"DWG files cannot be written; the format is DXF, version {1}."};
inline constexpr MessageText kNoTarget{"wblock.no-target", L"{1} cannot be written."};
inline constexpr MessageText kTargetIsOpen{"wblock.open", L"{1} is an open drawing; name another file."};
inline constexpr MessageText kFolderGone{"wblock.folder-gone",
                                         L"The folder {1} of the previous file no longer exists."};
inline constexpr MessageText kNotWritable{"wblock.too-large", L"The result is too large for a drawing."};
inline constexpr MessageText kNotMoved{
    "wblock.not-moved",
    L"{1} {1:object|objects} of type {2} cannot be moved to the base point and {1:is|are} omitted."};
inline constexpr MessageText kNotReadBack{"wblock.unreadable", L"{1} was written but cannot be read back: {2}"};
inline constexpr MessageText kReadBackDiffers{
    "wblock.differs", L"{1} does not match its source: {2} {2:object|objects} written, {3} read back."};
inline constexpr MessageText kBlockWritten{
    "wblock.written",
    L"Wrote {1}: {2} {2:object|objects}, {3} {3:definition|definitions}, version {4}; read back and counted."};
inline constexpr MessageText kLibraryWritten{"wblock.library",
                                             L"Wrote {1} {1:block|blocks} to {2}; each was read back and counted."};
inline constexpr MessageText kLibrarySkipped{"wblock.left-out", L"Skipped: \"{1}\" ({2})."};
inline constexpr MessageText kNoLibraryFolder{"wblock.no-folder", L"{1} is not a folder and cannot be created."};
inline constexpr MessageText kOneSource{
    "usage.one-source",
    L"Specify exactly one of --block, --all, --every-block or a selection (--select, --layer, --type, --handle)."};
inline constexpr MessageText kNoOutputFile{"usage.no-output-file", L"Specify the file to write with -o."};
inline constexpr MessageText kLibraryNoOutput{"usage.library-output",
                                              L"--every-block cannot be combined with -o or --base."};

} // namespace console::msg
