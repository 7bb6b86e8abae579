#include "drawing/model/thumbnail.h"

#include "DbDatabase.h"
#include "drawing/detail/groups.h"

#include <algorithm>
#include <limits>

namespace {

constexpr int kSizeCode = 90;
constexpr int kBytesCode = 310;

auto findSubclass(const std::vector<drawing::OpaqueSection>& sections) {
  return std::find_if(sections.begin(), sections.end(), [](const drawing::OpaqueSection& subclass) {
    return subclass.name == drawing::kThumbnailSection;
  });
}

drawing::OpaqueSection sectionWith(std::string_view bytes) {
  constexpr std::size_t kChunk = 127; // bytes in one group
  drawing::OpaqueSection subclass{drawing::kThumbnailSection, {}};
  subclass.groups.integer(kSizeCode, static_cast<std::int64_t>(bytes.size()));
  for (std::size_t at = 0; at < bytes.size(); at += kChunk)
    subclass.groups.binary(kBytesCode, bytes.substr(at, kChunk));
  return subclass;
}

} // namespace

OdResult OdDbDatabase::setThumbnailBitmap(const void* bitmap, std::size_t size) {
  if (size > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max()))
    return eInvalidInput;
  hasOwnThumbnail_ = true;
  if (const auto present = findSubclass(opaqueSections_); present != opaqueSections_.end())
    opaqueSections_.erase(present);
  if (bitmap != nullptr && size != 0)
    opaqueSections_.push_back(sectionWith({static_cast<const char*>(bitmap), size}));
  return eOk;
}

std::string OdDbDatabase::thumbnailBitmap() const {
  const auto subclass = findSubclass(opaqueSections_);
  if (subclass == opaqueSections_.end())
    return {};
  const drawing::GroupList& groups = subclass->groups;
  std::string bytes;
  for (std::size_t at = groups.find(kBytesCode); at < groups.size(); at = groups.find(kBytesCode, at + 1)) {
    if (groups[at].kind != drawing::GroupKind::kBinary)
      return {};
    bytes += groups.textOf(groups[at]);
  }
  return bytes;
}
