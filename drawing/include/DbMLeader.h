// Leaders with several branches and a note that is part of them: a text or a block.
#pragma once

#include "DbEntity.h"
#include "Ge/GeVector3d.h"

#include <vector>

// The description of its parts is kept as files hold it: nested runs of groups whose order carries the meaning.
class MVDRAWING_API OdDbMLeader : public OdDbEntity {
public:
  ODDB_DECLARE_MEMBERS(OdDbMLeader);
  OdDbMLeader() = default;

  enum ContentType : std::int16_t { kNoneContent = 0, kBlockContent = 1, kMTextContent = 2, kToleranceContent = 3 };

  ContentType contentType() const;
  OdDbObjectId MLeaderStyle() const; // null when it has none
  OdString contents() const;         // of the text, with its codes
  OdGePoint3d textLocation() const;  // world coordinates
  OdGeVector3d textDirection() const;
  OdGeVector3d normal() const;
  double textHeight() const;
  double arrowSize() const;
  double scale() const;                // of all sizes against those of the style
  OdDbObjectId blockContentId() const; // null unless the content is a block
  OdGePoint3d blockPosition() const;   // world coordinates
  // The places along each line, from the arrow on; world coordinates.
  std::vector<std::vector<OdGePoint3d>> leaderLines() const;
  const drawing::GroupList& groups() const { return groups_; }

  OdResult getGeomExtents(OdGeExtents3d& extents) const override;
  void visitReferences(drawing::ReferenceVisitor& visitor) override;

protected:
  // Takes matrices that keep shapes and mirror nothing: sizes grow along, and a text is readable from one side only.
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;

private:
  drawing::GroupList groups_; // all of the section
};
using OdDbMLeaderPtr = OdSmartPtr<OdDbMLeader>;
