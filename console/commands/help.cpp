#include "console/commands/commands.h"
#include "console/messages/catalog/session.h"
#include "console/session/failure.h"
#include "console/session/session.h"

namespace console::commands {
namespace {

OdString namesOf(const Command& command) {
  OdString names = command.name;
  for (const std::wstring_view alias : command.aliases)
    names += OdString(L" (") + OdString(alias) + L")";
  return names;
}

OdString padded(const OdString& names) {
  constexpr int kColumn = 14;
  return names + OdString(L' ', kColumn - names.getLength());
}

void listAll(Session& session, const CommandTable& commands) {
  session.result(msg::kHelpHeader);
  for (const Command& command : commands)
    session.result(msg::kHelpRow, {padded(namesOf(command)), render(command.help)});
}

// The questions as they will be asked; a default that is not known yet is shown as dots.
void printCommandHelp(Session& session, const Command& command) {
  constexpr wchar_t kUnknown[] = L"...";
  session.result(msg::kHelpOne, {namesOf(command), render(command.help)});
  if (!command.prompts.empty())
    session.result(msg::kHelpPrompts);
  for (const MessageText question : command.prompts)
    session.result(msg::kHelpQuestion, {render(question, {kUnknown, kUnknown})});
}

} // namespace

void help(CommandContext& context) {
  const OdString name = context.session.takeRestOfLine();
  if (name.isEmpty())
    return listAll(context.session, context.commands);
  const Command* command = findCommand(context.commands, name.str());
  if (command == nullptr)
    refuse(msg::kUnknownCommand, {name});
  printCommandHelp(context.session, *command);
}

} // namespace console::commands
