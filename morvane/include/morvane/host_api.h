// The host's free functions, all in one include.
#pragma once

#include "morvane/config.h"
#include "morvane/documents.h"
#include "morvane/drawing_tools.h"
#include "morvane/files.h"
#include "morvane/log.h"
#include "morvane/message_box.h"
#include "morvane/print.h"
#include "morvane/result_codes.h"
#include "morvane/selection.h"
#include "morvane/services.h"
#include "morvane/system_services.h"
#include "morvane/variables.h"

namespace mvsi {

// The keyword or text behind the latest RTKWORD, cut to `capacity` characters with the zero.
MORVANE_API int mvsiedGetInput(wchar_t* result, int capacity);

} // namespace mvsi

namespace qzutads {

// True while answers come from a script.
MORVANE_API bool isCalledByScript();
// The extension with its dot, as it is spelled; empty when the last part of the path has none or ends with a dot.
MORVANE_API OdString getPathFileExtName(const OdString& path);

} // namespace qzutads
