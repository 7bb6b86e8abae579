#include "DbBlockReference.h"

#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "Ge/GeUtil.h"
#include "drawing/blocks/block_graph.h"
#include "drawing/ge/plane_map.h"
#include "drawing/model/object_store.h"
#include "drawing/model/record.h"
#include "drawing/model/setters.h"
#include "drawing/model/visit_references.h"

#include <algorithm>
#include <cmath>

using drawing::field;
using drawing::getIf;

MVDRAWING_DEFINE_OBJECT(OdDbBlockReference, OdDbEntity, "INSERT");
MVDRAWING_DEFINE_OBJECT(OdDbMInsertBlock, OdDbBlockReference, "INSERT");
MVDRAWING_DEFINE_CLASS(OdDbAttributeIterator, OdRxObject, "");

const drawing::SubclassLayout& OdDbBlockReference::referenceSubclass(const char* marker) {
  using Self = OdDbBlockReference;
  const auto make = [](const char* name) {
    return drawing::SubclassLayout{
        name,
        {field<&Self::block_>(2).name(OdDb::kBlockTable), field<&Self::position_>(10),
         field<&Self::scaleX_>(41).unless(1), field<&Self::scaleY_>(42).unless(1), field<&Self::scaleZ_>(43).unless(1),
         field<&Self::rotation_>(50).angle().unless(0), field<&Self::normal_>(210).unless(0, 0, 1)},
        // The attributes themselves show whether attributes follow.
        [](OdDbObject&, const drawing::RawGroup& group, drawing::LoadContext&) { return group.code == 66; },
        [](const OdDbObject& object, drawing::GroupSink& sink) {
          if (!static_cast<const Self&>(object).attributeIds().isEmpty())
            sink.integer(66, 1);
        },
        true};
  };
  static const drawing::SubclassLayout plain = make("AcDbBlockReference");
  static const drawing::SubclassLayout multiple = make("AcDbMInsertBlock");
  return std::string_view(marker) == plain.marker ? plain : multiple;
}

const drawing::Description& OdDbBlockReference::ownDescription() {
  static const drawing::Description description(&OdDbEntity::ownDescription(),
                                                {referenceSubclass("AcDbBlockReference")});
  return description;
}

const drawing::Description& OdDbMInsertBlock::ownDescription() {
  using Self = OdDbMInsertBlock;
  static const drawing::Description description = [] {
    drawing::SubclassLayout subclass = referenceSubclass("AcDbMInsertBlock");
    subclass.alias = "AcDbBlockReference";
    for (const drawing::Field& own :
         {field<&Self::columns_>(70).unless(1), field<&Self::rows_>(71).unless(1),
          field<&Self::columnSpacing_>(44).unless(0), field<&Self::rowSpacing_>(45).unless(0)})
      subclass.fields.push_back(own);
    // Some programs write a single reference's section first, then rows and columns in a section of their own.
    drawing::SubclassLayout second{subclass.marker, subclass.fields, subclass.read};
    second.since = drawing::kNeverWritten;
    return drawing::Description(&OdDbEntity::ownDescription(), {subclass, second});
  }();
  return description;
}

OdDbAttributeIterator::OdDbAttributeIterator(std::vector<OdDbObjectId> ids) {
  std::copy_if(ids.begin(), ids.end(), std::back_inserter(ids_), [](OdDbObjectId id) { return !id.isErased(); });
}

OdDbAttributePtr OdDbAttributeIterator::entity(OdDb::OpenMode mode) const {
  return objectId().safeOpenObject(mode);
}

void OdDbBlockReference::setBlockTableRecord(OdDbObjectId block) {
  assertWriteEnabled();
  const auto* owner = getIf<OdDbBlockTableRecord>(ownerId());
  const bool mayCycle = owner != nullptr && (owner->wasReferenced() || block == owner->objectId());
  if (mayCycle && drawing::reaches(block, owner->objectId()))
    throw OdError(eSelfReference);
  block_ = block;
  if (owner != nullptr)
    recordInDefinition();
}

void OdDbBlockReference::recordInDefinition() const {
  if (auto* block = getIf<OdDbBlockTableRecord>(block_))
    block->recordReference(objectId());
}

OdGePoint3d OdDbBlockReference::position() const {
  return ocsToWcs(position_, normal_);
}

