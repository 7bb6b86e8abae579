// Texts of the console: inserting.
#pragma once

#include "console/messages/messages.h"

namespace console::msg {

inline constexpr MessageText kHelpInsert{"help.insert", L"Insert a block, or a drawing file as a block"};
inline constexpr MessageText kPromptInsertName{"prompt.insert-name", L"Block or drawing file, or NAME=FILE [?]:"};
inline constexpr MessageText kPromptInsertPoint{"prompt.insert-point", L"Insertion point [Rows] <0,0,0>:"};
inline constexpr MessageText kKeywordsInsert{"keywords.insert", L"Rows _Rows"};
inline constexpr MessageText kPromptRows{"prompt.rows", L"Rows <1>:"};
inline constexpr MessageText kPromptColumns{"prompt.columns", L"Columns <1>:"};
inline constexpr MessageText kPromptRowSpacing{"prompt.row-spacing", L"Distance between rows:"};
inline constexpr MessageText kPromptColumnSpacing{"prompt.column-spacing", L"Distance between columns:"};
inline constexpr MessageText kPromptScale{"prompt.scale", L"Scale <1>:"};
inline constexpr MessageText kPromptScaleX{"prompt.scale-x", L"X scale <1>:"};
inline constexpr MessageText kPromptScaleY{"prompt.scale-y", L"Y scale <same as X>:"};
inline constexpr MessageText kPromptInsertRotation{"prompt.insert-rotation", L"Rotation <0>:"};
inline constexpr MessageText kBadRows{"insert.rows",
                                      L"Rows and columns must be whole numbers from 1 to 32767, not {1}."};
inline constexpr MessageText kNoBlockOrFile{"insert.unknown", L"Block or drawing file \"{1}\" not found."};
inline constexpr MessageText kUnitsFactor{"insert.factor", L"Unit factor: {1}."};
inline constexpr MessageText kInserted{"insert.done", L"Block \"{1}\" inserted, handle {2}."};
inline constexpr MessageText kScaleZero{"insert.scale-zero", L"The scale must not be 0."};
inline constexpr MessageText kScaleUniform{"insert.scale-uniform",
                                           L"The block \"{1}\" requires one scale for all directions."};
inline constexpr MessageText kInsertsItself{"insert.itself", L"The block \"{1}\" cannot be inserted into itself."};
inline constexpr MessageText kDefinesEdited{"insert.edited",
                                            L"{1} defines the block \"{2}\", which is open in the block editor."};
inline constexpr MessageText kNotInserted{"insert.failed", L"{1} cannot be inserted as block \"{2}\"."};
inline constexpr MessageText kInsertNote{"insert.note", L"{1}: {2}"};
inline constexpr MessageText kConflictSame{"insert.clash-same",
                                           L"{1}: the block \"{2}\" already exists, with the same contents."};
inline constexpr MessageText kConflictOther{"insert.clash-other",
                                            L"{1}: the block \"{2}\" already exists, with different contents."};
inline constexpr MessageText kConflictKept{
    "insert.clash-kept", L"{1}: the existing block \"{2}\", which has different contents, is inserted."};
inline constexpr MessageText kConflictShared{
    "insert.clash-shared", L"{1}: the existing block \"{2}\", which has the same contents, is inserted."};
inline constexpr MessageText kConflictReplaced{"insert.clash-replaced",
                                               L"{1}: the existing block \"{2}\" is redefined."};
inline constexpr MessageText kConflictRenamed{"insert.clash-renamed",
                                              L"{1}: another block \"{2}\" exists; this one is named \"{3}\"."};
inline constexpr MessageText kNestedRenamed{
    "insert.nested-renamed", L"{1}: another block \"{2}\" exists; the one in the file is named \"{3}\"."};
inline constexpr MessageText kNestedKept{
    "insert.nested-kept",
    L"{1}: nested blocks that exist with different contents use the definitions of the drawing: {2}."};
inline constexpr MessageText kNoSuchTag{"insert.unknown-tag", L"The block has no attribute \"{1}\". It has: {2}."};
inline constexpr MessageText kAttributesNeeded{"insert.values-needed",
                                               L"Missing values (use --attr or --defaults): {1}."};
inline constexpr MessageText kListUnreadable{"insert.list-unreadable", L"The list {1} cannot be read."};
inline constexpr MessageText kListFailed{"insert.list-failed", L"Not inserted: {1}"};
inline constexpr MessageText kListSum{"insert.list-sum", L"{1} {1:file|files} inserted, {2} not inserted."};
inline constexpr MessageText kPreviewFile{"preview.file", L"{1} as block \"{2}\":"};
inline constexpr MessageText kPreviewSame{"preview.same",
                                          L"  The block \"{1}\" already exists, with the same contents."};
inline constexpr MessageText kPreviewOther{"preview.other",
                                           L"  The block \"{1}\" already exists, with different contents."};
inline constexpr MessageText kPreviewKept{"preview.kept", L"  Kept from the drawing: {1} {2}."};
inline constexpr MessageText kPreviewQuestion{"preview.question", L"  Prompt: {1}"};
inline constexpr MessageText kBadNumber{"usage.number", L"{1} takes numbers, not \"{2}\"."};
inline constexpr MessageText kBadScale{"usage.scale", L"{1} takes S or SX,SY,SZ, not \"{2}\"."};
inline constexpr MessageText kBadGrid{"usage.grid", L"{1} takes COLUMNS,DX,DY, not \"{2}\"."};
inline constexpr MessageText kBadAttribute{"usage.attribute", L"{1} takes TAG=VALUE, not \"{2}\"."};
inline constexpr MessageText kNameNeedsFile{"usage.name-needs-file", L"--name requires --file."};
inline constexpr MessageText kGridNeedsList{"usage.grid-needs-list", L"--grid requires --file-list."};

} // namespace console::msg
