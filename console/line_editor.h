// Answers typed on a terminal, with editing, history and completion of command names.
#pragma once

#include "console/line_sink.h"

#include "morvane/input.h"

#include <memory>

namespace console {

// Reads standard input and shows itself on standard error. `line` is told when the user's Enter ends a line. Ctrl-C and
// the escape character alone cancel, Ctrl-D is the end.
std::shared_ptr<morvane::InputSource> makeLineEditor(std::shared_ptr<LineSink> line);

} // namespace console
