// How matrices act on entities that lie in a plane of their own.
#pragma once

#include "Ge/GeMatrix3d.h"
#include "Ge/GeVector3d.h"

namespace drawing {

bool isTranslation(const OdGeMatrix3d& matrix);

// Finite, the last row 0 0 0 1, and with an inverse.
bool isInvertibleMap(const OdGeMatrix3d& matrix);

// The direction and length of what is drawn upright on an entity of points.
void mapSweep(const OdGeMatrix3d& matrix, OdGeVector3d& direction, double& length);

// A matrix as seen from a plane: from the frame of the old normal to the frame of the new one (object coordinates).
// The new normal is on the side where the old one went, so a mirror turns directions of rotation round. Translations
// leave the normal and all directions as they are, to the last bit.
class PlaneMap {
public:
  PlaneMap(const OdGeMatrix3d& matrix, const OdGeVector3d& normal);

  const OdGeVector3d& normal() const { return normal_; } // unit length
  bool isMirrored() const { return mirrored_; }
  // Shapes in the plane stay similar: circles stay circles and angles angles.
  bool keepsShapes() const { return similar_; }
  double scale() const { return scale_; } // of lengths in the plane, when it keeps shapes
  // Directions along the normal stay so, so that thicknesses do not change.
  bool keepsNormal() const { return keepsNormal_; }
  double rotation() const; // where the frame's x axis goes, in the new frame: radians
  double thicknessScale() const { return thicknessScale_; }
  // May an entity of that thickness take the matrix?
  bool takesThickness(double thickness) const { return thickness == 0 || keepsNormal_; }

  const OdGeMatrix3d& matrix() const { return map_; } // from frame to frame
  OdGePoint3d point(const OdGePoint3d& ocs) const;
  OdGeVector3d vector(const OdGeVector3d& ocs) const;
  // A direction in the plane, given and answered as an angle against the frame's x axis. Unchanged when the frame does
  // not turn, else in [0, 2 pi).
  double angle(double angleRad) const;

private:
  OdGeMatrix3d map_;
  OdGeVector3d normal_;
  double scale_ = 1, thicknessScale_ = 1;
  bool translation_ = false, mirrored_ = false, similar_ = true, keepsNormal_ = true;
};

// Angles of an arc (from the first counter-clockwise to the second) under a map that keeps shapes.
void mapArcAngles(const PlaneMap& map, double& startRad, double& endRad);

} // namespace drawing
