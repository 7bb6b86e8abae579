// The free functions of the host in one header.
#pragma once

#include "OdArray.h"
#include "OdString.h"
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

// The keyword or text of the latest RTKEYWORD, truncated to `capacity` characters including the zero. RTNORM, or
// RTERROR for a null buffer, a capacity below 1 and without a host.
MORVANE_API int mvsiedGetInput(wchar_t* result, int capacity);

} // namespace mvsi

namespace qzutads {

// Whether user input is read from a script.
MORVANE_API bool isCalledByScript();
// Extension with its dot, unchanged; empty if the last part of the path has none or ends with a dot.
MORVANE_API OdString getPathFileExtName(const OdString& path);

// Checks a file name that the user entered, `fileName`, for writing; `filePath` is used instead if it is not empty as
// well. Returns 0: valid, and both are then its full path with backslashes. 1: nothing entered, or "~", which requests
// a file dialog. 2: forbidden characters, 3: no such folder, 4: the name of a folder, each with the reason in
// `message`. -5001: the host failed. The names are unchanged unless it is 0. A name without a folder is in
// `defaultFolder`; without that, and with a relative folder, it is relative to the folder of the current drawing.
// Extensions are neither required nor added; `extensions` are those of the dialog.
MORVANE_API int MvEdCheckFileName2(OdString& fileName, OdString& filePath, const OdArray<OdString>& extensions,
                                   const OdString& defaultFolder, OdString& message);

} // namespace qzutads
