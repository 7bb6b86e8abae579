#include "console/blocks/write_block_file.h"
#include "console/messages/catalog/blocks.h"
#include "console/messages/catalog/wblock.h"

#include "console/blocks/block_objects.h"
#include "console/blocks/make_block.h"
#include "console/drawings/drawing_io.h"

#include "DbBlockTable.h"
#include "DbDimension.h"
#include "Ge/GeUtil.h"
#include "blockcommon/selections.h"
#include "blockcommon/transforms.h"
#include "drawing/wblock.h"

#include <cmath>
#include <unordered_set>

namespace console {
namespace {

// Letters of a dimension that were level in the UCS are level in the file.
void rotateText(OdDbEntity& entity, const OdGeMatrix3d& frame) {
  const OdDbDimensionPtr dimension = OdDbDimension::cast(&entity);
  if (dimension.isNull())
    return;
  OdGePoint3d origin;
  OdGeVector3d x, y, z;
  frame.getCoordSystem(origin, x, y, z);
  const double rotated = dimension->horizontalRotation() + OdGeVector3d::kXAxis.angleTo(x, z);
  dimension->setHorizontalRotation(normalizeAngle(rotated));
}

bool moveBy(OdDbEntity& entity, const OdGeMatrix3d& toBase, const OdGeMatrix3d& frame) {
  if (entity.transformBy(toBase) != eOk)
    return false;
  rotateText(entity, frame);
  return true;
}

// The objects stand about the origin as they stood about the base point, along the axes of the UCS. `ids` are those
// that they are made of, in their order; the answer is those that could be moved.
OdDbObjectIdArray moveToBase(OdDbDatabase& made, const OdGeMatrix3d& frame, const OdDbObjectIdArray& ids) {
  if (frame == OdGeMatrix3d::kIdentity)
    return ids;
  const OdGeMatrix3d toBase = frame.inverse();
  OdDbObjectIdArray moved;
  const OdDbBlockTableRecordPtr space = made.getModelSpaceId().safeOpenObject();
  const auto iterator = space->newIterator();
  for (const OdDbObjectId id : ids) {
    const CMvAutoUnLockEntityLayer unlocked(iterator->objectId());
    if (moveBy(*iterator->entity(OdDb::kForWrite), toBase, frame))
      moved.append(id);
    iterator->step();
  }
  return moved;
}

// As they lie on each other, whatever the order of picking was.
OdDbObjectIdArray inDrawOrder(const OdDbObjectIdArray& ids) {
  const std::unordered_set<OdDbObjectId> picked(ids.begin(), ids.end());
  OdDbObjectIdArray ordered;
  for (const OdDbObjectId id :
       OdDbBlockTableRecordPtr(ids[0].safeOpenObject()->ownerId().safeOpenObject())->drawOrder()) {
    if (picked.count(id) != 0)
      ordered.append(id);
  }
  return ordered;
}

// A drawing of its own, in memory.
class NewDrawing {
public:
  NewDrawing(Session& session, const BlockFileRequest& request, BlockFile& result)
      : session_(session), request_(request), result_(result) {}

  OdDbDatabasePtr make() {
    OdDbDatabasePtr made = std::visit(*this, request_.source);
    if (made.isNull())
      refuse(msg::kNotWritable);
    if (request_.units) {
      made->setINSUNITS(*request_.units);
      OdDbBlockTableRecordPtr(made->getModelSpaceId().safeOpenObject(OdDb::kForWrite))
          ->setBlockInsertUnits(*request_.units);
    }
    return made;
  }

  OdDbDatabasePtr operator()(WholeDrawing) const {
    drawing::Report lost;
    OdDbDatabasePtr made = drawing::wblockDrawing(session_.database(), request_.path, request_.version, &lost);
    reportLosses(session_, request_.path, lost);
    if (!made.isNull() && request_.basePoint)
      made->setINSBASE(request_.ucs * *request_.basePoint);
    return made;
  }

  OdDbDatabasePtr operator()(OdDbObjectId block) const {
    OdDbDatabasePtr made = drawing::wblockBlock(block, request_.path);
    if (!made.isNull() && request_.basePoint)
      made->setINSBASE(*request_.basePoint);
    return made;
  }

