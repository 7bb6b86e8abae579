// Polylines and meshes whose vertices are separate entities (POLYLINE, VERTEX, SEQEND in files).
//
// Setters throw OdError(eNotOpenForWrite) for a resident entity that is not open for write, and store the value
// unchecked unless stated otherwise.
#pragma once

#include "DbCurves.h"
#include "drawing/detail/sequence_owner.h"

class OdDb2dVertex;

// Common base of the vertices. Transforming the owner moves its vertices; to move one alone, set its position.
class MVDRAWING_API OdDbVertex : public OdDbEntity {
public:
  MVDRAWING_DECLARE_CLASS(OdDbVertex);
  // Flags as in files (group 70), and their bits: inserted by curve fitting, has a tangent, created by or controlling a
  // spline fit.
  std::int16_t vertexFlags() const { return flags_; }
  static constexpr std::int16_t kExtra = 1, kHasTangent = 2, kSplineVertex = 8, kSplineControl = 16;

protected:
  OdDbVertex() = default;

  std::int16_t flags_ = 0;
};
using OdDbVertexPtr = OdSmartPtr<OdDbVertex>;

// Vertex of a 2D polyline. Its position is in the object coordinate system (OCS) of the polyline.
class MVDRAWING_API OdDb2dVertex : public OdDbVertex {
public:
  MVDRAWING_DECLARE_OBJECT(OdDb2dVertex);
  OdDb2dVertex() = default;

  // OCS position. Only x and y count: the elevation is the polyline's (see OdDb2dPolyline::vertexPosition).
  OdGePoint3d position() const { return position_; }
  void setPosition(const OdGePoint3d& value);
  // Tangent of a quarter of the angle of the arc to the next vertex; 0: straight, positive: counter-clockwise as seen
  // against the normal.
  double bulge() const { return bulge_; }
  void setBulge(double value);

  // Widths of the segment to the next vertex in drawing units; negative (kWidthOfPolyline): the polyline's default.
  double startWidth() const { return startWidth_; }
  double endWidth() const { return endWidth_; }
  void setStartWidth(double value);
  void setEndWidth(double value);
  static constexpr double kWidthOfPolyline = -1;

  // Direction for curve fitting in radians against the OCS x axis; used when kHasTangent is set.
  double tangent() const { return tangent_; }

private:
  friend class OdDb2dPolyline;
  OdGePoint3d position_;
  double bulge_ = 0;
  double startWidth_ = kWidthOfPolyline, endWidth_ = kWidthOfPolyline;
  double tangent_ = 0;
  std::int32_t identifier_ = 0;
};

// Vertex whose position is in world coordinates. Its extents are its position.
class MVDRAWING_API OdDbWorldVertex : public OdDbVertex {
public:
  MVDRAWING_DECLARE_CLASS(OdDbWorldVertex);
  // World coordinates.
  OdGePoint3d position() const { return position_; }
  void setPosition(const OdGePoint3d& value);

  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  OdDbWorldVertex(std::int16_t flags) { flags_ = flags; } // with these flags (group 70)
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;
  static drawing::SubclassLayout vertexSubclass(const char* marker); // groups that all kinds have

private:
  OdGePoint3d position_;
};

// Vertex of a 3D polyline.
class MVDRAWING_API OdDb3dPolylineVertex : public OdDbWorldVertex {
public:
  MVDRAWING_DECLARE_OBJECT(OdDb3dPolylineVertex);
  OdDb3dPolylineVertex() : OdDbWorldVertex(32) {} // at the origin
};

// Vertex of a polygon mesh.
class MVDRAWING_API OdDbPolygonMeshVertex : public OdDbWorldVertex {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbPolygonMeshVertex);
  OdDbPolygonMeshVertex() : OdDbWorldVertex(64) {} // at the origin
};

// Vertex of a polyface mesh.
class MVDRAWING_API OdDbPolyFaceMeshVertex : public OdDbWorldVertex {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbPolyFaceMeshVertex);
  OdDbPolyFaceMeshVertex() : OdDbWorldVertex(64 + 128) {} // at the origin
};

// Face of a polyface mesh: up to four vertices by number. Numbers count the vertices of the mesh from 1; a negative
// number hides the edge from that vertex to the next.
class MVDRAWING_API OdDbFaceRecord : public OdDbVertex {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbFaceRecord);
  OdDbFaceRecord() { flags_ = 128; } // without vertices
  // Vertex number of a corner, 0 for an unused one. Throw OdError(eInvalidIndex) unless the index is 0 to 3.
  std::int16_t getVertexAt(int index) const;
  void setVertexAt(int index, std::int16_t vertex);

protected:
  OdResult applyTransform(const OdGeMatrix3d&) override { return eOk; } // has no coordinates

private:
  OdGePoint3d unused_; // files contain a position without meaning
  std::int16_t first_ = 0, second_ = 0, third_ = 0, fourth_ = 0;
};

// Common base of polylines and meshes: owner of the vertices. Transforming moves the vertices.
class MVDRAWING_API OdDbVertexOwner : public OdDbCurve, public OdDbSequenceOwner {
public:
  MVDRAWING_DECLARE_CLASS(OdDbVertexOwner);
  // Makes a free vertex resident and lists it last; the drawing owns it. Returns its id. Throws OdError: eNullObjectPtr
  // for null, eNotOpenForWrite, eNotInDatabase when the polyline is free.
  OdDbObjectId appendVertex(OdDbVertex* vertex);
  // Vertices in order, face records included, erased ones not.
  std::vector<OdDbObjectId> vertexIds() const;

