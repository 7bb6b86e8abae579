#include "DbLayout.h"
#include "drawing/model/setters.h"

using drawing::field;

MVDRAWING_DEFINE_OBJECT(OdDbPlotSettings, OdDbObject, "PLOTSETTINGS");
MVDRAWING_DEFINE_OBJECT(OdDbLayout, OdDbPlotSettings, "LAYOUT");

const drawing::Description& OdDbPlotSettings::ownDescription() {
  static const drawing::Description description(&OdDbObject::ownDescription(),
                                                {{"AcDbPlotSettings", {field<&OdDbPlotSettings::pageName_>(1)}}});
  return description;
}

const drawing::Description& OdDbLayout::ownDescription() {
  using Self = OdDbLayout;
  static const drawing::Description description(
      &OdDbPlotSettings::ownDescription(),
      {{"AcDbLayout",
        {field<&Self::name_>(1), field<&Self::layoutFlags_>(70), field<&Self::tabOrder_>(71),
         field<&Self::insertionBase_>(12), field<&Self::block_>(330)}}});
  return description;
}

MVDRAWING_SETTER(OdDbLayout, setLayoutName, const OdString&, name_)
MVDRAWING_SETTER(OdDbLayout, setTabOrder, std::int16_t, tabOrder_)
MVDRAWING_SETTER(OdDbLayout, setBlockTableRecordId, OdDbObjectId, block_)
