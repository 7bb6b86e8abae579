// Changes that were not saved.
#pragma once

#include "console/session/session.h"

namespace console::commands {

// Asks before they are lost; throws the cancelled Failure unless they may be.
void promptToDiscardChanges(Session& session);

} // namespace console::commands
