#include "DbSymbolRecords.h"

#include "DbDatabase.h"
#include "drawing/model/setters.h"

using drawing::field;

MVDRAWING_DEFINE_OBJECT(OdDbLayerTableRecord, OdDbSymbolTableRecord, "");
MVDRAWING_DEFINE_OBJECT(OdDbLinetypeTableRecord, OdDbSymbolTableRecord, "");
MVDRAWING_DEFINE_OBJECT(OdDbTextStyleTableRecord, OdDbSymbolTableRecord, "");
MVDRAWING_DEFINE_OBJECT(OdDbDimStyleTableRecord, OdDbSymbolTableRecord, "");
MVDRAWING_DEFINE_OBJECT(OdDbRegAppTableRecord, OdDbSymbolTableRecord, "");
MVDRAWING_DEFINE_OBJECT(OdDbUCSTableRecord, OdDbSymbolTableRecord, "");
MVDRAWING_DEFINE_OBJECT(OdDbViewTableRecord, OdDbSymbolTableRecord, "");
MVDRAWING_DEFINE_OBJECT(OdDbViewportTableRecord, OdDbSymbolTableRecord, "");

const drawing::Description& OdDbLayerTableRecord::ownDescription() {
  using Self = OdDbLayerTableRecord;
  static const drawing::Description description(
      &OdDbSymbolTableRecord::ownDescription(),
      {{"AcDbLayerTableRecord",
        {field<&Self::name_>(2), field<&Self::flags_>(70), field<&Self::color_>(62),
         field<&Self::trueColor_>(420).unless(OdCmColor::kNoTrueColor).from(OdDb::kRelease2004),
         field<&Self::linetype_>(6).name(OdDb::kLinetypeTable), field<&Self::plottable_>(290).unless(1),
         field<&Self::lineWeight_>(370), field<&Self::plotStyle_>(390).unlessEmpty(),
         field<&Self::material_>(347).unlessEmpty().from(OdDb::kRelease2007),
         field<&Self::visualStyle_>(348).unlessEmpty().from(OdDb::kRelease2007)}}});
  return description;
}

void OdDbLayerTableRecord::joinedTable() {
  if (linetype_.isNull())
    linetype_ = database()->symbol(OdDb::kLinetypeTable, L"Continuous");
}

void OdDbLayerTableRecord::setIsOff(bool off) {
  assertWriteEnabled();
  if (off != isOff())
    color_ = static_cast<std::int16_t>(-color_);
}

MVDRAWING_SETTER(OdDbLayerTableRecord, setIsPlottable, bool, plottable_)

OdCmColor OdDbLayerTableRecord::color() const {
  return {static_cast<std::int16_t>(color_ < 0 ? -color_ : color_), trueColor_};
}

void OdDbLayerTableRecord::setColor(const OdCmColor& color) {
  assertWriteEnabled();
  color_ = static_cast<std::int16_t>(isOff() ? -color.index : color.index);
  trueColor_ = color.trueColor;
}

MVDRAWING_SETTER(OdDbLayerTableRecord, setLinetypeObjectId, OdDbObjectId, linetype_)
MVDRAWING_SETTER(OdDbLayerTableRecord, setLineWeight, std::int16_t, lineWeight_)

const drawing::Description& OdDbLinetypeTableRecord::ownDescription() {
  using Self = OdDbLinetypeTableRecord;
  static const drawing::Description description(
      &OdDbSymbolTableRecord::ownDescription(),
      {{"AcDbLinetypeTableRecord",
        {field<&Self::name_>(2), field<&Self::flags_>(70), field<&Self::comments_>(3), field<&Self::alignment_>(72),
         field<&Self::numDashes_>(73), field<&Self::patternLength_>(40)}}});
  return description;
}

MVDRAWING_SETTER(OdDbLinetypeTableRecord, setComments, const OdString&, comments_)

