// Raster images, and wipeouts, which files store in the same form. Clip boundaries are preserved as groups of the file:
// they are in pixels of the image.
#pragma once

#include "DbEntity.h"
#include "Ge/GePoint2d.h"
#include "Ge/GeVector3d.h"

// Common base of images and wipeouts. Accepts every invertible matrix.
class MVDRAWING_API OdDbImageBase : public OdDbEntity {
public:
  MVDRAWING_DECLARE_CLASS(OdDbImageBase);
  // Lower left corner, and the sides of one pixel, in world coordinates. Size in pixels. Values are not checked.
  void getOrientation(OdGePoint3d& origin, OdGeVector3d& u, OdGeVector3d& v) const;
  void setOrientation(const OdGePoint3d& origin, const OdGeVector3d& u, const OdGeVector3d& v);
  OdGePoint2d imageSize() const { return size_; }
  void setImageSize(const OdGePoint2d& value);

  OdResult getGeomExtents(OdGeExtents3d& extents) const override; // of the whole image, clipped or not

protected:
  OdDbImageBase() = default;
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;
  static drawing::SubclassLayout imageSubclass(const char* marker); // groups that both kinds have

private:
  OdGePoint3d origin_;
  OdGeVector3d u_{1, 0, 0}, v_{0, 1, 0};
  OdGePoint2d size_;
};

// A raster image.
class MVDRAWING_API OdDbRasterImage : public OdDbImageBase {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbRasterImage);
  OdDbRasterImage() = default;
  OdDbObjectId imageDefId() const { return definition_; } // an OdDbRasterImageDef

private:
  OdDbObjectId definition_;
};
using OdDbRasterImagePtr = OdSmartPtr<OdDbRasterImage>;

// A wipeout: an area that hides what is below it.
class MVDRAWING_API OdDbWipeout : public OdDbImageBase {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbWipeout);
  OdDbWipeout() = default;
};
