// Block references (inserts) and their attributes.
#pragma once

#include "DbAttribute.h"
#include "Ge/GeScale3d.h"
#include "drawing/detail/sequence_owner.h"

// Iterates the attributes of a reference in order of addition; those that are erased when it is created are skipped.
class MVDRAWING_API OdDbAttributeIterator : public OdRxObject {
public:
  MVDRAWING_DECLARE_CLASS(OdDbAttributeIterator);
  // Position: step returns false at the end. The id is null at the end, and the pointer as well if the attribute does
  // not open.
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

// A reference to a block definition. Accepts every matrix that leaves its axes perpendicular and that its attributes
// accept.
class MVDRAWING_API OdDbBlockReference : public OdDbEntity, public OdDbSequenceOwner {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbBlockReference);
  OdDbBlockReference() = default;

  // The definition. Setting throws OdError(eSelfReference) if the block of the reference would contain itself; the id
  // is not checked otherwise, and attributes stay.
  OdDbObjectId blockTableRecord() const { return block_; }
  void setBlockTableRecord(OdDbObjectId block);

  // Insertion point in the coordinates of its block (world coordinates for model space), scale along its own axes
  // (negative: reflected), rotation in radians in the plane of the normal against its OCS x axis, normal (unit length).
  // Setting the normal keeps the insertion point. Attributes do not follow these setters; transformBy moves them.
  OdGePoint3d position() const;
  void setPosition(const OdGePoint3d& position);
  OdGeScale3d scaleFactors() const { return OdGeScale3d(scaleX_, scaleY_, scaleZ_); }
  void setScaleFactors(const OdGeScale3d& scale);
  double rotation() const { return rotation_; }
  void setRotation(double angleRad);
  OdGeVector3d normal() const { return normal_; }
  OdGeVector3d planeNormal() const override { return normal_; }
  void setNormal(const OdGeVector3d& normal);

  // Matrix from block coordinates, with the base point at the origin, to the coordinates of the containing block:
  // scale, rotation, normal and position.
  OdGeMatrix3d blockTransform() const;
  // Sets these from a matrix. Returns eCannotTransform, and changes nothing, if its axes are not perpendicular or one
  // has no length.
  OdResult setBlockTransform(const OdGeMatrix3d& matrix);

  // Makes a free attribute resident and lists it last; the drawing owns it. Returns its id. Throws OdError:
  // eNullObjectPtr for null, eNotInDatabase for a free reference. Attributes that are erased are not listed below.
  OdDbObjectId appendAttribute(OdDbAttribute* attribute);
  OdDbObjectAttributeIteratorPtr attributeIterator() const;
  OdDbObjectIdArray attributeIds() const;
  bool hasAttributes() const;

  // Extents of the definition as the reference displays it, attributes excluded. eNullObjectId for a reference whose
  // definition does not exist, else the result of the definition.
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;
  // Extents of a box in block coordinates as the reference, with all its rows and columns, displays it.
  OdGeExtents3d extentsOfContents(const OdGeExtents3d& contents) const;

  // -- SDK internals. --
  void ownedObjects(std::vector<OdDbObjectId>& ids) const override;
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void visitReferences(drawing::ConstReferenceVisitor& visitor) const override;
  void afterClone(const OdDbObject& source, OdDbIdMapping& mapping) override;
  void afterLoad() override { recordInDefinition(); }
  void recordInDefinition() const; // records the reference in its definition

protected:
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;
  // Adds the extents of a box in block coordinates, moved by the base point, in each row and column.
  virtual void addInstances(const OdGeExtents3d& contents, OdGeExtents3d& all) const;
  // Description of the groups of a reference under that subclass marker.
  static const drawing::SubclassLayout& referenceSubclass(const char* marker);

  OdDbObjectId block_;
  OdGePoint3d position_; // OCS
  double scaleX_ = 1, scaleY_ = 1, scaleZ_ = 1;
  double rotation_ = 0;
  OdGeVector3d normal_{0, 0, 1};
};
using OdDbBlockReferencePtr = OdSmartPtr<OdDbBlockReference>;

// An array of references in rows and columns.
class MVDRAWING_API OdDbMInsertBlock : public OdDbBlockReference {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbMInsertBlock);
  OdDbMInsertBlock() = default;
  // Numbers of columns and rows, and their distances in drawing units along the rotated x and y axes of the reference,
  // without its scale. Files may state numbers below 1, which count as 1; setting one returns eInvalidInput and changes
  // nothing.
  std::int16_t columns() const { return columns_; }
  std::int16_t rows() const { return rows_; }
  double columnSpacing() const { return columnSpacing_; }
  double rowSpacing() const { return rowSpacing_; }
  OdResult setColumns(std::int16_t count);
  OdResult setRows(std::int16_t count);
  void setColumnSpacing(double spacing);
  void setRowSpacing(double spacing);

protected:
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;
  void addInstances(const OdGeExtents3d& contents, OdGeExtents3d& all) const override;

private:
  std::int16_t columns_ = 1;
  std::int16_t rows_ = 1;
  double columnSpacing_ = 0;
  double rowSpacing_ = 0;
};
using OdDbMInsertBlockPtr = OdSmartPtr<OdDbMInsertBlock>;
