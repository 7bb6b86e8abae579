// The preview image of a block definition: hexadecimal chunks under code 310.
#pragma once

#include "drawing/detail/groups.h"

#include <string>

namespace drawing {
struct RawGroup;
class LoadContext;

// Appends the chunk of a group; false for a group of another code or one that is not hexadecimal.
bool readPreview(std::string& preview, const RawGroup& group, LoadContext& context);
void writePreview(const std::string& preview, GroupSink& sink);

} // namespace drawing
