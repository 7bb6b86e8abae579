// Lightweight polylines: vertices in a plane, joined by lines and arcs.
#pragma once

#include "DbCurves.h"
#include "Ge/GePoint2d.h"

#include <vector>

// A lightweight polyline (LWPOLYLINE). Setters store the value unchecked.
class MVDRAWING_API OdDbPolyline : public OdDbCurve {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbPolyline);
  OdDbPolyline() = default;

  // A vertex, and the segment to the next one.
  struct Vertex {
    OdGePoint2d point; // OCS
    // Tangent of a quarter of the angle of the arc to the next vertex; positive: counter-clockwise.
    double bulge = 0;
    double startWidth = 0, endWidth = 0; // drawing units
    std::int32_t identifier = 0;
  };

  unsigned numVerts() const { return static_cast<unsigned>(vertices_.size()); } // number of vertices
  // Vertices by index; throw OdError(eInvalidIndex) unless index < numVerts(). getPointAt returns world coordinates,
  // the others take and return OCS coordinates.
  const Vertex& vertexAt(unsigned index) const;
  OdGePoint3d getPointAt(unsigned index) const;
  double getBulgeAt(unsigned index) const { return vertexAt(index).bulge; }
  void setPointAt(unsigned index, const OdGePoint2d& point);
  void setBulgeAt(unsigned index, double bulge);
  void removeVertexAt(unsigned index);
  // Inserts a vertex before that index; an index from numVerts() on appends.
  void addVertexAt(unsigned index, const OdGePoint2d& point, double bulge = 0, double startWidth = 0,
                   double endWidth = 0);

  // Whether a segment joins the last vertex to the first, and the width of all segments (0: the vertices have their
  // own).
  bool isClosed() const { return (flags_ & 1) != 0; }
  void setClosed(bool closed);
  double getConstantWidth() const { return constantWidth_; }
  void setConstantWidth(double value);

  // Plane: distance from the origin along the normal, extrusion along the normal, normal in world coordinates (unit
  // length). Setting the normal keeps the OCS coordinates, so it moves the polyline in the world.
  double elevation() const { return elevation_; }
  void setElevation(double value);
  double thickness() const { return thickness_; }
  void setThickness(double value);
  OdGeVector3d normal() const { return normal_; }
  void setNormal(const OdGeVector3d& value);

  // World extents with arcs, widths and thickness; eNotApplicable without vertices.
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  // Accepts matrices that keep shapes in the plane; without arcs and widths every invertible matrix. One that tilts the
  // thickness is refused.
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;

private:
  static bool readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context);
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
