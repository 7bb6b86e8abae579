// The list of blocks that LIST and the question mark of BLOCK show.
#pragma once

#include "console/session/session.h"

namespace console::commands {

std::size_t listBlocks(Session& session); // answers how many there are; layout blocks do not count

} // namespace console::commands