void OdDbBlockReference::setPosition(const OdGePoint3d& position) {
  assertWriteEnabled();
  position_ = wcsToOcs(position, normal_);
}

void OdDbBlockReference::setScaleFactors(const OdGeScale3d& scale) {
  assertWriteEnabled();
  scaleX_ = scale.sx;
  scaleY_ = scale.sy;
  scaleZ_ = scale.sz;
}

void OdDbBlockReference::setRotation(double angleRad) {
  assertWriteEnabled();
  rotation_ = angleRad;
}

void OdDbBlockReference::setNormal(const OdGeVector3d& normal) {
  assertWriteEnabled();
  const OdGePoint3d pointWcs = position();
  normal_ = normal;
  position_ = wcsToOcs(pointWcs, normal_);
}

OdGeMatrix3d OdDbBlockReference::blockTransform() const {
  return OdGeMatrix3d::translation(position().asVector()) * OdGeMatrix3d::planeToWorld(normal_) *
         OdGeMatrix3d::rotation(rotation_, OdGeVector3d::kZAxis) * OdGeMatrix3d::scaling(scaleFactors());
}

namespace {

// Axes that are orthogonal, within the accuracy that their lengths allow.
bool arePerpendicular(const OdGeVector3d& a, const OdGeVector3d& b) {
  return std::fabs(a.dotProduct(b)) <= 1e-9 * a.length() * b.length();
}

} // namespace

OdResult OdDbBlockReference::setBlockTransform(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  OdGePoint3d origin;
  OdGeVector3d axis[3];
  matrix.getCoordSystem(origin, axis[0], axis[1], axis[2]);
  if (!arePerpendicular(axis[0], axis[1]) || !arePerpendicular(axis[1], axis[2]) || !arePerpendicular(axis[0], axis[2]))
    return eCannotTransform;
  double sign[3] = {scaleX_ < 0 ? -1.0 : 1.0, scaleY_ < 0 ? -1.0 : 1.0, scaleZ_ < 0 ? -1.0 : 1.0};
  // Signs stay where they were; a mirror more or less is taken by the x axis.
  if (axis[0].crossProduct(axis[1]).dotProduct(axis[2]) * sign[0] * sign[1] * sign[2] < 0)
    sign[0] = -sign[0];
  const double length[3] = {axis[0].length(), axis[1].length(), axis[2].length()};
  if (!(length[0] > 0) || !(length[1] > 0) || !(length[2] > 0))
    return eCannotTransform;
  const OdGeVector3d normal = axis[2] * (sign[2] / length[2]);
  const OdGeVector3d x = OdGeMatrix3d::worldToPlane(normal) * (axis[0] * (sign[0] / length[0]));
  normal_ = normal;
  rotation_ = normalizeAngle(std::atan2(x.y, x.x));
  scaleX_ = sign[0] * length[0];
  scaleY_ = sign[1] * length[1];
  scaleZ_ = sign[2] * length[2];
  position_ = wcsToOcs(origin, normal_);
  return eOk;
}

OdResult OdDbBlockReference::applyTransform(const OdGeMatrix3d& matrix) {
  if (drawing::isTranslation(matrix)) { // scales and angles keep their bits
    position_ = wcsToOcs(matrix * position(), normal_);
    return transformSubEntities(matrix);
  }
  const OdDbBlockReference before(*this);
  // An axis of length 0 (flat drawings of some programs have such a z axis) has a direction nevertheless.
  double* const scales[3] = {&scaleX_, &scaleY_, &scaleZ_};
  bool flat[3];
  for (int i = 0; i < 3; ++i) {
    flat[i] = *scales[i] == 0;
    *scales[i] = flat[i] ? 1 : *scales[i];
  }
  OdResult result = setBlockTransform(matrix * blockTransform());
  for (int i = 0; i < 3; ++i)
    *scales[i] = flat[i] ? 0 : *scales[i];
  if (result == eOk)
    result = transformSubEntities(matrix);
  if (result != eOk)
    *this = before;
  return result;
}

OdDbObjectId OdDbBlockReference::appendAttribute(OdDbAttribute* attribute) {
  return appendSubEntity(*this, attribute);
}

OdDbObjectAttributeIteratorPtr OdDbBlockReference::attributeIterator() const {
  return OdDbObjectAttributeIteratorPtr(new OdDbAttributeIterator(subEntities()));
}

