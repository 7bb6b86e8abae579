// Answers from the user of the program.
#pragma once

#include "console/session/session.h"

#include <iosfwd>

namespace console {

// A terminal, with line editing; else the lines of the stream, as a script. Null: standard input.
void answerFromUser(Session& session, std::istream* given);

} // namespace console
