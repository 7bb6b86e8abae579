#include "DbLayout.h"
#include "drawing/model/setters.h"

using drawing::field;

ODDB_DEFINE_MEMBERS(OdDbPlotSettings, OdDbObject, "PLOTSETTINGS");
ODDB_DEFINE_MEMBERS(OdDbLayout, OdDbPlotSettings, "LAYOUT");

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

MVDB_SETTER(OdDbLayout, setLayoutName, const OdString&, name_)
MVDB_SETTER(OdDbLayout, setTabOrder, std::int16_t, tabOrder_)
MVDB_SETTER(OdDbLayout, setBlockTableRecordId, OdDbObjectId, block_)
