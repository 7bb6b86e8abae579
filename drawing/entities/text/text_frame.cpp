#include "drawing/entities/text/text_frame.h"

#include "Ge/GeUtil.h"

#include <cmath>

namespace drawing {

bool TextFrame::transform(const OdGeMatrix3d& matrix) {
  const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(normal);
  const double c = std::cos(rotation), s = std::sin(rotation), slant = std::tan(oblique);
  // One unit of width and one of height, as they lie in the world.
  const OdGeVector3d along = matrix * (plane * OdGeVector3d(c, s, 0));
  const OdGeVector3d up = matrix * (plane * OdGeVector3d(-s + slant * c, c + slant * s, 0));
  const OdGeVector3d across = along.crossProduct(up);
  const double width = along.length();
  if (!(width > 0) || !(across.length() > 1e-12 * width * up.length()))
    return false;
  const OdGeVector3d newNormal = across.normal();
  const OdGeVector3d base = along * (1.0 / width);
  const OdGeVector3d upward = newNormal.crossProduct(base);
  const double tall = up.dotProduct(upward);
  const OdGeVector3d inPlane = OdGeMatrix3d::worldToPlane(newNormal) * base;

  // Moves and turns about the normal leave the letters as they are, to the last bit.
  const bool sameShape =
      std::fabs(width - 1) < 1e-14 && std::fabs(tall - 1) < 1e-14 && std::fabs(up.dotProduct(base) - slant) < 1e-14;
  if (newNormal.isEqualTo(normal, OdGeTol(1e-14)) && inPlane.isEqualTo(OdGeVector3d(c, s, 0), OdGeTol(1e-14)) &&
      sameShape)
    return true;
  normal = newNormal;
  rotation = normalizeAngle(std::atan2(inPlane.y, inPlane.x));
  if (sameShape)
    return true;
  height *= tall;
  widthFactor *= width / tall;
  oblique = std::atan(up.dotProduct(base) / tall);
  return true;
}

} // namespace drawing
