// Lines, circles and their kin.
#pragma once

#include "DbEntity.h"

class MVDRAWING_API OdDbLine : public OdDbEntity {
public:
  ODDB_DECLARE_MEMBERS(OdDbLine);
  OdDbLine() = default;
  OdGePoint3d startPoint() const { return start_; } // world coordinates
  OdGePoint3d endPoint() const { return end_; }
  void setStartPoint(const OdGePoint3d& point);
  void setEndPoint(const OdGePoint3d& point);
  OdGeVector3d normal() const { return normal_; }
  double thickness() const { return thickness_; }

  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;

private:
  OdGePoint3d start_;
  OdGePoint3d end_;
  OdGeVector3d normal_{0, 0, 1};
  double thickness_ = 0;
};
using OdDbLinePtr = OdSmartPtr<OdDbLine>;
