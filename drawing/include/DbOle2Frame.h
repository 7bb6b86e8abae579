// Documents of other programs. Their bytes are kept to the letter.
#pragma once

#include "DbEntity.h"

class MVDRAWING_API OdDbOleFrame : public OdDbEntity {
public:
  ODDB_DECLARE_MEMBERS(OdDbOleFrame);
  OdDbOleFrame() = default;
  std::string getOleObject() const; // its bytes
  const drawing::GroupList& groups() const { return groups_; }

protected:
  // The bytes hold the place a second time, in the other program's form: nothing but the unit matrix is taken.
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;

  drawing::GroupList groups_; // all of the section
};

class MVDRAWING_API OdDbOle2Frame : public OdDbOleFrame {
public:
  ODDB_DECLARE_MEMBERS(OdDbOle2Frame);
  OdDbOle2Frame() = default;
  OdString getUserType() const;  // what the other program calls it
  OdGePoint3d upperLeft() const; // world coordinates
  OdGePoint3d lowerRight() const;
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;
};
using OdDbOle2FramePtr = OdSmartPtr<OdDbOle2Frame>;
