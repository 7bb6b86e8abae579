// Names of file versions, and the form of a file by its content.
#pragma once

#include "OdDb.h"
#include "drawing/export.h"

#include <string>
#include <string_view>

namespace drawing {

// Form of a drawing file.
enum class FileForm { kUnknown, kTextDxf, kBinaryDxf, kDwg };
// Form of a file by its first bytes. For DWG, `version` receives the signature of six letters (AC1015).
MVDRAWING_API FileForm formOf(std::string_view content, std::string* version = nullptr);

// Names of versions: "AC1015" in files, and "2000" or "R12" for people; "12" is accepted as well. Unknown names give
// kVersionUnknown, unknown versions "".
MVDRAWING_API OdDb::DwgVersion versionFromSignature(std::string_view signature);
MVDRAWING_API const char* versionSignature(OdDb::DwgVersion version);
MVDRAWING_API OdDb::DwgVersion versionFromYear(std::string_view year);
MVDRAWING_API const char* versionYear(OdDb::DwgVersion version);

// Version that is written for a requested one: R12, 2000, 2004, 2007, 2010, 2013 or 2018. Versions up to R12 are
// written as R12, R13 and R14 as 2000.
MVDRAWING_API OdDb::DwgVersion writtenVersion(OdDb::DwgVersion wanted);

} // namespace drawing
