// Names of file versions, and the form of a file by its content.
#pragma once

#include "OdDb.h"
#include "OdPlatform.h"

#include <string>
#include <string_view>

namespace drawing {

enum class FileForm { Unknown, TextDxf, BinaryDxf, Dwg };
// The form of a file by its first bytes. For a DWG `version` receives its six-letter signature.
MVDRAWING_API FileForm formOf(std::string_view content, std::string* version = nullptr);

// Version names: "AC1015", and "2000" or "R12" for people; "12" is understood, too. Unknown names answer
// kVersionUnknown, unknown versions "".
MVDRAWING_API OdDb::DwgVersion versionFromSignature(std::string_view signature);
MVDRAWING_API const char* versionSignature(OdDb::DwgVersion version);
MVDRAWING_API OdDb::DwgVersion versionFromYear(std::string_view year);
MVDRAWING_API const char* versionYear(OdDb::DwgVersion version);

// The version that is written for a wanted one: R12, 2000, 2004, 2007, 2010, 2013 or 2018. Versions up to R12 are
// written as R12, R13 and R14 as 2000.
MVDRAWING_API OdDb::DwgVersion writtenVersion(OdDb::DwgVersion wanted);

} // namespace drawing
