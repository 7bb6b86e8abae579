#include "drawing/gi/draw/arrows.h"

#include "DbBlockTable.h"
#include "drawing/model/object_store.h"

namespace drawing::gi {

OdGePoint3d drawArrow(const OdGePoint3d& tip, const OdGePoint3d& from, const OdGeVector3d& normal, double size,
                      OdDbObjectId block, Canvas& canvas) {
  const OdGeVector3d way = from - tip;
  if (!(size > 0) || way.length() < size)
    return tip;
  const OdGeVector3d x = way.normal(), y = normal.normal().crossProduct(x);
  if (isAlive(getIf<OdDbBlockTableRecord>(block))) {
    // Blocks of arrows are one unit long and point to the right.
    canvas.show(block, OdGeMatrix3d::coordSystem(tip, x * -size, y * -size, normal.normal() * size));
    return tip + x * size;
  }
  canvas.fill({{tip, tip + x * size + y * (size / 6), tip + x * size - y * (size / 6)}});
  return tip + x * size;
}

} // namespace drawing::gi
