// OLE objects: embedded documents of other programs. Their bytes are preserved byte for byte.
#pragma once

#include "DbEntity.h"

// An OLE 1 object. Accepts only the identity matrix: the bytes contain the position a second time.
class MVDRAWING_API OdDbOleFrame : public OdDbEntity {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbOleFrame);
  OdDbOleFrame() = default;
  // Its bytes, and all groups in file order.
  std::string getOleObject() const;
  const drawing::GroupList& groups() const { return groups_; }

protected:
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;

  drawing::GroupList groups_; // all groups of the subclass
};

// An OLE 2 object.
class MVDRAWING_API OdDbOle2Frame : public OdDbOleFrame {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbOle2Frame);
  OdDbOle2Frame() = default;
  // Name of its kind for people, and corners in world coordinates.
  OdString getUserType() const;
  OdGePoint3d upperLeft() const;
  OdGePoint3d lowerRight() const;

  OdResult getGeomExtents(OdGeExtents3d& extents) const override;
};
using OdDbOle2FramePtr = OdSmartPtr<OdDbOle2Frame>;
