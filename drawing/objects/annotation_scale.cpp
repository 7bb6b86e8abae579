#include "DbAnnotationScale.h"

#include "DbDatabase.h"
#include "DbDictionary.h"
#include "drawing/model/object_store.h"
#include "drawing/model/setters.h"

#include <cmath>

using drawing::getIf;

MVDRAWING_DEFINE_OBJECT(OdDbScale, OdDbObject, "SCALE");
MVDRAWING_DEFINE_CLASS(OdDbAnnotationScale, OdRxObject, "");

const drawing::Description& OdDbScale::ownDescription() {
  using drawing::field;
  static const drawing::Description description(
      &OdDbObject::ownDescription(),
      {{"AcDbScale",
        {field<&OdDbScale::flags_>(70), field<&OdDbScale::name_>(300), field<&OdDbScale::paperUnits_>(140),
         field<&OdDbScale::drawingUnits_>(141), field<&OdDbScale::unitScale_>(290)}}});
  return description;
}

MVDRAWING_SETTER(OdDbScale, setScaleName, const OdString&, name_)

void OdDbScale::setUnits(double paper, double drawing) {
  assertWriteEnabled();
  paperUnits_ = paper;
  drawingUnits_ = drawing;
  unitScale_ = paper == drawing;
}

OdDbAnnotationScale::OdDbAnnotationScale(const OdDbScale& entry)
    : name_(entry.scaleName()), paperUnits_(entry.paperUnits()), drawingUnits_(entry.drawingUnits()) {}

OdDbAnnotationScale::OdDbAnnotationScale(const OdString& name, double paperUnits, double drawingUnits)
    : name_(name), paperUnits_(paperUnits), drawingUnits_(drawingUnits) {}

OdResult OdDbAnnotationScale::getScale(double& factor) const {
  const double quotient = paperUnits_ / drawingUnits_;
  if (!std::isfinite(quotient))
    return eDegenerateGeometry;
  factor = quotient;
  return eOk;
}

namespace {

const OdDbScale* scaleOf(const OdDbDictionary* root, const OdString& name) {
  const auto* scales = root == nullptr ? nullptr : getIf<OdDbDictionary>(root->getAt(L"ACAD_SCALELIST"));
  if (scales == nullptr || name.isEmpty())
    return nullptr;
  for (const OdDbDictionary::Entry& entry : scales->entries()) {
    const auto* scale = getIf<OdDbScale>(entry.id);
    if (scale != nullptr && !scale->isErased() && scale->scaleName().iCompare(name) == 0)
      return scale;
  }
  return nullptr;
}

} // namespace

OdDbAnnotationScalePtr OdDbDatabase::cannoscale() const {
  const OdDbScale* scale = scaleOf(getIf<OdDbDictionary>(namedObjects_), dictionaryVar(L"CANNOSCALE"));
  return scale == nullptr ? OdDbAnnotationScalePtr() : OdDbAnnotationScalePtr(new OdDbAnnotationScale(*scale));
}

OdResult OdDbDatabase::setCannoscale(const OdString& scaleName) {
  if (scaleOf(getIf<OdDbDictionary>(namedObjects_), scaleName) == nullptr)
    return eKeyNotFound;
  setDictionaryVar(L"CANNOSCALE", scaleName);
  return eOk;
}
