// Clip boundaries of block references.
//
// A boundary is drawn in world coordinates; the filter also stores the position of the reference at that time, so that
// the visible part of the block does not depend on the present position. Transforming or cloning the reference moves
// the boundary with it and leaves the filter unchanged.
#pragma once

#include "DbObject.h"
#include "Ge/GeMatrix3d.h"
#include "Ge/GePoint2d.h"

#include <optional>
#include <vector>

class OdDbBlockReference;

// A clip boundary: entry "SPATIAL" of the dictionary "ACAD_FILTER" in the extension dictionary of the reference.
class MVDRAWING_API OdDbSpatialFilter : public OdDbObject {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbSpatialFilter);
  OdDbSpatialFilter() = default;

  bool isEnabled() const { return enabled_; } // a boundary that is not enabled does not clip
  // Two opposite corners of a rectangle, or the corners of a polygon, in the coordinate system of the boundary; its
  // normal and origin in world coordinates.
  const std::vector<OdGePoint2d>& boundary() const { return boundary_; }
  OdGeVector3d normal() const { return normal_; }
  OdGePoint3d origin() const { return origin_; }
  // Distances of the front and back clipping planes along the normal; none: not clipped there.
  std::optional<double> frontClipDist() const;
  std::optional<double> backClipDist() const;
  // Matrices when the boundary was drawn: from world to block coordinates, and from world to boundary coordinates.
  const OdGeMatrix3d& originalInverseBlockTransform() const { return inverseInsert_; }
  const OdGeMatrix3d& clipTransform() const { return clip_; }

  // Corners of the boundary, four for a rectangle, in block coordinates. Empty for fewer than two corners and if the
  // clip matrix has no inverse.
  std::vector<OdGePoint3d> boundaryInBlock() const;
  // The same for the hidden part of an inverted clip boundary; empty for all others. Such a filter also has an ordinary
  // boundary, for programs that do not support inverted ones.
  std::vector<OdGePoint3d> holeInBlock() const;

  // The filter of a reference, open for read; null if it is not clipped.
  static OdSmartPtr<OdDbSpatialFilter> of(const OdDbBlockReference& reference);

private:
  static bool readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);
  bool takeReal(double value);
  std::vector<OdGePoint3d> inBlock(std::vector<OdGePoint2d> corners) const;

  std::vector<OdGePoint2d> boundary_;
  OdGeVector3d normal_{0, 0, 1};
  OdGePoint3d origin_;
  bool enabled_ = true, hasFront_ = false, hasBack_ = false;
  double front_ = 0, back_ = 0;
  OdGeMatrix3d inverseInsert_ = OdGeMatrix3d::kIdentity, clip_ = OdGeMatrix3d::kIdentity;
  std::size_t realsRead_ = 0; // reader state: values of the front distance and both matrices, which share a code
};
using OdDbSpatialFilterPtr = OdSmartPtr<OdDbSpatialFilter>;
