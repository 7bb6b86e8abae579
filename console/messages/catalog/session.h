// Texts of the console: running commands.
#pragma once

#include "console/messages/messages.h"

namespace console::msg {

inline constexpr MessageText kPromptCommand{"prompt.command", L"Command:"};
inline constexpr MessageText kUnknownCommand{"command.unknown", L"Unknown command \"{1}\". HELP lists the commands."};
inline constexpr MessageText kCancelled{"command.cancelled", L"*Cancel*"};
inline constexpr MessageText kFailed{"command.failed", L"The command failed: {1}"};
inline constexpr MessageText kUnsavedAtEnd{"drawing.unsaved", L"The drawing has unsaved changes."};
inline constexpr MessageText kDiscardQuestion{"drawing.discard-question",
                                              L"The drawing has unsaved changes. Discard them? [Yes/No] <No>:"};
inline constexpr MessageText kQuestionRefused{"question.refused", L"Not answered: {1}"};
inline constexpr MessageText kKeywordsYesNo{"keywords.yes-no", L"Yes No _Yes No"};
inline constexpr MessageText kYesOrNo{"prompt.yes-or-no", L"Answer yes or no."};
inline constexpr MessageText kHelpHeader{
    "help.head", L"Commands (aliases in brackets); HELP followed by a name describes a command:"};
inline constexpr MessageText kHelpRow{"help.row", L"  {1}  {2}"};
inline constexpr MessageText kHelpOne{"help.command", L"{1}: {2}"};
inline constexpr MessageText kHelpPrompts{"help.asks", L"Prompts, in this order and as needed:"};
inline constexpr MessageText kHelpQuestion{"help.question", L"  {1}"};
inline constexpr MessageText kHelpAttdef{"help.attdef", L"Draw an attribute definition"};
inline constexpr MessageText kHelpBlock{"help.block", L"Make a block of objects"};
inline constexpr MessageText kHelpCircle{"help.circle", L"Draw a circle"};
inline constexpr MessageText kHelpErase{"help.erase", L"Erase objects"};
inline constexpr MessageText kHelpHelp{"help.help", L"List the commands, or describe one"};
inline constexpr MessageText kHelpLayer{"help.layer", L"Make, set, lock and unlock layers"};
inline constexpr MessageText kHelpLine{"help.line", L"Draw lines"};
inline constexpr MessageText kHelpList{"help.list", L"List the selected objects, or all objects, and the blocks"};
inline constexpr MessageText kHelpNew{"help.new", L"Start a new drawing"};
inline constexpr MessageText kHelpOpen{"help.open", L"Open a drawing"};
inline constexpr MessageText kHelpPurge{"help.purge", L"Remove unused blocks, layers and styles"};
inline constexpr MessageText kHelpQuit{"help.quit", L"End the program"};
inline constexpr MessageText kHelpRedo{"help.redo", L"Redo what UNDO reverted"};
inline constexpr MessageText kHelpRename{"help.rename", L"Rename blocks, layers and styles"};
inline constexpr MessageText kHelpSave{"help.save", L"Save the drawing in its file"};
inline constexpr MessageText kHelpSaveas{"help.saveas", L"Save the drawing in another file or version"};
inline constexpr MessageText kHelpSelect{"help.select", L"Select objects for the next command"};
inline constexpr MessageText kHelpSetvar{"help.setvar", L"Show and set system variables"};
inline constexpr MessageText kHelpText{"help.text", L"Draw a line of text"};
inline constexpr MessageText kHelpUcs{"help.ucs", L"Set the user coordinate system"};
inline constexpr MessageText kHelpUndo{"help.undo", L"Undo the last command"};

} // namespace console::msg
