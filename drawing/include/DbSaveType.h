// Kinds of drawing files.
#pragma once

#include <cstdint>

namespace OdDb {

// Kind of a drawing file. The numbers are stored in settings.
enum SaveType : std::int32_t { kSaveDwg = 0, kSaveDxf = 1 };

} // namespace OdDb
