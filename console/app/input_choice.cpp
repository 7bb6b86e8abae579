#include "console/app/input_choice.h"
#include "console/app/line_editor.h"
#include "console/app/registry.h"

#include <iostream>
#include <unistd.h>

namespace console {
namespace {

std::vector<OdString> commandNames() {
  std::vector<OdString> names;
  for (const Command& command : allCommands())
    names.emplace_back(command.name);
  return names;
}

} // namespace

void answerFromUser(Session& session, std::istream* given) {
  session.host().input().setEcho(true); // a line editor echoes itself
  if (given == nullptr && isatty(STDIN_FILENO) != 0)
    session.answerFrom(makeLineEditor(session.lineShared(), commandNames()));
  else
    session.answerFrom(std::make_shared<morvane::StreamSource>(given == nullptr ? std::cin : *given, true));
}

} // namespace console
