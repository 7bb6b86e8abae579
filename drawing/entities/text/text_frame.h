// The frame that letters stand in, and how a matrix moves it.
#pragma once

#include "Ge/GeMatrix3d.h"
#include "Ge/GeVector3d.h"

namespace drawing {

// Rotation in the plane of the normal, height of the letters, width against height, slant.
struct TextFrame {
  double rotation = 0; // radians
  double height = 0;
  double widthFactor = 1;
  double oblique = 0; // radians
  OdGeVector3d normal{0, 0, 1};

  // Letters are a parallelogram (base line, slanted upright); a matrix takes it to another, which is a frame again.
  // Exact for every matrix that does not flatten it: mirrors turn the normal over, unequal scales and shears change
  // width and slant. False when it would flatten, and then nothing has changed.
  bool transform(const OdGeMatrix3d& matrix);
};

} // namespace drawing
