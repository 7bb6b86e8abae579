#include "drawing/wblock.h"

#include "DbAnnotationScale.h"
#include "DbBlockTable.h"
#include "DbDictionary.h"
#include "DbRasterImage.h"
#include "drawing/blocks/block_properties.h"
#include "drawing/cloning/clone.h"
#include "drawing/cloning/path_rebasing.h"
#include "drawing/file.h"
#include "drawing/model/object_store.h"
#include "drawing/purge.h"

#include <algorithm>

namespace drawing {
namespace {

// What decides how objects look, besides the variables of dimensions.
constexpr std::string_view kDisplayVariables[] = {"ANGBASE",
                                                  "ANGDIR",
                                                  "ATTMODE",
                                                  "AUNITS",
                                                  "AUPREC",
                                                  "DISPSILH",
                                                  "FILLMODE",
                                                  "HALOGAP",
                                                  "HIDETEXT",
                                                  "INTERSECTIONCOLOR",
                                                  "INTERSECTIONDISPLAY",
                                                  "LTSCALE",
                                                  "LUNITS",
                                                  "LUPREC",
                                                  "LWDISPLAY",
                                                  "MEASUREMENT",
                                                  "MIRRTEXT",
                                                  "MSLTSCALE",
                                                  "OBSCOLOR",
                                                  "OBSLTYPE",
                                                  "PDMODE",
                                                  "PDSIZE",
                                                  "PSLTSCALE",
                                                  "PSTYLEMODE",
                                                  "QTEXTMODE",
                                                  "SORTENTS",
                                                  "SPLFRAME",
                                                  "TEXTSIZE",
                                                  "UNITMODE",
                                                  "XCLIPFRAME"};

// The current style and the arrowheads of new dimensions are records, which may not be cloned.
bool isDisplayVariable(std::string_view name, const GroupList& groups) {
  const bool isNumber = !groups.empty() && groups[0].kind != GroupKind::kText && groups[0].kind != GroupKind::kHandle &&
                        groups[0].kind != GroupKind::kReference;
  const bool isDimension = name.substr(0, 3) == "DIM";
  return isNumber && (isDimension || std::find(std::begin(kDisplayVariables), std::end(kDisplayVariables), name) !=
                                         std::end(kDisplayVariables));
}

void copyHeader(const OdDbDatabase& source, OdDbDatabase& target) {
  for (const std::string& name : source.headerNames()) {
    const GroupList* groups = source.headerVar(name);
    if (groups != nullptr && isDisplayVariable(name, *groups))
      target.setHeaderVar(name, *groups);
  }
  target.setINSUNITS(source.getINSUNITS());
  const OdDbAnnotationScalePtr scale = source.cannoscale();
  if (!scale.isNull())
    target.setCannoscale(scale->getName()); // stays 1:1 when nothing brought that scale along
}

// Whether the frames of pictures and wipeouts show is kept in dictionaries; without them nothing is cloned.
void copyFrames(OdDbDatabase& source, OdDbDatabase& target, const OdDbIdMapping& made) {
  const auto* from = getIf<OdDbDictionary>(source.getNamedObjectsDictionaryId());
  for (const auto& [kind, name] :
       {std::pair{OdDbRasterImage::desc(), L"ACAD_IMAGE_VARS"}, std::pair{OdDbWipeout::desc(), L"ACAD_WIPEOUT_VARS"}}) {
    const OdDbObjectId frames = from->getAt(name); // most drawings have none
    const auto shows = [kind = kind](const OdDbIdPair& pair) {
      return pair.isCloned() && lookup(pair.value())->isKindOf(kind);
    };
    if (frames.isNull() || std::none_of(made.pairs().begin(), made.pairs().end(), shows))
      continue;
    OdDbObjectIdArray ids;
    ids.append(frames);
    OdDbIdMapping mapping;
    source.wblockCloneObjects(ids, target.getNamedObjectsDictionaryId(), mapping, OdDb::kDrcReplace);
  }
}

OdDbDatabasePtr newLike(const OdDbDatabase& source, const std::string& path) {
  OdDbDatabasePtr made = OdDbDatabase::create();
  made->fileInfo().version = source.fileInfo().version;
  made->fileInfo().codePage = source.fileInfo().codePage;
  made->setHeaderText("DWGCODEPAGE", 3, OdString::fromUtf8(source.fileInfo().codePage));
  made->fileInfo().path = path;
  return made;
}

// `contentsOf`: the block that the objects are all of; null when they are just objects.
OdDbDatabasePtr cloned(OdDbDatabase& source, const std::vector<OdDbObjectId>& ids, OdDbObjectId contentsOf,
                       const std::string& path) {
  OdDbDatabasePtr made = newLike(source, path);
  OdDbIdMapping mapping;
  mapping.setOrigDb(&source);
  mapping.setDestDb(made.get());
  // Standard records get the properties that they have in the source.
  Cloner cloner(source, *made, made->getModelSpaceId(), mapping, OdDb::kDrcReplace);
  cloner.includeDynamicBlockData(contentsOf);
  auto* space = getIf<OdDbBlockTableRecord>(made->getModelSpaceId());
  const WriteScope scope(*space);
  if (cloner.run(ids) != eOk)
    return {};
  rebasePaths(mapping);
  copyHeader(source, *made);
  copyFrames(source, *made, mapping);
  return made;
}

} // namespace

OdDbDatabasePtr wblockBlock(OdDbObjectId block, const std::string& path) {
  const auto* record = getIf<OdDbBlockTableRecord>(block);
  if (!isAlive(record))
    throw OdError(eInvalidInput);
  OdDbDatabasePtr made = cloned(*block.database(), record->drawOrder(), block, path);
  if (made.isNull())
    return made;
  auto* space = getIf<OdDbBlockTableRecord>(made->getModelSpaceId());
  const WriteScope scope(*space);
  copyBlockProperties(*record, *space);
  space->setExplodable(record->explodable());
  space->setBlockInsertUnits(record->blockInsertUnits());
  made->setINSUNITS(record->blockInsertUnits());
  made->setINSBASE(record->origin());
  return made;
}

OdDbDatabasePtr wblockObjects(const OdDbObjectIdArray& ids, const std::string& path) {
  OdDbDatabase* source = ids.isEmpty() ? nullptr : ids[0].database();
  return source == nullptr ? OdDbDatabasePtr() : cloned(*source, {ids.begin(), ids.end()}, {}, path);
}

OdDbDatabasePtr wblockDrawing(const OdDbDatabase& database, const std::string& path, OdDb::DwgVersion version,
                              Report* lost) {
  WriteOptions options;
  options.version = version;
  options.attributesAsStored = version == OdDb::kVersionUnknown;
  WriteResult written;
  const std::string file = writeDrawingToMemory(database, options, &written);
  if (lost != nullptr)
    *lost = written.report;
  if (written.result != eOk)
    return {};
  const OdDbDatabasePtr made = readDrawingFromMemory(file).database;
  if (made.isNull())
    return made;
  const PurgePlan plan(*made);
  for (const OdDbObjectId id : plan.purgeable()) {
    OdDbObject& object = *lookup(id);
    const WriteScope scope(object);
    object.erase();
  }
  made->fileInfo().path = path;
  for (const OdDbObjectId id : made->allIds()) {
    if (OdDbObject* object = lookup(id); isAlive(object))
      rebasePath(*object, database, *made);
  }
  return made;
}

} // namespace drawing
