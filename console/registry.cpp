#include "console/command.h"
#include "console/commands/commands.h"

#include "OdString.h"

#include <algorithm>

namespace console {

const std::vector<Command>& allCommands() {
  using enum Command::Kind;
  static const std::vector<Command> table = {
      {L"ATTDEF", {L"ATT"}, Text::kHelpAttdef, Changes, commands::attdef},
      {L"BLOCK", {L"B"}, Text::kHelpBlock, Changes, commands::block},
      {L"CIRCLE", {L"C"}, Text::kHelpCircle, Changes, commands::circle},
      {L"ERASE", {L"E"}, Text::kHelpErase, Changes, commands::erase},
      {L"HELP", {L"?"}, Text::kHelpHelp, Looks, commands::help},
      {L"LAYER", {L"LA"}, Text::kHelpLayer, Changes, commands::layer},
      {L"LINE", {L"L"}, Text::kHelpLine, Changes, commands::line},
      {L"LIST", {L"LI"}, Text::kHelpList, Looks, commands::list},
      {L"NEW", {}, Text::kHelpNew, Looks, commands::newDrawing},
      {L"OPEN", {}, Text::kHelpOpen, Looks, commands::open},
      {L"QUIT", {L"EXIT"}, Text::kHelpQuit, Looks, commands::quit},
      {L"REDO", {}, Text::kHelpRedo, Looks, commands::redo},
      {L"SAVE", {}, Text::kHelpSave, Looks, commands::save},
      {L"SAVEAS", {}, Text::kHelpSaveas, Looks, commands::saveas},
      {L"SELECT", {L"SE"}, Text::kHelpSelect, Selects, commands::select},
      {L"SETVAR", {L"SET"}, Text::kHelpSetvar, Changes, commands::setvar},
      {L"TEXT", {L"DT"}, Text::kHelpText, Changes, commands::text},
      {L"UCS", {}, Text::kHelpUcs, Changes, commands::ucs},
      {L"UNDO", {L"U"}, Text::kHelpUndo, Looks, commands::undo},
  };
  return table;
}

const Command* findCommand(std::wstring_view typed) {
  const OdString wanted(typed);
  const auto& table = allCommands();
  const auto found = std::find_if(table.begin(), table.end(), [&](const Command& command) {
    const auto& others = command.aliases;
    return wanted.iCompare(command.name) == 0 ||
           std::any_of(others.begin(), others.end(),
                       [&](std::wstring_view alias) { return wanted.iCompare(OdString(alias)) == 0; });
  });
  return found == table.end() ? nullptr : &*found;
}

} // namespace console
