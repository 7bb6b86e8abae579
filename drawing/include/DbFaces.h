// Filled areas and faces of three or four corners. Where a file names only three, the fourth is the third.
#pragma once

#include "DbEntity.h"
#include "Ge/GeVector3d.h"

namespace drawing {

struct Corners {
  OdGePoint3d points[4];
  bool hasFourth = false;
  const OdGePoint3d& at(int index) const; // OdError(eInvalidIndex) outside 0 to 3
  void set(int index, const OdGePoint3d& point);
  bool take(const Pair& pair, LoadContext& context); // groups 10 to 33
  void write(GroupSink& sink) const;
};

} // namespace drawing

// Filled, in a plane. The third and fourth corner are crosswise: the outline runs 0, 1, 3, 2.
class MVDRAWING_API OdDbFilledArea : public OdDbEntity {
public:
  ODRX_DECLARE_MEMBERS(OdDbFilledArea);
  OdGePoint3d getPointAt(int index) const; // world coordinates; OdError(eInvalidIndex) outside 0 to 3
  void setPointAt(int index, const OdGePoint3d& point);
  OdGeVector3d normal() const { return normal_; }
  void setNormal(const OdGeVector3d& value); // the corners keep their numbers in the plane's own frame
  double thickness() const { return thickness_; }
  void setThickness(double value);
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  OdDbFilledArea() = default;
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;
  static const drawing::Description& areaDescription();

private:
  drawing::Corners corners_; // in the plane's frame
  double thickness_ = 0;
  OdGeVector3d normal_{0, 0, 1};
};

class MVDRAWING_API OdDbSolid : public OdDbFilledArea {
public:
  ODDB_DECLARE_MEMBERS(OdDbSolid);
  OdDbSolid() = default;
};
using OdDbSolidPtr = OdSmartPtr<OdDbSolid>;

class MVDRAWING_API OdDbTrace : public OdDbFilledArea {
public:
  ODDB_DECLARE_MEMBERS(OdDbTrace);
  OdDbTrace() = default;
};
using OdDbTracePtr = OdSmartPtr<OdDbTrace>;

class MVDRAWING_API OdDbFace : public OdDbEntity {
public:
  ODDB_DECLARE_MEMBERS(OdDbFace);
  OdDbFace() = default;
  OdGePoint3d getVertexAt(int index) const; // OdError(eInvalidIndex) outside 0 to 3
  void setVertexAt(int index, const OdGePoint3d& point);
  bool isEdgeVisibleAt(int index) const { return (hiddenEdges_ >> index & 1) == 0; }
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;

private:
  drawing::Corners corners_;
  std::int16_t hiddenEdges_ = 0;
};
using OdDbFacePtr = OdSmartPtr<OdDbFace>;
