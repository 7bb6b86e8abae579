// Reads commands and runs them, wherever they come from.
#pragma once

#include "console/session/session.h"

namespace console {

// Until QUIT or the end of the input.
void runCommands(Session& session, const CommandTable& commands);

} // namespace console
