// Viewports of layouts, and cameras. Cameras take no matrix: what they look at has no place among what is drawn.
#pragma once

#include "DbEntity.h"

class MVDRAWING_API OdDbViewport : public OdDbEntity {
public:
  ODDB_DECLARE_MEMBERS(OdDbViewport);
  OdDbViewport() = default;
  OdGePoint3d centerPoint() const { return center_; } // on the sheet
  void setCenterPoint(const OdGePoint3d& value);
  double width() const { return width_; }
  double height() const { return height_; }
  void setWidth(double value);
  void setHeight(double value);
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  // Takes moves and equal scales: its sides stand along the sheet's. What it shows stays the same.
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;

private:
  OdGePoint3d center_;
  double width_ = 0, height_ = 0;
};
using OdDbViewportPtr = OdSmartPtr<OdDbViewport>;

class MVDRAWING_API OdDbCamera : public OdDbEntity {
public:
  ODDB_DECLARE_MEMBERS(OdDbCamera);
  OdDbCamera() = default;
};
using OdDbCameraPtr = OdSmartPtr<OdDbCamera>;
