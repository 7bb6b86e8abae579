// The class of a record of a file where its DXF name alone is ambiguous.
#pragma once

#include "RxObject.h"

#include <span>
#include <string_view>

namespace drawing {

struct RawGroup;

// `groups` are those of the record behind its name. Null when the kind is not modelled.
MVDRAWING_API OdRxClass* chooseClass(std::string_view dxfName, std::span<const RawGroup> groups);

} // namespace drawing
