// The commands of the program.
#pragma once

#include "console/session/command.h"

namespace console {

const CommandTable& allCommands();

} // namespace console
