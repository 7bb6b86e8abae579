// Pictures, and the blank areas that files hold in the same form. What clips them is carried as it was read: it is in
// the picture's own coordinates.
#pragma once

#include "DbEntity.h"
#include "Ge/GePoint2d.h"
#include "Ge/GeVector3d.h"

class MVDRAWING_API OdDbPicture : public OdDbEntity {
public:
  ODRX_DECLARE_MEMBERS(OdDbPicture);
  // The lower left corner, and the sides of one pixel; world coordinates.
  void getOrientation(OdGePoint3d& origin, OdGeVector3d& u, OdGeVector3d& v) const;
  void setOrientation(const OdGePoint3d& origin, const OdGeVector3d& u, const OdGeVector3d& v);
  OdGePoint2d imageSize() const { return size_; } // in pixels
  void setImageSize(const OdGePoint2d& value);
  OdResult getGeomExtents(OdGeExtents3d& extents) const override; // of all of it, clipped or not

protected:
  OdDbPicture() = default;
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override; // takes every matrix
  static drawing::Section pictureSection(const char* marker);

private:
  OdGePoint3d origin_;
  OdGeVector3d u_{1, 0, 0}, v_{0, 1, 0};
  OdGePoint2d size_;
};

class MVDRAWING_API OdDbRasterImage : public OdDbPicture {
public:
  ODDB_DECLARE_MEMBERS(OdDbRasterImage);
  OdDbRasterImage() = default;
  OdDbObjectId imageDefId() const { return definition_; }

private:
  OdDbObjectId definition_;
};
using OdDbRasterImagePtr = OdSmartPtr<OdDbRasterImage>;

class MVDRAWING_API OdDbWipeout : public OdDbPicture {
public:
  ODDB_DECLARE_MEMBERS(OdDbWipeout);
  OdDbWipeout() = default;
};
