// Arrows of leaders and dimensions.
#pragma once

#include "drawing/gi/draw/canvas.h"

namespace drawing::gi {

// An arrow at `tip` that comes from `from`; answers where the line may end. Without a block it is a filled triangle.
// Too short a way has none.
OdGePoint3d drawArrow(const OdGePoint3d& tip, const OdGePoint3d& from, const OdGeVector3d& normal, double size,
                      OdDbObjectId block, Canvas& canvas);

} // namespace drawing::gi
