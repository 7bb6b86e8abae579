#include "DbImageObjects.h"

#include "drawing/model/setters.h"

using drawing::field;

MVDRAWING_DEFINE_OBJECT(OdDbRasterImageDef, OdDbObject, "IMAGEDEF");
MVDRAWING_DEFINE_OBJECT(OdDbRasterImageDefReactor, OdDbObject, "IMAGEDEF_REACTOR");
MVDRAWING_DEFINE_OBJECT(OdDbRasterVariables, OdDbObject, "RASTERVARIABLES");
MVDRAWING_DEFINE_OBJECT(OdDbWipeoutVariables, OdDbObject, "WIPEOUTVARIABLES");
MVDRAWING_DEFINE_ABSTRACT_CLASS(OdDbUnderlayDefinition, OdDbObject);
MVDRAWING_DEFINE_OBJECT(OdDbPdfDefinition, OdDbUnderlayDefinition, "PDFDEFINITION");
MVDRAWING_DEFINE_OBJECT(OdDbDwfDefinition, OdDbUnderlayDefinition, "DWFDEFINITION");
MVDRAWING_DEFINE_OBJECT(OdDbDgnDefinition, OdDbUnderlayDefinition, "DGNDEFINITION");
MVDRAWING_DEFINE_OBJECT(OdDbPlaceHolder, OdDbObject, "ACDBPLACEHOLDER");

const drawing::Description& OdDbRasterImageDef::ownDescription() {
  using Self = OdDbRasterImageDef;
  static const drawing::Description description(
      &OdDbObject::ownDescription(),
      {{"AcDbRasterImageDef",
        {field<&Self::version_>(90), field<&Self::file_>(1), field<&Self::size_>(10), field<&Self::pixelSize_>(11),
         field<&Self::loaded_>(280), field<&Self::units_>(281)}}});
  return description;
}

const drawing::Description& OdDbRasterImageDefReactor::ownDescription() {
  using Self = OdDbRasterImageDefReactor;
  static const drawing::Description description(
      &OdDbObject::ownDescription(),
      {{"AcDbRasterImageDefReactor",
        {field<&Self::version_>(90), field<&Self::image_>(330).ref(OdDb::kSoftPointerRef)}}});
  return description;
}

const drawing::Description& OdDbRasterVariables::ownDescription() {
  using Self = OdDbRasterVariables;
  static const drawing::Description description(
      &OdDbObject::ownDescription(),
      {{"AcDbRasterVariables",
        {field<&Self::version_>(90), field<&Self::frame_>(70), field<&Self::quality_>(71), field<&Self::units_>(72)}}});
  return description;
}

const drawing::Description& OdDbWipeoutVariables::ownDescription() {
  static const drawing::Description description(&OdDbObject::ownDescription(),
                                                {{"AcDbWipeoutVariables", {field<&OdDbWipeoutVariables::frame_>(70)}}});
  return description;
}

const drawing::Description& OdDbUnderlayDefinition::definitionDescription() {
  using Self = OdDbUnderlayDefinition;
  static const drawing::Description description(
      &OdDbObject::ownDescription(), {{"AcDbUnderlayDefinition", {field<&Self::file_>(1), field<&Self::item_>(2)}}});
  return description;
}

const drawing::Description& OdDbPdfDefinition::ownDescription() {
  return definitionDescription();
}
const drawing::Description& OdDbDwfDefinition::ownDescription() {
  return definitionDescription();
}
const drawing::Description& OdDbDgnDefinition::ownDescription() {
  return definitionDescription();
}
const drawing::Description& OdDbPlaceHolder::ownDescription() {
  return OdDbObject::ownDescription();
}

MVDRAWING_SETTER(OdDbRasterImageDef, setSourceFileName, const OdString&, file_)
MVDRAWING_SETTER(OdDbUnderlayDefinition, setSourceFileName, const OdString&, file_)

void OdDbRasterVariables::setImageFrame(bool isShown) {
  assertWriteEnabled();
  frame_ = isShown ? 1 : 0;
}

void OdDbWipeoutVariables::setShowFrame(bool isShown) {
  assertWriteEnabled();
  frame_ = isShown ? 1 : 0;
}
