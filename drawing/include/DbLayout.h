// Layouts: the sheets of a drawing, each with the block that holds its contents.
#pragma once

#include "DbObject.h"
#include "Ge/GePoint2d.h"
#include "Ge/GePoint3d.h"
#include "Ge/GeVector3d.h"

// How a sheet is plotted. What blocks have no part in is carried.
class MVDRAWING_API OdDbPlotSettings : public OdDbObject {
public:
  ODDB_DECLARE_MEMBERS(OdDbPlotSettings);
  OdDbPlotSettings() = default;
  const OdString& plotSettingsName() const { return pageName_; }

protected:
  OdString pageName_;
};

class MVDRAWING_API OdDbLayout : public OdDbPlotSettings {
public:
  ODDB_DECLARE_MEMBERS(OdDbLayout);
  OdDbLayout() = default;
  const OdString& getLayoutName() const { return name_; }
  void setLayoutName(const OdString& name);
  std::int16_t getTabOrder() const { return tabOrder_; }
  void setTabOrder(std::int16_t order);
  OdDbObjectId getBlockTableRecordId() const { return block_; }
  void setBlockTableRecordId(OdDbObjectId block);
  OdGePoint3d insertionBase() const { return insertionBase_; }

private:
  OdString name_;
  std::int16_t layoutFlags_ = 1;
  std::int16_t tabOrder_ = 0;
  OdGePoint3d insertionBase_;
  OdDbObjectId block_;
};
using OdDbLayoutPtr = OdSmartPtr<OdDbLayout>;
