// Leaders: an arrow along a line of points, to a note.
#pragma once

#include "DbCurves.h"

#include <vector>

class MVDRAWING_API OdDbLeader : public OdDbCurve {
public:
  ODDB_DECLARE_MEMBERS(OdDbLeader);
  OdDbLeader() = default;
  int numVertices() const { return static_cast<int>(vertices_.size()); }
  OdGePoint3d vertexAt(int index) const; // world coordinates; OdError(eInvalidIndex) outside
  bool appendVertex(const OdGePoint3d& point);
  OdDbObjectId annotationObjId() const { return annotation_; } // null when it has none
  OdDbObjectId dimensionStyle() const { return style_; }
  void setDimensionStyle(OdDbObjectId value);
  bool hasArrowHead() const { return hasArrow_; }
  bool isSplined() const { return pathType_ == 1; }
  OdGeVector3d normal() const { return normal_; }
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  // Takes matrices that keep shapes in its plane: the size of the note is part of it.
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;

private:
  static bool readGroup(OdDbObject& object, const drawing::Pair& pair, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);

  OdDbObjectId style_;
  OdDbObjectId annotation_;
  std::vector<OdGePoint3d> vertices_;
  OdGeVector3d normal_{0, 0, 1};
  OdGeVector3d horizontal_{1, 0, 0};
  OdGeVector3d offsetFromBlock_;      // of the last vertex
  OdGeVector3d offsetFromAnnotation_; // of the last vertex
  double noteHeight_ = 0, noteWidth_ = 0;
  std::int16_t noteKind_ = 3; // none
  std::int16_t pathType_ = 0;
  std::int16_t hookSide_ = 0;
  bool hasArrow_ = true, hasHook_ = false;
};
using OdDbLeaderPtr = OdSmartPtr<OdDbLeader>;
