// Layouts and their plot settings.
#pragma once

#include "DbObject.h"
#include "Ge/GePoint2d.h"
#include "Ge/GePoint3d.h"
#include "Ge/GeVector3d.h"

// Plot settings of a layout. Apart from the name they are preserved as groups of the file.
class MVDRAWING_API OdDbPlotSettings : public OdDbObject {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbPlotSettings);
  OdDbPlotSettings() = default;
  const OdString& plotSettingsName() const { return pageName_; } // name of the page setup, often empty

protected:
  OdString pageName_;
};

// A layout: model space, or a paper space layout, with the block that contains its entities.
class MVDRAWING_API OdDbLayout : public OdDbPlotSettings {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbLayout);
  OdDbLayout() = default;
  // Name of the tab; position of the tab (model space has 0); block; insertion base point in coordinates of the layout.
  // Values are not checked, and setters change the layout only: the dictionary of layouts and the block refer to it as
  // well.
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
