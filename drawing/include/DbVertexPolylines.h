// Polylines and meshes whose vertices are entities of their own, standing behind them in files.
#pragma once

#include "DbCurves.h"
#include "drawing/detail/sequence_owner.h"

class OdDb2dVertex;

// What the vertices share. Vertices follow their owner; to move one alone, set its position.
class MVDRAWING_API OdDbVertex : public OdDbEntity {
public:
  ODRX_DECLARE_MEMBERS(OdDbVertex);
  std::int16_t vertexFlags() const { return flags_; }

  static constexpr std::int16_t kExtra = 1, kHasTangent = 2, kSplineVertex = 8, kSplineControl = 16;

protected:
  OdDbVertex() = default;

  std::int16_t flags_ = 0;
};
using OdDbVertexPtr = OdSmartPtr<OdDbVertex>;

// Of a polyline in a plane: its place is in the frame of the polyline's plane.
class MVDRAWING_API OdDb2dVertex : public OdDbVertex {
public:
  ODDB_DECLARE_MEMBERS(OdDb2dVertex);
  OdDb2dVertex() = default;
  OdGePoint3d position() const { return position_; } // in the frame of the polyline's plane
  void setPosition(const OdGePoint3d& value);
  double bulge() const { return bulge_; }
  void setBulge(double value);
  double startWidth() const { return startWidth_; } // below 0: the polyline's own
  double endWidth() const { return endWidth_; }
  void setStartWidth(double value);
  void setEndWidth(double value);
  double tangent() const { return tangent_; } // radians, in the polyline's plane
  static constexpr double kWidthOfPolyline = -1;

private:
  friend class OdDb2dPolyline;
  OdGePoint3d position_;
  double bulge_ = 0;
  double startWidth_ = kWidthOfPolyline, endWidth_ = kWidthOfPolyline;
  double tangent_ = 0;
  std::int32_t identifier_ = 0;
};

// Vertices with a place in the world.
class MVDRAWING_API OdDbWorldVertex : public OdDbVertex {
public:
  ODRX_DECLARE_MEMBERS(OdDbWorldVertex);
  OdGePoint3d position() const { return position_; }
  void setPosition(const OdGePoint3d& value);
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  OdDbWorldVertex(std::int16_t flags) { flags_ = flags; }
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;
  static drawing::Section vertexSection(const char* marker);

private:
  OdGePoint3d position_;
};

class MVDRAWING_API OdDb3dPolylineVertex : public OdDbWorldVertex {
public:
  ODDB_DECLARE_MEMBERS(OdDb3dPolylineVertex);
  OdDb3dPolylineVertex() : OdDbWorldVertex(32) {}
};

class MVDRAWING_API OdDbPolygonMeshVertex : public OdDbWorldVertex {
public:
  ODDB_DECLARE_MEMBERS(OdDbPolygonMeshVertex);
  OdDbPolygonMeshVertex() : OdDbWorldVertex(64) {}
};

class MVDRAWING_API OdDbPolyFaceMeshVertex : public OdDbWorldVertex {
public:
  ODDB_DECLARE_MEMBERS(OdDbPolyFaceMeshVertex);
  OdDbPolyFaceMeshVertex() : OdDbWorldVertex(64 + 128) {}
};

// A face of a mesh, by the numbers of its vertices (from 1 on; below 0 for an edge that is not shown).
class MVDRAWING_API OdDbFaceRecord : public OdDbVertex {
public:
  ODDB_DECLARE_MEMBERS(OdDbFaceRecord);
  OdDbFaceRecord() { flags_ = 128; }
  std::int16_t getVertexAt(int index) const; // 0: none. OdError(eInvalidIndex) outside 0 to 3
  void setVertexAt(int index, std::int16_t vertex);

protected:
  OdResult subTransformBy(const OdGeMatrix3d&) override { return eOk; } // numbers stay numbers

private:
  OdGePoint3d unused_; // files hold a place that means nothing
  std::int16_t first_ = 0, second_ = 0, third_ = 0, fourth_ = 0;
};

