// Solids, traces and 3D faces: three or four corners. If a file states only three, the fourth is the third.
#pragma once

#include "DbEntity.h"
#include "Ge/GeVector3d.h"

namespace drawing {

// Corners of such an entity.
struct Corners {
  OdGePoint3d points[4];
  bool hasFourth = false;
  // A corner; throw OdError(eInvalidIndex) unless the index is 0 to 3. Setting the fourth makes hasFourth true.
  const OdGePoint3d& at(int index) const;
  void set(int index, const OdGePoint3d& point);
  // Reads one of the groups 10 to 33 (false for other groups), and writes them.
  bool take(const RawGroup& group, LoadContext& context);
  void write(GroupSink& sink) const;
};

} // namespace drawing

// Common base of solids and traces: a filled area in a plane. The third and fourth corner are crosswise: the outline is
// 0, 1, 3, 2. Accepts every invertible matrix, with a thickness only one that does not tilt it.
class MVDRAWING_API OdDbFilledArea : public OdDbEntity {
public:
  MVDRAWING_DECLARE_CLASS(OdDbFilledArea);
  // Corners in world coordinates; throw OdError(eInvalidIndex) unless the index is 0 to 3.
  OdGePoint3d getPointAt(int index) const;
  void setPointAt(int index, const OdGePoint3d& point);
  // Normal of the plane (unit length), and extrusion along it in drawing units. Setting the normal keeps the OCS
  // coordinates of the corners, so it moves them in the world.
  OdGeVector3d normal() const { return normal_; }
  void setNormal(const OdGeVector3d& value);
  double thickness() const { return thickness_; }
  void setThickness(double value);
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  OdDbFilledArea() = default;
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;
  static const drawing::Description& areaDescription(); // description of both kinds

private:
  drawing::Corners corners_; // OCS
  double thickness_ = 0;
  OdGeVector3d normal_{0, 0, 1};
};

// A SOLID entity.
class MVDRAWING_API OdDbSolid : public OdDbFilledArea {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbSolid);
  OdDbSolid() = default;
};
using OdDbSolidPtr = OdSmartPtr<OdDbSolid>;

// A TRACE entity.
class MVDRAWING_API OdDbTrace : public OdDbFilledArea {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbTrace);
  OdDbTrace() = default;
};
using OdDbTracePtr = OdSmartPtr<OdDbTrace>;

// A 3DFACE entity: a face in space. Accepts every invertible matrix.
class MVDRAWING_API OdDbFace : public OdDbEntity {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbFace);
  OdDbFace() = default;
  // Corners in world coordinates; throw OdError(eInvalidIndex) unless the index is 0 to 3.
  OdGePoint3d getVertexAt(int index) const;
  void setVertexAt(int index, const OdGePoint3d& point);
  // Whether the edge from that corner, 0 to 3, to the next is drawn.
  bool isEdgeVisibleAt(int index) const { return (hiddenEdges_ >> index & 1) == 0; }
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;

private:
  drawing::Corners corners_;
  std::int16_t hiddenEdges_ = 0;
};
using OdDbFacePtr = OdSmartPtr<OdDbFace>;
