// Pixels of a picture, and what of a path lies near it. Coordinates far outside never reach the drawing library, whose
// numbers are small; all reckoning is in doubles.
#pragma once

#include "drawing/gi/scene/display_list.h"

#include <vector>

namespace drawing::gi {

struct View {
  int width = 0, height = 0; // pixels
  double scale = 1;          // pixels of a drawing unit; x goes right, y down
  OdGePoint2d center;        // of the picture, drawing units
};

class Device {
public:
  explicit Device(const View& view) : view_(view) {}

  OdGePoint2d at(const OdGePoint2d& point) const {
    return {view_.width / 2.0 + (point.x - view_.center.x) * view_.scale,
            view_.height / 2.0 - (point.y - view_.center.y) * view_.scale};
  }
  bool contains(const OdGePoint2d& pixel) const; // nearly
  std::vector<OdGePoint2d> frame() const;        // around all of the picture
  // So far from the pixel every line through it has left the picture.
  double reachFrom(const OdGePoint2d& pixel) const;

  // The polygon as it is inside a frame around the picture.
  std::vector<OdGePoint2d> inside(const std::vector<OdGePoint2d>& ring) const;
  // What a pen of that width leaves along the path, as far as it can be seen. Patterns finer than a pixel or two are
  // drawn through.
  std::vector<std::vector<OdGePoint2d>> strokes(const std::vector<OdGePoint2d>& path, const Pen& pen, double width);

private:
  View view_;
  std::size_t dashesLeft_ = 20'000'000; // of the whole picture; then patterns are drawn through
};

} // namespace drawing::gi
