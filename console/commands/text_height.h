// The height of a new text.
#pragma once

#include "console/session/command.h"

namespace console::commands {

// Asks, with the drawing's TEXTSIZE as default. Throws for a height that is not above 0.
double promptTextHeight(CommandContext& context);

} // namespace console::commands
