// The two kinds of drawing files.
#pragma once

#include <cstdint>

namespace OdDb {

// The numbers stand in saved settings.
enum SaveType : std::int32_t { kSaveDwg = 0, kSaveDxf = 1 };

} // namespace OdDb
