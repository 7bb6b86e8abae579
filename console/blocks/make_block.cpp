#include "console/blocks/make_block.h"
#include "console/blocks/block_objects.h"
#include "console/messages/catalog/blocks.h"
#include "console/prompts/selection.h"

#include "DbAnnotationScale.h"
#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "blockcommon/attributes.h"
#include "blockcommon/creation.h"
#include "blockcommon/properties.h"
#include "blockcommon/transforms.h"

namespace console {
namespace {

// The coordinate system of the block in the world: the axes of the UCS at the base point.
OdGeMatrix3d blockFrame(Session& session, const OdGePoint3d& basePointUcs) {
  OdGeMatrix3d ucs;
  OdGePoint3d baseWcs;
  if (mvsi::mvsidbUcsMatrix(ucs, &session.database()) != RTNORM ||
      mvsi::mvsidbUcs2Wcs(basePointUcs, baseWcs, false) != RTNORM)
    throw OdError(eInvalidInput);
  return blockUtils::createEcsMatrixByMatrix(baseWcs, ucs);
}

// A block's contents are stored against its base point already; an origin left from before would move them.
void clearOrigin(OdDbObjectId block) {
  const OdDbBlockTableRecordPtr record = block.safeOpenObject(OdDb::kForWrite);
  record->setOrigin(OdGePoint3d::kOrigin);
}

void setProperties(const BlockRequest& request, OdDbObjectId block) {
  const auto demand = [&](bool done, const wchar_t* option) {
    if (!done)
      refuse(msg::kPropertyFailed, {request.name, option});
  };
  demand(blockUtils::setUniformlyScaled(block, request.scalesUniformly), L"--uniform");
  demand(blockUtils::setExplodable(block, request.explodable), L"--no-explode");
  if (request.units)
    demand(blockUtils::setBtrInsertUnit(block, *request.units), L"--units");
  if (request.annotative || request.matchOrientation || request.redefine)
    demand(blockUtils::SetAnnotative(block, request.annotative, request.matchOrientation), L"--annotative");
}

// The contents of an annotative block shrink by the annotation scale; its reference makes up for it.
double referenceScale(const BlockRequest& request, OdDbDatabase& database) {
  const OdDbAnnotationScalePtr scale = request.annotative ? database.cannoscale() : OdDbAnnotationScalePtr();
  double factor = 1;
  if (scale.isNull() || scale->getScale(factor) != eOk || factor <= 0)
    return 1;
  return 1 / factor;
}

// A reference that shows the objects exactly where they were.
OdDbObjectId placeReference(OdDbDatabase& database, const BlockRequest& request, OdDbObjectId block,
                            const OdGeMatrix3d& frame) {
  const OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
  reference->setDatabaseDefaults(&database);
  reference->setBlockTableRecord(block);
  if (reference->setBlockTransform(frame * OdGeMatrix3d::scaling(referenceScale(request, database))) != eOk)
    refuse(msg::kReferenceFailed, {request.name});
  const OdDbBlockTableRecordPtr space = request.space.safeOpenObject(OdDb::kForWrite);
  const OdDbObjectId id = space->appendEntity(reference.get());
  blockUtils::processBlockTbRefAsDefaultAttri(reference.get());
  return id;
}

void eraseAll(const OdDbObjectIdArray& ids) {
  for (const OdDbObjectId id : ids)
    id.safeOpenObject(OdDb::kForWrite)->erase();
}

} // namespace

void reportBlockMade(Session& session, const BlockRequest& request, const BlockMade& made) {
  session.result(made.redefined ? msg::kBlockRedefined : msg::kBlockMade, {request.name, count(made.objects)});
  reportSourceObjects(session, request.sourceObjects);
}

void reportSourceObjects(Session& session, SourceObjects sourceObjects) {
  const MessageText texts[] = {msg::kKept, msg::kConverted, msg::kDeleted};
  session.print(texts[static_cast<std::size_t>(sourceObjects)]);
}

BlockMade makeBlock(Session& session, const BlockRequest& request) {
  OdDbDatabase& database = session.database();
  checkBlockName(session, request.name);
  const OdDbObjectId before = definitionOf(session, request.name);
  if (!before.isNull() && !request.redefine)
    refuse(msg::kBlockExists, {request.name, count(referencesTo(before))});

  BlockMade made;
  made.redefined = !before.isNull();
  const OdGeMatrix3d frame = blockFrame(session, request.basePointUcs);
  OdDbObjectIdArray taken = request.ids;
  bool created = false;
  made.block = blockUtils::create(&database, request.name, taken, request.redefine, created, request.basePointUcs,
                                  request.description);
  if (!created || made.block.isNull())
    refuse(msg::kBlockFailed, {request.name});
  if (taken.isEmpty() && !request.ids.isEmpty())
    refuse(msg::kAllDropped);
  made.objects = static_cast<std::size_t>(taken.length());
  made.dropped = missingByType(request.ids, taken);
  for (const auto& [type, number] : made.dropped)
    session.print(msg::kDropped, {count(number), OdString::fromUtf8(type)});
  clearOrigin(made.block);
  setProperties(request, made.block);

  // Moving there and back may have left traces in the last digits.
  database.restoreFromUndo(taken);
  if (request.sourceObjects != SourceObjects::kKeep)
    eraseAll(taken);
  if (request.sourceObjects == SourceObjects::kConvert)
    made.reference = placeReference(database, request, made.block, frame);
  return made;
}

} // namespace console
