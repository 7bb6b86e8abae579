// Where files hold the picture of a drawing.
#pragma once

namespace drawing {

inline constexpr char kThumbnailSection[] = "THUMBNAILIMAGE";

} // namespace drawing
