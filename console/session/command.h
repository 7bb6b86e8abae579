// A command: what it is called, what HELP says of it, and what it does.
#pragma once

#include "console/messages/messages.h"

#include <string_view>
#include <vector>

class OdDbDatabase;

namespace console {

class Session;
struct Command;
struct OpenDrawing;

// In the order of their names.
using CommandTable = std::vector<Command>;

struct CommandContext {
  Session& session;
  OpenDrawing& drawing; // the current one
  OdDbDatabase& database;
  const CommandTable& commands; // that can be run
};

struct Command {
  // A command that changes the drawing is one step of undo; of one that fails nothing stays. What was selected for the
  // next command stays selected behind one that selects.
  enum class Kind { kReadOnly, kModifies, kSelects };
  const wchar_t* name;
  std::vector<std::wstring_view> aliases;
  MessageText help;
  std::vector<MessageText> prompts; // its prompts, for HELP
  Kind kind;
  void (*run)(CommandContext&); // throws Failure to stop
};

// By name or alias, without regard to case; null when there is none.
const Command* findCommand(const CommandTable& table, std::wstring_view entered);

} // namespace console
