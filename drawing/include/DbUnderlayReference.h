// Pages of other documents, shown under the drawing. What clips them is carried: it is in the page's coordinates.
#pragma once

#include "DbEntity.h"
#include "Ge/GeScale3d.h"
#include "Ge/GeVector3d.h"

class MVDRAWING_API OdDbUnderlayReference : public OdDbEntity {
public:
  ODRX_DECLARE_MEMBERS(OdDbUnderlayReference);
  OdDbObjectId definitionId() const { return definition_; }
  OdGePoint3d position() const; // world coordinates
  void setPosition(const OdGePoint3d& point);
  OdGeScale3d scaleFactors() const { return {scaleX_, scaleY_, scaleZ_}; }
  double rotation() const { return rotation_; } // radians, in the plane of the normal
  OdGeVector3d normal() const { return normal_; }
  OdGeMatrix3d transform() const; // coordinates of the page to world

protected:
  OdDbUnderlayReference() = default;
  // Takes matrices that leave the page a rectangle; mirrors turn its plane over.
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;
  static const drawing::Description& underlayDescription();

private:
  OdDbObjectId definition_;
  OdGePoint3d position_; // in the plane's frame
  OdGeVector3d normal_{0, 0, 1};
  double scaleX_ = 1, scaleY_ = 1, scaleZ_ = 1;
  double rotation_ = 0;
};

class MVDRAWING_API OdDbPdfReference : public OdDbUnderlayReference {
public:
  ODDB_DECLARE_MEMBERS(OdDbPdfReference);
  OdDbPdfReference() = default;
};

class MVDRAWING_API OdDbDwfReference : public OdDbUnderlayReference {
public:
  ODDB_DECLARE_MEMBERS(OdDbDwfReference);
  OdDbDwfReference() = default;
};

class MVDRAWING_API OdDbDgnReference : public OdDbUnderlayReference {
public:
  ODDB_DECLARE_MEMBERS(OdDbDgnReference);
  OdDbDgnReference() = default;
};
