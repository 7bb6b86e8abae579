// Where files hold the picture of a drawing.
#pragma once

namespace drawing::db {

inline constexpr char kThumbnailSection[] = "THUMBNAILIMAGE";

} // namespace drawing::db
