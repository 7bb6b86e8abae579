// Texts of the console: external references and the block editor.
#pragma once

#include "console/messages/messages.h"

namespace console::msg {

inline constexpr MessageText kHelpXref{"help.xref", L"List, attach, detach, reload and bind external references"};
inline constexpr MessageText kHelpBedit{"help.bedit", L"Open a block definition; commands edit it until BCLOSE"};
inline constexpr MessageText kHelpBclose{"help.bclose", L"Close the block that BEDIT opened"};
inline constexpr MessageText kPromptXref{"prompt.xref",
                                         L"External references [?/Attach/Overlay/Detach/Reload/Bind] <?>:"};
inline constexpr MessageText kKeywordsXref{"keywords.xref",
                                           L"? Attach Overlay Detach Reload Bind _? Attach Overlay Detach Reload Bind"};
inline constexpr MessageText kPromptXrefName{"prompt.xref-name", L"Name of the external reference, or * for all:"};
inline constexpr MessageText kPromptXrefNameOr{"prompt.xref-name-or", L"Name <{1}>:"};
inline constexpr MessageText kPromptXrefPoint{"prompt.xref-point", L"Insertion point:"};
inline constexpr MessageText kNoXrefs{"xref.none", L"The drawing has no external references."};
inline constexpr MessageText kNoSuchXref{"xref.unknown", L"External reference \"{1}\" not found."};
inline constexpr MessageText kXrefLine{"xref.line", L"\"{1}\": {2}, {3}"};
inline constexpr MessageText kXrefLoaded{"xref.loaded", L"loaded"};
inline constexpr MessageText kXrefUnloaded{"xref.unloaded", L"unloaded"};
inline constexpr MessageText kXrefNotFound{"xref.not-found", L"not found"};
inline constexpr MessageText kXrefRefused{"xref.refused", L"unreadable"};
inline constexpr MessageText kXrefInCycle{"xref.in-cycle", L"in a reference cycle"};
inline constexpr MessageText kXrefNotFollowed{"xref.not-followed", L"an overlay that is not loaded"};
inline constexpr MessageText kXrefNotLoaded{"xref.not-loaded", L"not loaded"};
inline constexpr MessageText kXrefNoFile{"xref.no-file", L"File \"{1}\" not found."};
inline constexpr MessageText kXrefItself{"xref.itself", L"{1} is this drawing; a drawing cannot reference itself."};
inline constexpr MessageText kXrefUnreadable{"xref.unreadable", L"{1} cannot be attached: {2}"};
inline constexpr MessageText kXrefNameTaken{"xref.name-taken", L"Another block has the name \"{1}\"."};
inline constexpr MessageText kUnsavedName{"drawing.unnamed", L"The drawing"};
inline constexpr MessageText kXrefAttached{"xref.attached",
                                           L"External reference \"{1}\" to {2}, scaled by {3} for its units."};
inline constexpr MessageText kXrefDetached{
    "xref.detached", L"External reference \"{1}\" detached; {2} {2:reference|references} erased."};
inline constexpr MessageText kXrefCannotBind{"xref.cannot-bind", L"\"{1}\" cannot be bound: \"{2}\" is {3}."};
inline constexpr MessageText kXrefSkipped{"xref.left-out", L"The overlay \"{2}\" in \"{1}\" is skipped."};
inline constexpr MessageText kXrefBound{"xref.bound", L"\"{1}\" is now an ordinary block."};
inline constexpr MessageText kPromptEditedBlock{"prompt.edited-block", L"Block to edit:"};
inline constexpr MessageText kNoBlockToEdit{"editor.unknown", L"Block \"{1}\" not found."};
inline constexpr MessageText kEditorOpen{"editor.open", L"The block \"{1}\" is already open; BCLOSE closes it."};
inline constexpr MessageText kEditorOpened{"editor.opened", L"Commands work on the contents of \"{1}\" until BCLOSE."};
inline constexpr MessageText kEditorClosed{"editor.closed", L"The block \"{1}\" is closed."};
inline constexpr MessageText kEditorNotOpen{"editor.not-open", L"No block is open; BEDIT opens one."};

} // namespace console::msg
