// Lines of several parallel strokes.
#pragma once

#include "DbCurves.h"

#include <vector>

class MVDRAWING_API OdDbMline : public OdDbCurve {
public:
  ODDB_DECLARE_MEMBERS(OdDbMline);
  OdDbMline() = default;

  // One stroke at a vertex: where it crosses the mitre, then where it is cut and goes on; and the cuts of its filling.
  // Lengths along the mitre first, then along the segment.
  struct Stroke {
    std::vector<double> cuts;
    std::vector<double> fillCuts;
  };
  struct Vertex {
    OdGePoint3d point;
    OdGeVector3d direction; // of the segment to the next vertex
    OdGeVector3d miter;     // both of unit length
    std::vector<Stroke> strokes;
  };

  enum Justification : std::int16_t { kTop = 0, kZero = 1, kBottom = 2 };

  int numVertices() const { return static_cast<int>(vertices_.size()); }
  const Vertex& vertexAt(int index) const; // world coordinates; OdError(eInvalidIndex) outside
  OdDbObjectId style() const { return style_; }
  const OdString& styleName() const { return styleName_; }
  double scale() const { return scale_; } // of the style's offsets
  Justification justification() const { return static_cast<Justification>(justification_); }
  bool isClosed() const { return (flags_ & 2) != 0; }
  OdGeVector3d normal() const { return normal_; }

  OdResult getGeomExtents(OdGeExtents3d& extents) const override; // of all strokes at the vertices

protected:
  // Takes matrices that keep shapes in its plane. A mirror turns the normal over: strokes lie to the left and right of
  // the line as seen against it.
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;

private:
  static bool readGroup(OdDbObject& object, const drawing::Pair& pair, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);
  bool readStroke(const drawing::Pair& pair, drawing::LoadContext& context);

  OdString styleName_;
  OdDbObjectId style_;
  OdGePoint3d start_;
  OdGeVector3d normal_{0, 0, 1};
  double scale_ = 1;
  std::int16_t justification_ = 0, flags_ = 1, elements_ = 0;
  std::vector<Vertex> vertices_;
};
using OdDbMlinePtr = OdSmartPtr<OdDbMline>;
