// Clipped references: which part of its block a reference shows.
//
// The boundary was drawn in the world when the reference stood somewhere; the filter keeps both, so that the part of
// the block that is seen does not depend on where the reference stands now. Moving or cloning the reference moves the
// boundary with it, and the filter stays as it is.
#pragma once

#include "DbObject.h"
#include "Ge/GeMatrix3d.h"
#include "Ge/GePoint2d.h"

#include <optional>
#include <vector>

class OdDbBlockReference;

class MVDRAWING_API OdDbSpatialFilter : public OdDbObject {
public:
  ODDB_DECLARE_MEMBERS(OdDbSpatialFilter);
  OdDbSpatialFilter() = default;

  bool isEnabled() const { return enabled_; }
  // Two opposite corners of a rectangle, or the corners of a polygon; in the frame of the boundary.
  const std::vector<OdGePoint2d>& boundary() const { return boundary_; }
  OdGeVector3d normal() const { return normal_; }
  OdGePoint3d origin() const { return origin_; }
  // Distances of the clipping planes in front and behind, along the normal; none: nothing is cut there.
  std::optional<double> frontClipDist() const;
  std::optional<double> backClipDist() const;
  // From the world to the block, as the reference stood when the boundary was drawn.
  const OdGeMatrix3d& originalInverseBlockTransform() const { return inverseInsert_; }
  // From the world of then to the frame of the boundary.
  const OdGeMatrix3d& clipTransform() const { return clip_; }

  // The corners of the boundary, all of them for a rectangle, in the coordinates of the block. Empty when it has no
  // two corners or its matrices have no inverse.
  std::vector<OdGePoint3d> boundaryInBlock() const;
  // Of a filter that hides what lies inside, the same for the part that is hidden; empty for all others. Such a filter
  // has a boundary, too: nearly the same for programs that know none of its kind.
  std::vector<OdGePoint3d> holeInBlock() const;

  // The filter of a reference; null when it is not clipped.
  static OdSmartPtr<OdDbSpatialFilter> of(const OdDbBlockReference& reference);

private:
  static bool readGroup(OdDbObject& object, const drawing::Pair& pair, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);
  bool takeReal(double value);
  std::vector<OdGePoint3d> inBlock(std::vector<OdGePoint2d> corners) const;

  std::vector<OdGePoint2d> boundary_;
  OdGeVector3d normal_{0, 0, 1};
  OdGePoint3d origin_;
  bool enabled_ = true, hasFront_ = false, hasBack_ = false;
  double front_ = 0, back_ = 0;
  OdGeMatrix3d inverseInsert_ = OdGeMatrix3d::kIdentity, clip_ = OdGeMatrix3d::kIdentity;
  std::size_t realsRead_ = 0; // while reading: of the front distance and both matrices, which share a code
};
using OdDbSpatialFilterPtr = OdSmartPtr<OdDbSpatialFilter>;
