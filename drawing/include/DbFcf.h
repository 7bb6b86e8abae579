// Feature control frames (TOLERANCE entities): geometric tolerances.
#pragma once

#include "DbEntity.h"
#include "Ge/GeVector3d.h"

// A feature control frame. Points and vectors are world coordinates.
class MVDRAWING_API OdDbFcf : public OdDbEntity {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbFcf);
  OdDbFcf() = default;
  // Text with its codes; %%v separates the cells.
  const OdString& text() const { return text_; }
  void setText(const OdString& value);
  // Middle of the left side, direction along the cells, and normal. setOrientation normalises both vectors and does not
  // check that they are perpendicular.
  OdGePoint3d location() const { return location_; }
  void setLocation(const OdGePoint3d& value);
  OdGeVector3d direction() const { return direction_; }
  OdGeVector3d normal() const { return normal_; }
  void setOrientation(const OdGeVector3d& normal, const OdGeVector3d& direction);
  // Dimension style, which has the text height; not checked.
  OdDbObjectId dimensionStyle() const { return style_; }
  void setDimensionStyle(OdDbObjectId value);

  OdResult getGeomExtents(OdGeExtents3d& extents) const override; // the location only

protected:
  // Accepts matrices that keep shapes in its plane.
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;

private:
  OdDbObjectId style_;
  OdGePoint3d location_;
  OdString text_;
  OdGeVector3d normal_{0, 0, 1};
  OdGeVector3d direction_{1, 0, 0};
};
using OdDbFcfPtr = OdSmartPtr<OdDbFcf>;
