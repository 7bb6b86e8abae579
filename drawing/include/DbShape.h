// Shapes: symbols of a shape file (SHX).
#pragma once

#include "DbEntity.h"
#include "Ge/GeVector3d.h"

// A shape. Accepts every invertible matrix that does not tilt its thickness. Setters store the value unchecked.
class MVDRAWING_API OdDbShape : public OdDbEntity {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbShape);
  OdDbShape() = default;
  // Name of the symbol in one of the shape files that are loaded as text styles.
  const OdString& name() const { return name_; }
  void setName(const OdString& value);
  // Position and normal in world coordinates, size and thickness in drawing units, angles in radians.
  OdGePoint3d position() const { return position_; }
  void setPosition(const OdGePoint3d& value);
  double size() const { return size_; }
  void setSize(double value);
  double rotation() const { return rotation_; }
  void setRotation(double value);
  double widthFactor() const { return widthFactor_; }
  double oblique() const { return oblique_; }
  OdGeVector3d normal() const { return normal_; }
  double thickness() const { return thickness_; }

  OdResult getGeomExtents(OdGeExtents3d& extents) const override; // the position only: the shape file has the outline

protected:
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;

private:
  OdGePoint3d position_;
  OdString name_;
  OdGeVector3d normal_{0, 0, 1};
  double thickness_ = 0, size_ = 1, rotation_ = 0, widthFactor_ = 1, oblique_ = 0;
};
using OdDbShapePtr = OdSmartPtr<OdDbShape>;