  OdDbDatabasePtr operator()(const OdDbObjectIdArray& ids) const {
    const OdDbObjectIdArray ordered = inDrawOrder(ids);
    const OdGePoint3d base = request_.ucs * request_.basePoint.value_or(OdGePoint3d());
    const OdGeMatrix3d frame = blockUtils::createEcsMatrixByMatrix(base, request_.ucs);
    OdDbDatabasePtr made = drawing::wblockObjects(ordered, request_.path);
    if (made.isNull())
      return made;
    result_.written = moveToBase(*made, frame, ordered);
    if (result_.written.length() == ordered.length())
      return made;
    reportDropped(ordered);
    made = drawing::wblockObjects(result_.written, request_.path); // without what only the others need
    moveToBase(*made, frame, result_.written);
    return made;
  }

private:
  void reportDropped(const OdDbObjectIdArray& all) const {
    result_.dropped = missingByType(all, result_.written);
    for (const auto& [type, number] : result_.dropped)
      session_.print(msg::kNotMoved, {count(number), OdString::fromUtf8(type)});
    session_.raiseStatus(Status::kRepaired);
    if (result_.written.isEmpty())
      refuse(msg::kAllDropped);
  }

  Session& session_;
  const BlockFileRequest& request_;
  BlockFile& result_;
};

// A version that is older than the drawing may need other objects to say the same.
void checkReadBack(const BlockFileRequest& request, const OdDbDatabase& made, const drawing::ReadResult& read,
                   const BlockFile& result) {
  if (read.database.isNull())
    throw Failure{Status::kSaveFailed,
                  {msg::kNotReadBack, {OdString::fromUtf8(request.path), OdString::fromUtf8(read.message)}}};
  const bool containsAll = result.version >= made.fileInfo().version;
  const DrawingCount given = countOf(made);
  if (read.report.outcome() == drawing::Outcome::kWhole && (!containsAll || result.count == given))
    return;
  throw Failure{
      Status::kSaveFailed,
      {msg::kReadBackDiffers, {OdString::fromUtf8(request.path), count(given.objects), count(result.count.objects)}}};
}

// Of the objects that model space of `made` was made of: those that the file has, whatever its version made of them.
OdDbObjectIdArray originsOfClones(const OdDbDatabase& read, const OdDbDatabase& made, const OdDbObjectIdArray& ids) {
  OdDbObjectIdArray origins;
  const OdDbBlockTableRecordPtr space = made.getModelSpaceId().safeOpenObject();
  const auto iterator = space->newIterator();
  for (const OdDbObjectId id : ids) {
    if (!read.objectIdOf(iterator->objectId().getHandle()).safeOpenObject().isNull())
      origins.append(id);
    iterator->step();
  }
  return origins;
}

} // namespace

DrawingCount countOf(const OdDbDatabase& database) {
  DrawingCount counted;
  const OdDbBlockTablePtr table = database.getBlockTableId().safeOpenObject();
  for (const auto iterator = table->newIterator(); !iterator->done(); iterator->step()) {
    const OdDbBlockTableRecordPtr block = iterator->getRecordId().safeOpenObject();
    const bool isSpace = block->isLayout();
    counted.definitions += isSpace ? 0 : 1;
    for (const auto contents = block->newIterator(); !contents->done(); contents->step()) {
      ++(isSpace ? counted.objects : counted.objectsInDefinitions);
      if (isSpace)
        ++counted.types[contents->entity()->dxfName()];
    }
  }
  return counted;
}

OdDbObjectId definitionToWrite(Session& session, const OdString& name) {
  const OdDbObjectId id = definitionOf(session, name);
  const auto block = OdDbBlockTableRecord::cast(id.safeOpenObject());
  if (block.isNull())
    return {};
  refuseNonDefinition(*block);
  return id;
}

BlockFile writeBlockFile(Session& session, const BlockFileRequest& request) {
  BlockFile result;
  result.path = request.path;
  const OdDbDatabasePtr made = NewDrawing(session, request, result).make();
  result.version =
      drawing::writtenVersion(request.version == OdDb::kVersionUnknown ? made->fileInfo().version : request.version);
  writeFile(session, *made, {request.path, result.version, request.form, request.mayReplace});
  const drawing::ReadResult read = drawing::readDrawing(request.path);
  if (!read.database.isNull()) {
    result.count = countOf(*read.database);
    result.written = originsOfClones(*read.database, *made, result.written);
    result.basePoint = read.database->getINSBASE();
    result.units = read.database->getINSUNITS();
  }
  checkReadBack(request, *made, read, result);
  return result;
}

void reportBlockFile(Session& session, const BlockFile& written) {
  session.result(msg::kBlockWritten,
                 {OdString::fromUtf8(written.path), count(written.count.objects), count(written.count.definitions),
                  OdString::fromUtf8(drawing::versionYear(written.version))});
}

} // namespace console
