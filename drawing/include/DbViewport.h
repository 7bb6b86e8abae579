// Viewports of layouts, and cameras.
#pragma once

#include "DbEntity.h"

// A viewport of a layout. Its view is preserved as groups of the file.
class MVDRAWING_API OdDbViewport : public OdDbEntity {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbViewport);
  OdDbViewport() = default;
  // Centre and size in coordinates of the layout; not checked.
  OdGePoint3d centerPoint() const { return center_; }
  void setCenterPoint(const OdGePoint3d& value);
  double width() const { return width_; }
  double height() const { return height_; }
  void setWidth(double value);
  void setHeight(double value);

  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

  void afterLoad() override; // R12 files store the view in extended data

protected:
  // Accepts translations and positive uniform scales: its sides are parallel to those of the layout. The view in it
  // does not change.
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;

private:
  OdGePoint3d center_;
  double width_ = 0, height_ = 0;
};
using OdDbViewportPtr = OdSmartPtr<OdDbViewport>;

// A camera. Accepts no matrix: its view is not part of the drawing. Has no extents.
class MVDRAWING_API OdDbCamera : public OdDbEntity {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbCamera);
  OdDbCamera() = default;
};
using OdDbCameraPtr = OdSmartPtr<OdDbCamera>;
