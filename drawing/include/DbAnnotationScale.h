// Annotation scales: the drawing's scale list and the scale that is current.
#pragma once

#include "DbObject.h"

// An entry of the scale list.
class MVDRAWING_API OdDbScale : public OdDbObject {
public:
  ODDB_DECLARE_MEMBERS(OdDbScale);
  OdDbScale() = default;
  const OdString& scaleName() const { return name_; }
  void setScaleName(const OdString& name);
  double paperUnits() const { return paperUnits_; }
  double drawingUnits() const { return drawingUnits_; }
  void setUnits(double paper, double drawing);
  bool isUnitScale() const { return unitScale_; }

private:
  OdString name_;
  double paperUnits_ = 1;
  double drawingUnits_ = 1;
  std::int16_t flags_ = 0;
  bool unitScale_ = false;
};

// A scale as a value, independent of the drawing's list.
class MVDRAWING_API OdDbAnnotationScale : public OdRxObject {
public:
  ODRX_DECLARE_MEMBERS(OdDbAnnotationScale);
  OdDbAnnotationScale() = default;
  explicit OdDbAnnotationScale(const OdDbScale& entry);
  OdDbAnnotationScale(const OdString& name, double paperUnits, double drawingUnits);

  const OdString& getName() const { return name_; }
  double getPaperUnits() const { return paperUnits_; }
  double getDrawingUnits() const { return drawingUnits_; }
  // Paper units divided by drawing units (1:2 gives 0.5). eDegenerateGeometry, and the variable unchanged, when the
  // drawing units are 0 or the quotient is not finite.
  OdResult getScale(double& factor) const;

private:
  OdString name_;
  double paperUnits_ = 1;
  double drawingUnits_ = 1;
};
using OdDbAnnotationScalePtr = OdSmartPtr<OdDbAnnotationScale>;
