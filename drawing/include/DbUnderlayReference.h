// Underlays: pages of other documents that are displayed below the drawing. Clip boundaries are preserved as groups of
// the file: they are in coordinates of the page.
#pragma once

#include "DbEntity.h"
#include "Ge/GeScale3d.h"
#include "Ge/GeVector3d.h"

// Common base of underlays. They have no extents.
class MVDRAWING_API OdDbUnderlayReference : public OdDbEntity {
public:
  MVDRAWING_DECLARE_CLASS(OdDbUnderlayReference);
  OdDbObjectId definitionId() const { return definition_; } // an OdDbUnderlayDefinition

  // Position in world coordinates, scale along its own axes, rotation in radians in the plane of the normal against its
  // OCS x axis, and the matrix from page to world coordinates that they result in.
  OdGePoint3d position() const;
  void setPosition(const OdGePoint3d& point);
  OdGeScale3d scaleFactors() const { return {scaleX_, scaleY_, scaleZ_}; }
  double rotation() const { return rotation_; }
  OdGeVector3d normal() const { return normal_; }
  OdGeMatrix3d transform() const;

protected:
  OdDbUnderlayReference() = default;
  // Accepts matrices that leave the page rectangular; a reflection reverses the normal.
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;
  static const drawing::Description& underlayDescription(); // description of all kinds

private:
  OdDbObjectId definition_;
  OdGePoint3d position_; // OCS
  OdGeVector3d normal_{0, 0, 1};
  double scaleX_ = 1, scaleY_ = 1, scaleZ_ = 1;
  double rotation_ = 0;
};

// A page of a PDF file.
class MVDRAWING_API OdDbPdfReference : public OdDbUnderlayReference {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbPdfReference);
  OdDbPdfReference() = default;
};

// A page of a DWF file.
class MVDRAWING_API OdDbDwfReference : public OdDbUnderlayReference {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbDwfReference);
  OdDbDwfReference() = default;
};

// A page of a DGN file.
class MVDRAWING_API OdDbDgnReference : public OdDbUnderlayReference {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbDgnReference);
  OdDbDgnReference() = default;
};
