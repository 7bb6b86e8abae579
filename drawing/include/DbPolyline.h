// Polylines in one piece: a list of places in a plane, joined by lines and arcs.
#pragma once

#include "DbCurves.h"
#include "Ge/GePoint2d.h"

#include <vector>

class MVDRAWING_API OdDbPolyline : public OdDbCurve {
public:
  ODDB_DECLARE_MEMBERS(OdDbPolyline);
  OdDbPolyline() = default;

  struct Vertex {
    OdGePoint2d point; // in the plane's frame
    // Tangent of a quarter of the angle of the arc to the next vertex; above 0 when it runs counter-clockwise.
    double bulge = 0;
    double startWidth = 0, endWidth = 0;
    std::int32_t identifier = 0;
  };

  unsigned numVerts() const { return static_cast<unsigned>(vertices_.size()); }
  // Indices outside throw OdError(eInvalidIndex).
  const Vertex& vertexAt(unsigned index) const;
  OdGePoint3d getPointAt(unsigned index) const; // world coordinates
  double getBulgeAt(unsigned index) const { return vertexAt(index).bulge; }
  // Puts a vertex before that index; an index at or behind the end appends.
  void addVertexAt(unsigned index, const OdGePoint2d& point, double bulge = 0, double startWidth = 0,
                   double endWidth = 0);
  void setPointAt(unsigned index, const OdGePoint2d& point);
  void setBulgeAt(unsigned index, double bulge);
  void removeVertexAt(unsigned index);

  bool isClosed() const { return (flags_ & 1) != 0; }
  void setClosed(bool closed);
  double getConstantWidth() const { return constantWidth_; } // 0 when the vertices have their own
  void setConstantWidth(double value);
  double elevation() const { return elevation_; }
  void setElevation(double value);
  double thickness() const { return thickness_; }
  void setThickness(double value);
  OdGeVector3d normal() const { return normal_; }
  void setNormal(const OdGeVector3d& value);

  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  // Arcs and widths take only what keeps shapes in the plane, straight polylines without width everything.
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;

private:
  static bool readGroup(OdDbObject& object, const drawing::Pair& pair, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);
  Vertex& vertexForWrite(unsigned index);

  std::int16_t flags_ = 0;
  double constantWidth_ = 0;
  double elevation_ = 0;
  double thickness_ = 0;
  OdGeVector3d normal_{0, 0, 1};
  std::vector<Vertex> vertices_;
};
using OdDbPolylinePtr = OdSmartPtr<OdDbPolyline>;
