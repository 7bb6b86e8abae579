// Frames with tolerances of form and place.
#pragma once

#include "DbEntity.h"
#include "Ge/GeVector3d.h"

class MVDRAWING_API OdDbFcf : public OdDbEntity {
public:
  ODDB_DECLARE_MEMBERS(OdDbFcf);
  OdDbFcf() = default;
  const OdString& text() const { return text_; } // with its codes; %%v parts the cells
  void setText(const OdString& value);
  OdGePoint3d location() const { return location_; } // the middle of the left side; world coordinates
  void setLocation(const OdGePoint3d& value);
  OdGeVector3d direction() const { return direction_; } // along the cells, unit length
  OdGeVector3d normal() const { return normal_; }
  void setOrientation(const OdGeVector3d& normal, const OdGeVector3d& direction);
  OdDbObjectId dimensionStyle() const { return style_; } // the size of the letters is the style's
  void setDimensionStyle(OdDbObjectId value);
  OdResult getGeomExtents(OdGeExtents3d& extents) const override; // the location alone

protected:
  // Takes matrices that keep shapes in its plane.
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;

private:
  OdDbObjectId style_;
  OdGePoint3d location_;
  OdString text_;
  OdGeVector3d normal_{0, 0, 1};
  OdGeVector3d direction_{1, 0, 0};
};
using OdDbFcfPtr = OdSmartPtr<OdDbFcf>;
