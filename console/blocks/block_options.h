// What BLOCK remembers from one time to the next in the user's configuration.
#pragma once

#include "console/session/session.h"

namespace console {

struct BlockOptions {
  int basePointOnScreen = 0, objectsOnScreen = 0; // for dialogs; kept as they are
  int explodable = 1, uniform = 1, openInEditor = 0;
  SourceObjects sourceObjects = SourceObjects::kConvert;
};

BlockOptions rememberedBlockOptions();
void rememberBlockOptions(const BlockOptions& options);

} // namespace console
