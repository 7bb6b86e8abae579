// Multilines: several parallel lines along a path.
#pragma once

#include "DbCurves.h"

#include <vector>

// A multiline. Points and vectors are world coordinates, lengths drawing units.
class MVDRAWING_API OdDbMline : public OdDbCurve {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbMline);
  OdDbMline() = default;

  // One of the parallel lines at a vertex: its distance along the mitre, then alternately the ends and starts of its
  // parts along the segment; and the same for the filling.
  struct Stroke {
    std::vector<double> cuts;
    std::vector<double> fillCuts;
  };
  // A vertex. The vectors have unit length.
  struct Vertex {
    OdGePoint3d point;
    OdGeVector3d direction; // direction of the segment to the next vertex
    OdGeVector3d miter;     // direction along which the parallel lines are placed
    std::vector<Stroke> strokes;
  };

  // Which of the parallel lines is at the points; values as in files (group 70).
  enum Justification : std::int16_t { kTop = 0, kZero = 1, kBottom = 2 };

  // Vertices; vertexAt throws OdError(eInvalidIndex) unless 0 <= index < numVertices().
  int numVertices() const { return static_cast<int>(vertices_.size()); }
  const Vertex& vertexAt(int index) const;
  // Style by id and by the name in the file; factor of the offsets of the style; normal of the plane.
  OdDbObjectId style() const { return style_; }
  const OdString& styleName() const { return styleName_; }
  double scale() const { return scale_; }
  Justification justification() const { return static_cast<Justification>(justification_); }
  bool isClosed() const { return (flags_ & 2) != 0; }
  OdGeVector3d normal() const { return normal_; }

  // World extents of all parallel lines at the vertices; eNotApplicable without vertices.
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  // Accepts matrices that keep shapes in its plane. A reflection reverses the normal: the parallel lines are to the
  // left and right of the path as seen against it.
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;

private:
  static bool readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);
  bool readStroke(const drawing::RawGroup& group, drawing::LoadContext& context);

  OdString styleName_;
  OdDbObjectId style_;
  OdGePoint3d start_;
  OdGeVector3d normal_{0, 0, 1};
  double scale_ = 1;
  std::int16_t justification_ = 0, flags_ = 1, elements_ = 0;
  std::vector<Vertex> vertices_;
};
using OdDbMlinePtr = OdSmartPtr<OdDbMline>;
