#include "drawing/model/block_preview.h"

#include "drawing/model/load_context.h"

namespace drawing {

bool readPreview(std::string& preview, const RawGroup& group, LoadContext& context) {
  return group.code == 310 && context.bytes(group, preview);
}

void writePreview(const std::string& preview, GroupSink& sink) {
  constexpr std::size_t kChunk = 127; // bytes in one group
  for (std::size_t at = 0; at < preview.size(); at += kChunk)
    sink.binary(310, std::string_view(preview).substr(at, kChunk));
}

} // namespace drawing
