#include "DbOle2Frame.h"

#include "drawing/records/raw_groups.h"

MVDRAWING_DEFINE_OBJECT(OdDbOleFrame, OdDbEntity, "OLEFRAME");
MVDRAWING_DEFINE_OBJECT(OdDbOle2Frame, OdDbOleFrame, "OLE2FRAME");

const drawing::Description& OdDbOleFrame::ownDescription() {
  static const drawing::Description description(&OdDbEntity::ownDescription(),
                                                {drawing::rawSubclass<&OdDbOleFrame::groups_>("AcDbOleFrame")});
  return description;
}

const drawing::Description& OdDbOle2Frame::ownDescription() {
  static const drawing::Description description(&OdDbEntity::ownDescription(),
                                                {drawing::rawSubclass<&OdDbOle2Frame::groups_>("AcDbOle2Frame")});
  return description;
}

std::string OdDbOleFrame::getOleObject() const {
  std::string bytes;
  for (std::size_t i = groups_.find(310); i < groups_.size(); i = groups_.find(310, i + 1))
    bytes += groups_.textOf(groups_[i]);
  return bytes;
}

OdResult OdDbOleFrame::applyTransform(const OdGeMatrix3d& matrix) {
  return drawing::isIdentity(matrix) ? eOk : eCannotTransform;
}

OdString OdDbOle2Frame::getUserType() const {
  return drawing::rawText(groups_, 3);
}
OdGePoint3d OdDbOle2Frame::upperLeft() const {
  return drawing::rawPoint(groups_, 10);
}
OdGePoint3d OdDbOle2Frame::lowerRight() const {
  return drawing::rawPoint(groups_, 11);
}

OdResult OdDbOle2Frame::getGeomExtents(OdGeExtents3d& extents) const {
  extents.addPoint(upperLeft());
  extents.addPoint(lowerRight());
  return eOk;
}
