#include "console/app/command_loop.h"
#include "console/messages/catalog/session.h"

namespace console {
namespace {

// Enter alone repeats the command before; in a script it is what is left of a line.
const Command* chosen(Session& session, const CommandTable& commands, const OdString& entered, const Command* before) {
  if (entered.isEmpty())
    return session.host().input().isScript() ? nullptr : before;
  const Command* command = findCommand(commands, entered.str());
  if (command == nullptr) {
    session.print(msg::kUnknownCommand, {entered});
    session.raiseStatus(Status::kRefused);
    session.host().input().dropRestOfLine();
  }
  return command;
}

} // namespace

void runCommands(Session& session, const CommandTable& commands) {
  const OdString prompt = L"\n" + render(msg::kPromptCommand) + L" ";
  const Command* command = nullptr;
  while (!session.wantsQuit()) {
    OdString entered;
    const morvane::ReadStatus status = session.host().input().readAnswer(prompt, false, entered);
    if (status == morvane::ReadStatus::kEnd)
      break;
    if (status == morvane::ReadStatus::kCancelled)
      continue;
    entered.trimLeft().trimRight();
    if (const Command* next = chosen(session, commands, entered, command)) {
      session.run(*next, commands);
      command = next;
    }
  }
  session.line().freshLine();
}

} // namespace console