// What the owners share.
class MVDRAWING_API OdDbVertexOwner : public OdDbCurve, public OdDbSequenceOwner {
public:
  ODRX_DECLARE_MEMBERS(OdDbVertexOwner);
  // Makes a free vertex resident; the polyline must be so already.
  OdDbObjectId appendVertex(OdDbVertex* vertex);
  std::vector<OdDbObjectId> vertexIds() const; // living ones

  OdResult getGeomExtents(OdGeExtents3d& extents) const override;
  void ownedObjects(std::vector<OdDbObjectId>& ids) const override;
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void afterClone(const OdDbObject& source, OdDbIdMapping& mapping) override;

protected:
  explicit OdDbVertexOwner(std::int16_t flags = 0) : flags_(flags) {}
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override; // moves the vertices
  static drawing::Section ownerSection(const char* marker);
  static bool readFollowMark(OdDbObject& object, const drawing::Pair& pair, drawing::LoadContext& context);
  static void writeFollowMark(const OdDbObject& object, drawing::GroupSink& sink);

  OdGePoint3d origin_; // of polylines in a plane: 0, 0 and the elevation; else it means nothing
  std::int16_t flags_ = 0;
};

class MVDRAWING_API OdDb2dPolyline : public OdDbVertexOwner {
public:
  ODDB_DECLARE_MEMBERS(OdDb2dPolyline);
  OdDb2dPolyline() = default;
  bool isClosed() const { return (flags_ & 1) != 0; }
  void setClosed(bool closed);
  double elevation() const { return origin_.z; }
  void setElevation(double value);
  double thickness() const { return thickness_; }
  void setThickness(double value);
  OdGeVector3d normal() const { return normal_; }
  void setNormal(const OdGeVector3d& value);
  double defaultStartWidth() const { return startWidth_; }
  double defaultEndWidth() const { return endWidth_; }
  void setDefaultStartWidth(double value);
  void setDefaultEndWidth(double value);
  OdGePoint3d vertexPosition(const OdDb2dVertex& vertex) const; // world coordinates

  OdResult getGeomExtents(OdGeExtents3d& extents) const override;

protected:
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;

private:
  std::vector<OdDb2dVertex*> vertices() const; // living ones

  double startWidth_ = 0, endWidth_ = 0;
  double thickness_ = 0;
  OdGeVector3d normal_{0, 0, 1};
  std::int16_t curveType_ = 0;
};
using OdDb2dPolylinePtr = OdSmartPtr<OdDb2dPolyline>;

class MVDRAWING_API OdDb3dPolyline : public OdDbVertexOwner {
public:
  ODDB_DECLARE_MEMBERS(OdDb3dPolyline);
  OdDb3dPolyline() : OdDbVertexOwner(8) {}
  bool isClosed() const { return (flags_ & 1) != 0; }
  void setClosed(bool closed);

private:
  std::int16_t curveType_ = 0;
};
using OdDb3dPolylinePtr = OdSmartPtr<OdDb3dPolyline>;

class MVDRAWING_API OdDbPolygonMesh : public OdDbVertexOwner {
public:
  ODDB_DECLARE_MEMBERS(OdDbPolygonMesh);
  OdDbPolygonMesh() : OdDbVertexOwner(16) {}
  std::int16_t mSize() const { return mSize_; }
  std::int16_t nSize() const { return nSize_; }
  // Of the smoothed surface; 0 when it is not smoothed.
  std::int16_t mDensity() const { return mDensity_; }
  std::int16_t nDensity() const { return nDensity_; }
  bool isMClosed() const { return (flags_ & 1) != 0; }
  bool isNClosed() const { return (flags_ & 32) != 0; }
  bool isSmoothed() const { return (flags_ & 4) != 0; }

private:
  std::int16_t mSize_ = 0, nSize_ = 0;
  std::int16_t mDensity_ = 0, nDensity_ = 0;
  std::int16_t curveType_ = 0;
};

class MVDRAWING_API OdDbPolyFaceMesh : public OdDbVertexOwner {
public:
  ODDB_DECLARE_MEMBERS(OdDbPolyFaceMesh);
  OdDbPolyFaceMesh() : OdDbVertexOwner(64) {}
  std::int16_t numVertices() const { return vertexCount_; }
  std::int16_t numFaces() const { return faceCount_; }

private:
  std::int16_t vertexCount_ = 0, faceCount_ = 0;
};
