// Dynamic blocks: definitions whose references have different representations.
//
// A reference whose representation differs from its definition refers to an anonymous block (*U). Files state in two
// places to which definition that block belongs: in its extended data, and in the extension dictionary of the
// reference. These classes evaluate both once, when they are constructed; they change nothing.
#pragma once

#include "DbBlockReference.h"
#include "DbBlockTable.h"

// A block reference as a reference to a dynamic block. Contains ids only, no open object.
class MVDRAWING_API OdDbDynBlockReference {
public:
  // Anything but a block reference that is not erased is not dynamic.
  explicit OdDbDynBlockReference(OdDbObjectId reference);
  explicit OdDbDynBlockReference(const OdDbBlockReference* reference);

  // Whether it refers to a dynamic definition or to one of its representations.
  bool isDynamicBlock() const { return !definition_.isNull(); }
  OdDbObjectId blockId() const { return reference_; } // the reference; null for a free one
  // The dynamic definition; null if the block is not dynamic.
  OdDbObjectId dynamicBlockTableRecord() const { return definition_; }
  // The anonymous block that the reference refers to; null if it refers to the definition itself.
  OdDbObjectId anonymousBlockTableRecord() const { return representation_; }

private:
  void resolve(const OdDbBlockReference& reference);
  OdDbObjectId reference_;
  OdDbObjectId definition_;
  OdDbObjectId representation_;
};

// A block definition as a dynamic one, or as a representation of one.
class MVDRAWING_API OdDbDynBlockTableRecord {
public:
  // Anything but a block that is not erased is not dynamic.
  explicit OdDbDynBlockTableRecord(OdDbObjectId block);

  bool isDynamicBlock() const { return isDynamic_; } // false for representations
  OdDbObjectId blockId() const { return block_; }    // the block
  // The block itself if it is dynamic, the definition that it represents, or null.
  OdDbObjectId dynamicBlockTableRecord() const { return definition_; }
  // Name of a dynamic definition or of the definition of a representation for people; empty for all other blocks.
  OdString trueName() const;
  // Representations of a dynamic definition in table order, used or not.
  OdDbObjectIdArray getAnonymousBlockIds() const;

private:
  OdDbObjectId block_;
  OdDbObjectId definition_;
  bool isDynamic_ = false;
};
