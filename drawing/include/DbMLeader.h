// Multileaders: leaders with several branches and contents of their own, a text or a block.
#pragma once

#include "DbEntity.h"
#include "Ge/GeVector3d.h"

#include <vector>

// A multileader. Its description is stored as groups of the file, in nested runs whose order has a meaning. Points and
// vectors are world coordinates, lengths drawing units with the scale applied. Values that the file does not state are
// read as 0, empty text or null unless stated otherwise.
class MVDRAWING_API OdDbMLeader : public OdDbEntity {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbMLeader);
  OdDbMLeader() = default;

  // Kind of content; values as in files (group 172).
  enum ContentType : std::int16_t { kNoneContent = 0, kBlockContent = 1, kMTextContent = 2, kToleranceContent = 3 };

  // Kind of its content, and its style.
  ContentType contentType() const;
  OdDbObjectId MLeaderStyle() const;

  // Text content with its formatting codes, its attachment point, direction ((1, 0, 0) when it is not stated) and the
  // normal of the text or block ((0, 0, 1) when it is not stated).
  OdString contents() const;
  OdGePoint3d textLocation() const;
  OdGeVector3d textDirection() const;
  OdGeVector3d normal() const;

  // Sizes, and their factor against those of the style (1 when it is not stated).
  double textHeight() const;
  double arrowSize() const;
  double scale() const;

  // Block content: its definition and position.
  OdDbObjectId blockContentId() const;
  OdGePoint3d blockPosition() const;

  // Points of each leader line from the arrowhead on.
  std::vector<std::vector<OdGePoint3d>> leaderLines() const;
  // All groups of the multileader in file order.
  const drawing::GroupList& groups() const { return groups_; }

  // World extents of lines, text box and block; eNotApplicable when there are none.
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void visitReferences(drawing::ConstReferenceVisitor& visitor) const override;

protected:
  // Accepts matrices that scale all axes alike and do not reflect, as text can be read from one side only.
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;

private:
  drawing::GroupList groups_; // all groups of the subclass
};
using OdDbMLeaderPtr = OdSmartPtr<OdDbMLeader>;
