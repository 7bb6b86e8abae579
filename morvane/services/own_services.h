// The services that the host itself puts into the dictionary.
#pragma once

#include "morvane/host.h"

namespace morvane::services {

// Each keeps a reference to the host and is not called after the host is gone.
OdRxObjectPtr makeEditGetServer(Host& host);
OdRxObjectPtr makeEditSystemServer(Host& host);
OdRxObjectPtr makeDbServer(Host& host);
OdRxObjectPtr makeSelectorServer(Host& host);
OdRxObjectPtr makeDocManager(Host& host);

// Copies the text with its closing zero; what does not fit into `capacity` characters is cut.
void copyText(const OdString& text, wchar_t* buffer, int capacity);

} // namespace morvane::services
