// The host's free functions, all in one include.
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

// The keyword or text behind the latest RTKEYWORD, cut to `capacity` characters with the zero.
MORVANE_API int mvsiedGetInput(wchar_t* result, int capacity);

} // namespace mvsi

namespace qzutads {

// True while answers come from a script.
MORVANE_API bool isCalledByScript();
// The extension with its dot, as it is spelled; empty when the last part of the path has none or ends with a dot.
MORVANE_API OdString getPathFileExtName(const OdString& path);

// Whether a file may be written under the name that the user typed, `fileName`; `filePath` stands in for it when it has
// text as well. 0: yes, and both are then its full path, with backslashes. 1: nothing typed, or "~", which asks for a
// file dialog. 2 forbidden characters, 3 no such folder, 4 the name of a folder: no, for the reason in `message`;
// -5001: the host gave out. The names are left alone unless it is 0. A name without a folder lies in
// `defaultFolder`; without that, and with a folder that has no root, it starts at the folder of the current drawing.
// Extensions are neither asked for nor added; `extensions` are those of the dialog.
MORVANE_API int MvEdCheckFileName2(OdString& fileName, OdString& filePath, const OdArray<OdString>& extensions,
                                   const OdString& defaultFolder, OdString& message);

} // namespace qzutads
