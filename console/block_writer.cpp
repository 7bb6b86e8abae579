#include "console/block_writer.h"

#include "console/block_maker.h"
#include "console/drawing_io.h"

#include "DbBlockTable.h"
#include "DbWblock.h"
#include "blockcommon/transforms.h"

#include <unordered_set>

namespace console {
namespace {

OdString asText(const std::string& bytes) {
  return OdString::fromUtf8(bytes);
}

// The objects stand about the origin as they stood about the base point, along the axes of the UCS.
std::map<std::string, std::size_t> moveToBase(OdDbDatabase& made, const OdGeMatrix3d& frame) {
  std::map<std::string, std::size_t> dropped;
  if (frame == OdGeMatrix3d::kIdentity)
    return dropped;
  const OdGeMatrix3d toBase = frame.inverse();
  const OdDbBlockTableRecordPtr space = made.getModelSpaceId().safeOpenObject();
  for (const auto walk = space->newIterator(); !walk->done(); walk->step()) {
    const OdDbEntityPtr entity = walk->entity(OdDb::kForWrite);
    if (entity->transformBy(toBase) == eOk)
      continue;
    ++dropped[entity->dxfName()];
    entity->erase();
  }
  return dropped;
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
      refuse(Text::kNotWritable);
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
    tellLosses(session_, request_.path, lost);
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
    OdDbDatabasePtr made = drawing::wblockObjects(inDrawOrder(ids), request_.path);
    if (made.isNull())
      return made;
    const OdGePoint3d base = request_.ucs * request_.basePoint.value_or(OdGePoint3d());
    result_.dropped = moveToBase(*made, blockUtils::createEcsMatrixByMatrix(base, request_.ucs));
    for (const auto& [type, number] : result_.dropped)
      session_.say(Text::kNotMoved, {count(number), asText(type)});
    if (countOf(*made).objects == 0)
      refuse(Text::kAllDropped);
    return made;
  }

private:
  Session& session_;
  const BlockFileRequest& request_;
  BlockFile& result_;
};

// A version that is older than the drawing may need other objects to say the same.
void checkReadBack(const BlockFileRequest& request, const OdDbDatabase& made, const drawing::ReadResult& read,
                   const BlockFile& result) {
  if (read.database.isNull())
    throw Failure{Status::SaveFailed, {Text::kNotReadBack, {asText(request.path), asText(read.message)}}};
  const bool holdsAll = result.version >= made.facts().version;
  if (read.report.outcome() == drawing::Outcome::Whole && (!holdsAll || result.count == countOf(made)))
    return;
  throw Failure{
      Status::SaveFailed,
      {Text::kReadBackDiffers, {asText(request.path), count(countOf(made).objects), count(result.count.objects)}}};
}

} // namespace

DrawingCount countOf(const OdDbDatabase& database) {
  DrawingCount counted;
  const OdDbBlockTablePtr table = database.getBlockTableId().safeOpenObject();
  for (const auto walk = table->newIterator(); !walk->done(); walk->step()) {
    const OdDbBlockTableRecordPtr block = walk->getRecordId().safeOpenObject();
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
  if (block->isLayout())
    refuse(Text::kNameOfSpace, {block->getName()});
  if (block->isFromExternalReference() || block->isDependent())
    refuse(Text::kNameExternal, {block->getName()});
  return id;
}

BlockFile writeBlockFile(Session& session, const BlockFileRequest& request) {
  BlockFile result;
  result.path = request.path;
  const OdDbDatabasePtr made = NewDrawing(session, request, result).make();
  result.version =
      drawing::writtenVersion(request.version == OdDb::kVersionUnknown ? made->facts().version : request.version);
  writeFile(session, *made, {request.path, result.version, request.form, request.mayReplace});
  const drawing::ReadResult read = drawing::readDrawing(request.path);
  if (!read.database.isNull()) {
    result.count = countOf(*read.database);
    result.basePoint = read.database->getINSBASE();
    result.units = read.database->getINSUNITS();
  }
  checkReadBack(request, *made, read, result);
  return result;
}

void tellBlockFile(Session& session, const BlockFile& written) {
  session.result(Text::kBlockWritten,
                 {asText(written.path), count(written.count.objects), count(written.count.definitions),
                  asText(drawing::versionYear(written.version))});
}

} // namespace console