const drawing::Description& OdDbTextStyleTableRecord::ownDescription() {
  using Self = OdDbTextStyleTableRecord;
  static const drawing::Description description(
      &OdDbSymbolTableRecord::ownDescription(),
      {{"AcDbTextStyleTableRecord",
        {field<&Self::name_>(2), field<&Self::flags_>(70), field<&Self::height_>(40), field<&Self::widthFactor_>(41),
         field<&Self::oblique_>(50).angle(), field<&Self::generation_>(71), field<&Self::lastHeight_>(42),
         field<&Self::fontFile_>(3), field<&Self::bigFontFile_>(4)}}});
  return description;
}

MVDRAWING_SETTER(OdDbTextStyleTableRecord, setFileName, const OdString&, fontFile_)
MVDRAWING_SETTER(OdDbTextStyleTableRecord, setTextSize, double, height_)
MVDRAWING_SETTER(OdDbTextStyleTableRecord, setXScale, double, widthFactor_)

const drawing::Description& OdDbDimStyleTableRecord::ownDescription() {
  using Self = OdDbDimStyleTableRecord;
  static const drawing::Description description(
      &OdDbSymbolTableRecord::ownDescription(),
      {{"AcDbDimStyleTableRecord",
        {field<&Self::name_>(2), field<&Self::flags_>(70), field<&Self::scale_>(40).unless(1),
         // What their absence means differs from reader to reader.
         field<&Self::arrowSize_>(41), field<&Self::textHeight_>(140),
         field<&Self::textStyle_>(340).unlessEmpty().orName(OdDb::kTextStyleTable),
         field<&Self::leaderArrow_>(341).unlessEmpty().orName(OdDb::kBlockTable),
         field<&Self::arrow_>(342).unlessEmpty().orName(OdDb::kBlockTable),
         field<&Self::firstArrow_>(343).unlessEmpty().orName(OdDb::kBlockTable),
         field<&Self::secondArrow_>(344).unlessEmpty().orName(OdDb::kBlockTable),
         // Early versions name the arrow blocks.
         field<&Self::arrow_>(5).name(OdDb::kBlockTable).onlyRead(),
         field<&Self::firstArrow_>(6).name(OdDb::kBlockTable).onlyRead(),
         field<&Self::secondArrow_>(7).name(OdDb::kBlockTable).onlyRead()}}});
  return description;
}

const drawing::Description& OdDbRegAppTableRecord::ownDescription() {
  using Self = OdDbRegAppTableRecord;
  static const drawing::Description description(
      &OdDbSymbolTableRecord::ownDescription(),
      {{"AcDbRegAppTableRecord", {field<&Self::name_>(2), field<&Self::flags_>(70)}}});
  return description;
}

const drawing::Description& OdDbUCSTableRecord::ownDescription() {
  using Self = OdDbUCSTableRecord;
  static const drawing::Description description(
      &OdDbSymbolTableRecord::ownDescription(),
      {{"AcDbUCSTableRecord",
        {field<&Self::name_>(2), field<&Self::flags_>(70), field<&Self::origin_>(10), field<&Self::xAxis_>(11),
         field<&Self::yAxis_>(12)}}});
  return description;
}

void OdDbUCSTableRecord::set(const OdGePoint3d& origin, const OdGeVector3d& xAxis, const OdGeVector3d& yAxis) {
  assertWriteEnabled();
  origin_ = origin;
  xAxis_ = xAxis;
  yAxis_ = yAxis;
}

const drawing::Description& OdDbViewTableRecord::ownDescription() {
  using Self = OdDbViewTableRecord;
  static const drawing::Description description(
      &OdDbSymbolTableRecord::ownDescription(),
      {{"AcDbViewTableRecord",
        {field<&Self::name_>(2), field<&Self::flags_>(70), field<&Self::height_>(40), field<&Self::center_>(10),
         field<&Self::width_>(41)}}});
  return description;
}

const drawing::Description& OdDbViewportTableRecord::ownDescription() {
  using Self = OdDbViewportTableRecord;
  static const drawing::Description description(
      &OdDbSymbolTableRecord::ownDescription(),
      {{"AcDbViewportTableRecord",
        {field<&Self::name_>(2), field<&Self::flags_>(70), field<&Self::lowerLeft_>(10), field<&Self::upperRight_>(11),
         field<&Self::center_>(12), field<&Self::height_>(40), field<&Self::aspect_>(41)}}});
  return description;
}
