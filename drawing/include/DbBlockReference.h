// References to block definitions.
#pragma once

#include "DbAttribute.h"
#include "Ge/GeScale3d.h"
#include "drawing/detail/sequence_owner.h"

// Walks the attributes of a reference in order of addition; erased ones are passed over.
class MVDRAWING_API OdDbAttributeIterator : public OdRxObject {
public:
  ODRX_DECLARE_MEMBERS(OdDbAttributeIterator);
  explicit OdDbAttributeIterator(std::vector<OdDbObjectId> ids = {});
  bool done() const { return at_ >= ids_.size(); }
  void start() { at_ = 0; }
  bool step() { return ++at_ < ids_.size(); }
  OdDbObjectId objectId() const { return done() ? OdDbObjectId() : ids_[at_]; }
  OdDbAttributePtr entity(OdDb::OpenMode mode = OdDb::kForRead) const;

private:
  std::vector<OdDbObjectId> ids_;
  std::size_t at_ = 0;
};
using OdDbObjectAttributeIteratorPtr = OdSmartPtr<OdDbAttributeIterator>;

class MVDRAWING_API OdDbBlockReference : public OdDbEntity, public OdDbSequenceOwner {
public:
  ODDB_DECLARE_MEMBERS(OdDbBlockReference);
  OdDbBlockReference() = default;

  OdDbObjectId blockTableRecord() const { return block_; }
  void setBlockTableRecord(OdDbObjectId block);
  OdGePoint3d position() const; // world coordinates
  void setPosition(const OdGePoint3d& position);
  OdGeScale3d scaleFactors() const { return OdGeScale3d(scaleX_, scaleY_, scaleZ_); }
  void setScaleFactors(const OdGeScale3d& scale);
  double rotation() const { return rotation_; } // radians, in the plane of the normal
  void setRotation(double angleRad);
  OdGeVector3d normal() const { return normal_; }
  OdGeVector3d planeNormal() const override { return normal_; }
  void setNormal(const OdGeVector3d& normal); // the position keeps its place in the world

  // Block coordinates to world: position, normal, rotation and scale, without the block's origin.
  OdGeMatrix3d blockTransform() const;
  // eCannotTransform when the matrix shears: no reference can stand so.
  OdResult setBlockTransform(const OdGeMatrix3d& matrix);

  OdDbObjectId appendAttribute(OdDbAttribute* attribute);
  OdDbObjectAttributeIteratorPtr attributeIterator() const;
  OdDbObjectIdArray attributeIds() const; // living ones
  bool hasAttributes() const;             // living ones

  OdResult getGeomExtents(OdGeExtents3d& extents) const override;
  // The box that the contents' box takes when the reference (all its rows and columns) shows it.
  OdGeExtents3d extentsOfContents(const OdGeExtents3d& contents) const;

  // -- For the SDK's own machinery. --
  void ownedObjects(std::vector<OdDbObjectId>& ids) const override;
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void afterClone(const OdDbObject& source, OdDbIdMapping& mapping) override;
  void afterLoad() override { noteShown(); }
  void noteShown() const; // its block is part of others from now on

protected:
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;
  virtual void addInstances(const OdGeExtents3d& contents, OdGeExtents3d& all) const;
  static const drawing::Section& referenceSection(const char* marker);

  OdDbObjectId block_;
  OdGePoint3d position_; // in the plane's frame
  double scaleX_ = 1, scaleY_ = 1, scaleZ_ = 1;
  double rotation_ = 0;
  OdGeVector3d normal_{0, 0, 1};
};
using OdDbBlockReferencePtr = OdSmartPtr<OdDbBlockReference>;

// A reference in rows and columns.
class MVDRAWING_API OdDbMInsertBlock : public OdDbBlockReference {
public:
  ODDB_DECLARE_MEMBERS(OdDbMInsertBlock);
  OdDbMInsertBlock() = default;
  std::int16_t columns() const { return columns_; }
  std::int16_t rows() const { return rows_; }
  double columnSpacing() const { return columnSpacing_; } // along the reference's own x axis, not scaled
  double rowSpacing() const { return rowSpacing_; }
  void setColumns(std::int16_t count);
  void setRows(std::int16_t count);
  void setColumnSpacing(double spacing);
  void setRowSpacing(double spacing);

protected:
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;
  void addInstances(const OdGeExtents3d& contents, OdGeExtents3d& all) const override;

private:
  std::int16_t columns_ = 1;
  std::int16_t rows_ = 1;
  double columnSpacing_ = 0;
  double rowSpacing_ = 0;
};
using OdDbMInsertBlockPtr = OdSmartPtr<OdDbMInsertBlock>;
