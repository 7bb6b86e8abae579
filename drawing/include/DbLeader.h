// Leaders: an arrow along a line of points to an annotation.
#pragma once

#include "DbCurves.h"

#include <vector>

// A leader. Its points are world coordinates, the first one at the arrowhead. Changing a resident leader that is not
// open for write throws OdError(eNotOpenForWrite).
class MVDRAWING_API OdDbLeader : public OdDbCurve {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbLeader);
  OdDbLeader() = default;

  // Points of the line. vertexAt throws OdError(eInvalidIndex) unless 0 <= index < numVertices(); appendVertex does not
  // check the point.
  int numVertices() const { return static_cast<int>(vertices_.size()); }
  OdGePoint3d vertexAt(int index) const;
  void appendVertex(const OdGePoint3d& point);

  // Annotation at the end of the leader: a text, a block reference or a tolerance; null when it has none.
  OdDbObjectId annotationObjId() const { return annotation_; }
  // Dimension style, which has arrowhead, size and colour; not checked.
  OdDbObjectId dimensionStyle() const { return style_; }
  void setDimensionStyle(OdDbObjectId value);
  // Arrowhead, path (a spline or straight segments), and normal of the plane in world coordinates.
  bool hasArrowHead() const { return hasArrow_; }
  bool isSplined() const { return pathType_ == 1; }
  OdGeVector3d normal() const { return normal_; }

  // World extents of the points, without arrowhead and annotation; eNotApplicable without points.
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  // Accepts matrices that keep shapes in its plane: it stores the size of the annotation.
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;

private:
  static bool readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);

  OdDbObjectId style_;
  OdDbObjectId annotation_;
  std::vector<OdGePoint3d> vertices_;
  OdGeVector3d normal_{0, 0, 1};
  OdGeVector3d horizontal_{1, 0, 0};
  OdGeVector3d offsetFromBlock_;      // from the block reference to the last vertex
  OdGeVector3d offsetFromAnnotation_; // from the annotation to the last vertex
  double noteHeight_ = 0, noteWidth_ = 0;
  std::int16_t noteKind_ = 3; // none
  std::int16_t pathType_ = 0;
  std::int16_t hookSide_ = 0;
  bool hasArrow_ = true, hasHook_ = false;
};
using OdDbLeaderPtr = OdSmartPtr<OdDbLeader>;
