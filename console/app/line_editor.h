// Answers typed on a terminal, with editing, history and completion of command names.
#pragma once

#include "console/session/line_sink.h"

#include "morvane/input.h"

#include <memory>
#include <vector>

namespace console {

// Reads standard input and shows itself on standard error. `line` learns when the user's Enter ends a line. Tab
// completes one of the names. Ctrl-C and the escape character alone cancel, Ctrl-D is the end.
std::shared_ptr<morvane::InputSource> makeLineEditor(std::shared_ptr<LineSink> line, std::vector<OdString> names);

} // namespace console
