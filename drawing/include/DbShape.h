// Shapes: small drawings out of a file of shapes.
#pragma once

#include "DbEntity.h"
#include "Ge/GeVector3d.h"

class MVDRAWING_API OdDbShape : public OdDbEntity {
public:
  ODDB_DECLARE_MEMBERS(OdDbShape);
  OdDbShape() = default;
  const OdString& name() const { return name_; } // in one of the shape files that the text styles name
  void setName(const OdString& value);
  OdGePoint3d position() const { return position_; } // world coordinates
  void setPosition(const OdGePoint3d& value);
  double size() const { return size_; }
  void setSize(double value);
  double rotation() const { return rotation_; } // radians
  void setRotation(double value);
  double widthFactor() const { return widthFactor_; }
  double oblique() const { return oblique_; } // radians
  OdGeVector3d normal() const { return normal_; }
  double thickness() const { return thickness_; }
  OdResult getGeomExtents(OdGeExtents3d& extents) const override; // the position alone: the file has the outline

protected:
  // Takes every matrix, as letters do; one that tilts the thickness is refused.
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;

private:
  OdGePoint3d position_;
  OdString name_;
  OdGeVector3d normal_{0, 0, 1};
  double thickness_ = 0, size_ = 1, rotation_ = 0, widthFactor_ = 1, oblique_ = 0;
};
using OdDbShapePtr = OdSmartPtr<OdDbShape>;
