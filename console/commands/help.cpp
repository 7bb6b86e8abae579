#include "console/commands/commands.h"
#include "console/session.h"

namespace console::commands {
namespace {

OdString namesOf(const Command& command) {
  OdString names = command.name;
  for (const std::wstring_view alias : command.aliases)
    names += OdString(L" (") + OdString(alias) + L")";
  constexpr int kColumn = 14;
  return names + OdString(L' ', kColumn - names.getLength());
}

} // namespace

void help(CommandContext& context) {
  context.session.result(Text::kHelpHead);
  for (const Command& command : allCommands())
    context.session.result(Text::kHelpRow, {namesOf(command), render(command.help)});
}

} // namespace console::commands
