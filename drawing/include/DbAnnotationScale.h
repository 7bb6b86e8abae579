// Annotation scales: entries of the scale list of a drawing, and scales as values.
#pragma once

#include "DbObject.h"

// An entry of the scale list.
class MVDRAWING_API OdDbScale : public OdDbObject {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbScale);
  OdDbScale() = default;
  // Name ("1:2"), its two lengths, and whether it is the scale 1:1. Values are not checked.
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

// A scale as a value, independent of a drawing.
class MVDRAWING_API OdDbAnnotationScale : public OdRxObject {
public:
  MVDRAWING_DECLARE_CLASS(OdDbAnnotationScale);
  OdDbAnnotationScale() = default;
  // A copy of an entry, or with these values, which are not checked.
  explicit OdDbAnnotationScale(const OdDbScale& entry);
  OdDbAnnotationScale(const OdString& name, double paperUnits, double drawingUnits);

  // Name and lengths.
  const OdString& getName() const { return name_; }
  double getPaperUnits() const { return paperUnits_; }
  double getDrawingUnits() const { return drawingUnits_; }
  // Paper units divided by drawing units (1:2 gives 0.5). Returns eDegenerateGeometry, and leaves `factor` unchanged,
  // if the drawing units are 0 or the quotient is not finite.
  OdResult getScale(double& factor) const;

private:
  OdString name_;
  double paperUnits_ = 1;
  double drawingUnits_ = 1;
};
using OdDbAnnotationScalePtr = OdSmartPtr<OdDbAnnotationScale>;