  // Extents of the vertices in world coordinates; eNotApplicable without any.
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

  // -- SDK internals. --
  void ownedObjects(std::vector<OdDbObjectId>& ids) const override;
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void visitReferences(drawing::ConstReferenceVisitor& visitor) const override;
  void afterClone(const OdDbObject& source, OdDbIdMapping& mapping) override;

protected:
  explicit OdDbVertexOwner(std::int16_t flags = 0) : flags_(flags) {} // with these flags (group 70)
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;
  // Description of the groups that all owners have, group 66 ("vertices follow") among them.
  static drawing::SubclassLayout ownerSubclass(const char* marker);
  static bool readFollowFlag(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context);
  static void writeFollowFlag(const OdDbObject& object, drawing::GroupSink& sink);

  OdGePoint3d origin_; // 2D polylines: 0, 0 and the elevation; without meaning for others
  std::int16_t flags_ = 0;
};

// A polyline in a plane, in the form with separate vertices. A matrix that changes shapes in its plane is refused
// (eCannotTransform) when the polyline has arcs or widths, and one that tilts a thickness when it has a thickness.
class MVDRAWING_API OdDb2dPolyline : public OdDbVertexOwner {
public:
  MVDRAWING_DECLARE_OBJECT(OdDb2dPolyline);
  OdDb2dPolyline() = default;

  // Whether a segment joins the last vertex to the first.
  bool isClosed() const { return (flags_ & 1) != 0; }
  void setClosed(bool closed);

  // Plane: its normal in world coordinates (unit length, not checked), the distance of the plane from the origin along
  // the normal, and the extrusion along the normal (negative: against it). Setting the normal keeps the OCS
  // coordinates of the vertices, so it moves them in the world.
  double elevation() const { return origin_.z; }
  void setElevation(double value);
  double thickness() const { return thickness_; }
  void setThickness(double value);
  OdGeVector3d normal() const { return normal_; }
  void setNormal(const OdGeVector3d& value);

  // Widths of segments whose vertex has none, in drawing units.
  double defaultStartWidth() const { return startWidth_; }
  double defaultEndWidth() const { return endWidth_; }
  void setDefaultStartWidth(double value);
  void setDefaultEndWidth(double value);

  // World position of one of its vertices: x and y of the vertex at the elevation of the polyline.
  OdGePoint3d vertexPosition(const OdDb2dVertex& vertex) const;

  // World extents with arcs, widths and thickness; control points of a spline fit do not count. eNotApplicable without
  // vertices.
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;

private:
  std::vector<OdDb2dVertex*> vertices() const; // without erased ones

  double startWidth_ = 0, endWidth_ = 0;
  double thickness_ = 0;
  OdGeVector3d normal_{0, 0, 1};
  std::int16_t curveType_ = 0;
};
using OdDb2dPolylinePtr = OdSmartPtr<OdDb2dPolyline>;

// A polyline of straight segments in space. Accepts every invertible matrix.
class MVDRAWING_API OdDb3dPolyline : public OdDbVertexOwner {
public:
  MVDRAWING_DECLARE_OBJECT(OdDb3dPolyline);
  OdDb3dPolyline() : OdDbVertexOwner(8) {} // without vertices
  // Whether a segment joins the last vertex to the first.
  bool isClosed() const { return (flags_ & 1) != 0; }
  void setClosed(bool closed);

private:
  std::int16_t curveType_ = 0;
};
using OdDb3dPolylinePtr = OdSmartPtr<OdDb3dPolyline>;

// A mesh of M times N vertices. Accepts every invertible matrix.
class MVDRAWING_API OdDbPolygonMesh : public OdDbVertexOwner {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbPolygonMesh);
  OdDbPolygonMesh() : OdDbVertexOwner(16) {} // without vertices
  // Number of vertices in both directions as files state it; it is not derived from the vertices.
  std::int16_t mSize() const { return mSize_; }
  std::int16_t nSize() const { return nSize_; }
  // Number of vertices of the smoothed surface in both directions; 0 when it is not smoothed.
  std::int16_t mDensity() const { return mDensity_; }
  std::int16_t nDensity() const { return nDensity_; }
  // Whether the last row joins the first one in that direction, and whether the mesh is smoothed.
  bool isMClosed() const { return (flags_ & 1) != 0; }
  bool isNClosed() const { return (flags_ & 32) != 0; }
  bool isSmoothed() const { return (flags_ & 4) != 0; }

private:
  std::int16_t mSize_ = 0, nSize_ = 0;
  std::int16_t mDensity_ = 0, nDensity_ = 0;
  std::int16_t curveType_ = 0;
};

// A mesh of vertices and of faces that name them by number. Accepts every invertible matrix.
class MVDRAWING_API OdDbPolyFaceMesh : public OdDbVertexOwner {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbPolyFaceMesh);
  OdDbPolyFaceMesh() : OdDbVertexOwner(64) {} // without vertices
  // Counts as files state them; they are not derived from the vertices and face records.
  std::int16_t numVertices() const { return vertexCount_; }
  std::int16_t numFaces() const { return faceCount_; }

private:
  std::int16_t vertexCount_ = 0, faceCount_ = 0;
};
