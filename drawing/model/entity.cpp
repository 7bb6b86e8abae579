#include "DbEntity.h"

#include "DbDatabase.h"
#include "DbSymbolRecords.h"
#include "drawing/model/object_store.h"
#include "drawing/model/symbol_name.h"

#include <cmath>

using drawing::field;
using drawing::getIf;

MVDRAWING_DEFINE_ABSTRACT_CLASS(OdDbEntity, OdDbObject);

const drawing::Description& OdDbEntity::description() const {
  return ownDescription();
}

const drawing::Description& OdDbEntity::ownDescription() {
  using Self = OdDbEntity;
  static const drawing::Description description(
      &OdDbObject::ownDescription(),
      {{"AcDbEntity",
        {field<&Self::layer_>(8).name(OdDb::kLayerTable),
         field<&Self::linetype_>(6).name(OdDb::kLinetypeTable).unlessEmpty(),
         field<&Self::color_>(62).unless(OdCmColor::kByLayer),
         field<&Self::trueColor_>(420).unless(OdCmColor::kNoTrueColor).from(OdDb::kRelease2004),
         field<&Self::transparency_>(440).unless(0).from(OdDb::kRelease2004),
         field<&Self::linetypeScale_>(48).unless(1), field<&Self::invisible_>(60).unless(0),
         field<&Self::lineWeight_>(370).unless(-1)}}});
  return description;
}

OdString OdDbEntity::layer() const {
  const OdString name = drawing::symbolName(layer_);
  return name.isEmpty() ? OdString(L"0") : name;
}

void OdDbEntity::setLayer(OdDbObjectId layer) {
  assertWriteEnabled();
  layer_ = layer;
}

OdResult OdDbEntity::setLayer(const OdString& name) {
  const OdDbDatabase* drawing = database();
  if (drawing == nullptr)
    return eNoDatabase;
  const OdDbObjectId layer = drawing->symbol(OdDb::kLayerTable, name);
  if (layer.isNull())
    return eKeyNotFound;
  setLayer(layer);
  return eOk;
}

void OdDbEntity::setLinetype(OdDbObjectId linetype) {
  assertWriteEnabled();
  linetype_ = linetype;
}

void OdDbEntity::setColor(const OdCmColor& color) {
  assertWriteEnabled();
  color_ = color.index;
  trueColor_ = color.trueColor;
}

void OdDbEntity::setColorIndex(std::int16_t index) {
  setColor({index, OdCmColor::kNoTrueColor});
}

void OdDbEntity::setLineWeight(std::int16_t weight) {
  assertWriteEnabled();
  lineWeight_ = weight;
}

OdResult OdDbEntity::setLinetypeScale(double scale) {
  if (!(scale > 0) || !std::isfinite(scale))
    return eInvalidInput;
  assertWriteEnabled();
  linetypeScale_ = scale;
  return eOk;
}

void OdDbEntity::setInvisible(bool invisible) {
  assertWriteEnabled();
  invisible_ = invisible ? 1 : 0;
}

void OdDbEntity::setPropertiesFrom(const OdDbEntity& other) {
  assertWriteEnabled();
  layer_ = other.layer_;
  linetype_ = other.linetype_;
  linetypeScale_ = other.linetypeScale_;
  trueColor_ = other.trueColor_;
  transparency_ = other.transparency_;
  color_ = other.color_;
  lineWeight_ = other.lineWeight_;
  invisible_ = other.invisible_;
}

void OdDbEntity::setDatabaseDefaults(OdDbDatabase* database) {
  assertWriteEnabled();
  if (database == nullptr)
    return;
  layer_ = database->getCLAYER();
  const OdDbObjectId linetype = database->symbol(OdDb::kLinetypeTable, database->headerText("CELTYPE"));
  const bool byLayer = drawing::symbolName(linetype).iCompare(L"ByLayer") == 0;
  linetype_ = byLayer ? OdDbObjectId() : linetype;
  linetypeScale_ = database->headerReal("CELTSCALE", 1);
  color_ = static_cast<std::int16_t>(database->headerInt("CECOLOR", OdCmColor::kByLayer));
  lineWeight_ = static_cast<std::int16_t>(database->headerInt("CELWEIGHT", -1));
}

OdDbEntityPtr OdDbEntity::transformedAsAnother(const OdGeMatrix3d&) const {
  return {};
}

OdResult OdDbEntity::applyTransform(const OdGeMatrix3d&) {
  return eCannotTransform;
}

OdResult OdDbEntity::getGeomExtents(OdGeExtents3d&) const {
  return eNotApplicable;
}

void OdDbEntity::attachAssociation(OdDbObjectId association) {
  addPersistentReactor(association);
}

bool OdDbEntity::isOnLockedLayer() const {
  const auto* layer = getIf<OdDbLayerTableRecord>(layer_);
  return layer != nullptr && !layer->isErased() && layer->isLocked();
}
