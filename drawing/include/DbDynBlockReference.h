// Dynamic blocks: definitions whose references take different shapes.
//
// A reference that shows another shape than its definition's own refers to an anonymous block with that shape. Files
// tell in two places which definition the shape belongs to: in the extended data of the anonymous block, and in the
// extension dictionary of the reference. These classes look there; they change nothing.
#pragma once

#include "DbBlockReference.h"
#include "DbBlockTable.h"

// A block reference seen as a reference to a dynamic block. Holds ids, no open object.
class MVDRAWING_API OdDbDynBlockReference {
public:
  // Anything that is no living block reference is simply not dynamic.
  explicit OdDbDynBlockReference(OdDbObjectId reference);
  explicit OdDbDynBlockReference(const OdDbBlockReference* reference);

  // Whether it shows a dynamic definition or one of its shapes.
  bool isDynamicBlock() const { return !definition_.isNull(); }
  OdDbObjectId blockId() const { return reference_; } // null for a reference that is in no drawing
  // The dynamic definition; null when the block is not dynamic.
  OdDbObjectId dynamicBlockTableRecord() const { return definition_; }
  // The anonymous block with the shape that is shown; null when the definition itself is.
  OdDbObjectId anonymousBlockTableRecord() const { return shape_; }

private:
  void look(const OdDbBlockReference& reference);
  OdDbObjectId reference_;
  OdDbObjectId definition_;
  OdDbObjectId shape_;
};

// A block definition seen as a dynamic one, or as a shape of one.
class MVDRAWING_API OdDbDynBlockTableRecord {
public:
  explicit OdDbDynBlockTableRecord(OdDbObjectId block);

  bool isDynamicBlock() const { return isDynamic_; } // shapes are not
  OdDbObjectId blockId() const { return block_; }
  // The definition itself when it is dynamic, that which it is a shape of, or null.
  OdDbObjectId dynamicBlockTableRecord() const { return definition_; }
  // The name that people know a dynamic definition or a shape by; empty for all other blocks.
  OdString trueName() const;
  // The shapes of a dynamic definition in table order, used or not.
  OdDbObjectIdArray getAnonymousBlockIds() const;

private:
  OdDbObjectId block_;
  OdDbObjectId definition_;
  bool isDynamic_ = false;
};