OdDbObjectIdArray OdDbBlockReference::attributeIds() const {
  OdDbObjectIdArray ids;
  for (OdDbObjectId id : subEntities()) {
    if (!id.isErased())
      ids.append(id);
  }
  return ids;
}

bool OdDbBlockReference::hasAttributes() const {
  const auto& parts = subEntities();
  return std::any_of(parts.begin(), parts.end(), [](OdDbObjectId id) { return !id.isErased(); });
}

OdGeExtents3d OdDbBlockReference::extentsOfContents(const OdGeExtents3d& contents) const {
  OdGeExtents3d moved = contents;
  if (const auto* block = getIf<OdDbBlockTableRecord>(block_))
    moved.transformBy(OdGeMatrix3d::translation(OdGePoint3d() - block->origin()));
  OdGeExtents3d all;
  addInstances(moved, all);
  return all;
}

void OdDbBlockReference::addInstances(const OdGeExtents3d& contents, OdGeExtents3d& all) const {
  OdGeExtents3d placed = contents;
  placed.transformBy(blockTransform());
  all.addExt(placed);
}

OdResult OdDbBlockReference::getGeomExtents(OdGeExtents3d& extents) const {
  const auto* block = getIf<OdDbBlockTableRecord>(block_);
  OdGeExtents3d contents;
  if (block == nullptr)
    return eNullObjectId;
  if (const OdResult result = block->getGeomExtents(contents); result != eOk)
    return result;
  extents.addExt(extentsOfContents(contents));
  return eOk;
}

void OdDbBlockReference::ownedObjects(std::vector<OdDbObjectId>& ids) const {
  OdDbEntity::ownedObjects(ids);
  listSubEntities(ids);
}

MVDRAWING_VISIT_REFERENCES(OdDbBlockReference, OdDbEntity, visitSubEntities(visitor);)

void OdDbBlockReference::afterClone(const OdDbObject& source, OdDbIdMapping& mapping) {
  recordInDefinition();
  OdDbEntity::afterClone(source, mapping);
  dropLostSubEntities();
}

OdResult OdDbMInsertBlock::setColumns(std::int16_t count) {
  if (count < 1)
    return eInvalidInput;
  assertWriteEnabled();
  columns_ = count;
  return eOk;
}

OdResult OdDbMInsertBlock::setRows(std::int16_t count) {
  if (count < 1)
    return eInvalidInput;
  assertWriteEnabled();
  rows_ = count;
  return eOk;
}

MVDRAWING_SETTER(OdDbMInsertBlock, setColumnSpacing, double, columnSpacing_)
MVDRAWING_SETTER(OdDbMInsertBlock, setRowSpacing, double, rowSpacing_)

OdResult OdDbMInsertBlock::applyTransform(const OdGeMatrix3d& matrix) {
  const double before[2] = {scaleX_, scaleY_};
  if (const OdResult result = OdDbBlockReference::applyTransform(matrix); result != eOk)
    return result;
  // Spacings are lengths along the reference's own axes: they grow with the axes, and turn round with them.
  if (scaleX_ != before[0])
    columnSpacing_ *= scaleX_ / before[0];
  if (scaleY_ != before[1])
    rowSpacing_ *= scaleY_ / before[1];
  return eOk;
}

void OdDbMInsertBlock::addInstances(const OdGeExtents3d& contents, OdGeExtents3d& all) const {
  OdGeExtents3d first;
  OdDbBlockReference::addInstances(contents, first);
  const OdGeMatrix3d axes =
      OdGeMatrix3d::planeToWorld(normal()) * OdGeMatrix3d::rotation(rotation(), OdGeVector3d::kZAxis);
  const OdGeVector3d alongRow = axes * OdGeVector3d(columnSpacing_ * std::max(columns_ - 1, 0), 0, 0);
  const OdGeVector3d upward = axes * OdGeVector3d(0, rowSpacing_ * std::max(rows_ - 1, 0), 0);
  for (const OdGeVector3d& shift : {OdGeVector3d(), alongRow, upward, alongRow + upward}) {
    OdGeExtents3d instance = first;
    instance.transformBy(OdGeMatrix3d::translation(shift));
    all.addExt(instance);
  }
}
