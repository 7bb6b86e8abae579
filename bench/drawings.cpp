#include "bench/drawings.h"
#include "bench/id_jobs.h"

#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbCurves.h"
#include "DbEntity.h"
#include "DbIdMapping.h"
#include "DbSymbolRecords.h"
#include "DbText.h"
#include "blockcommon/creation.h"
#include "blockcommon/document_queries.h"
#include "drawing/file.h"
#include "drawing/picture.h"
#include "drawing/wblock.h"
#include "morvane/testing.h"

#include <functional>
#include <map>

namespace bench {

namespace {

constexpr std::size_t kLayers = 20;
constexpr std::size_t kBlocks = 100;

template <class T>
OdSmartPtr<T> forWrite(OdDbObjectId id) {
  return OdSmartPtr<T>(id.safeOpenObject(OdDb::kForWrite));
}

std::vector<OdDbObjectId> addLayers(OdDbDatabase& database) {
  std::vector<OdDbObjectId> ids;
  const auto table = forWrite<OdDbSymbolTable>(database.getLayerTableId());
  for (std::size_t i = 0; i < kLayers; ++i) {
    const auto layer = OdDbLayerTableRecord::createObject();
    OdString name;
    layer->setName(name.format(L"layer %d", static_cast<int>(i)));
    ids.push_back(table->add(layer.get()));
  }
  return ids;
}

OdDbEntityPtr makeLine(std::size_t i) {
  const auto x = static_cast<double>(i % 1000), y = static_cast<double>(i / 1000);
  const auto line = OdDbLine::createObject();
  line->setStartPoint({x + 0.125, y + 0.3, 0});
  line->setEndPoint({x + 0.7071, y + 1.0 / 3, 0});
  return line;
}

OdDbEntityPtr makeEntity(std::size_t i, const std::vector<OdDbObjectId>& blocks) {
  const OdGePoint3d position(static_cast<double>(i % 1000), static_cast<double>(i / 1000) + 0.1, 0);
  if (i % 10 == 7) {
    const auto circle = OdDbCircle::createObject();
    circle->setCenter(position);
    circle->setRadius(0.25);
    return circle;
  }
  if (i % 10 == 8) {
    const auto text = OdDbText::createObject();
    text->setPosition(position);
    text->setHeight(0.2);
    text->setTextString(L"part");
    return text;
  }
  if (i % 10 == 9) {
    const auto reference = OdDbBlockReference::createObject();
    reference->setBlockTableRecord(blocks[i % blocks.size()]);
    reference->setPosition(position);
    return reference;
  }
  return makeLine(i);
}

std::vector<OdDbObjectId> addBlocks(OdDbDatabase& database, OdDbObjectId layer) {
  std::vector<OdDbObjectId> ids;
  const auto table = forWrite<OdDbBlockTable>(database.getBlockTableId());
  for (std::size_t i = 0; i < kBlocks; ++i) {
    const auto block = OdDbBlockTableRecord::createObject();
    OdString name;
    block->setName(name.format(L"part %d", static_cast<int>(i)));
    ids.push_back(table->add(block.get()));
    const OdDbEntityPtr line = makeLine(i);
    line->setLayer(layer);
    forWrite<OdDbBlockTableRecord>(ids.back())->appendEntity(line.get());
  }
  return ids;
}

class FunctionJob final : public Job {
public:
  explicit FunctionJob(std::function<std::size_t()> work) : work_(std::move(work)) {}
  std::size_t run() override { return work_(); }

private:
  std::function<std::size_t()> work_;
};

std::unique_ptr<Job> readJob(std::size_t entities) {
  return std::make_unique<FunctionJob>(
      [file = makeFile(entities)] { return drawing::readDrawingFromMemory(file).database->objectCount(); });
}

std::unique_ptr<Job> writeJob(std::size_t entities) {
  return std::make_unique<FunctionJob>(
      [database = makeDrawing(entities)] { return drawing::writeDrawingToMemory(*database).size(); });
}

std::unique_ptr<Job> makeBlockJob(std::size_t entities) {
  auto host = std::make_shared<morvane::ScriptedHost>();
  OdDbDatabasePtr database = makeDrawing(entities);
  host->host().documents().open(database);
  return std::make_unique<FunctionJob>([host, database, ids = modelSpace(*database)]() mutable {
    bool created = false;
    blockUtils::create(database, L"everything", ids, true, created, {1, 2, 0}, L"");
    return std::size_t{created};
  });
}

std::unique_ptr<Job> cloneJob(std::size_t entities) {
  return std::make_unique<FunctionJob>([database = makeDrawing(entities), ids = OdDbObjectIdArray()]() mutable {
    if (ids.isEmpty())
      ids = modelSpace(*database);
    const OdDbDatabasePtr target = OdDbDatabase::create();
    OdDbIdMapping mapping;
    database->wblockCloneObjects(ids, target->getModelSpaceId(), mapping, OdDb::kDrcReplace);
    return mapping.size();
  });
}

std::unique_ptr<Job> undoJob(std::size_t entities) {
  OdDbDatabasePtr database = makeDrawing(entities);
  return std::make_unique<FunctionJob>([database, ids = modelSpace(*database)] {
    database->startUndoRecord();
    const OdGeMatrix3d move = OdGeMatrix3d::translation(OdGeVector3d(1, 0, 0));
    for (const OdDbObjectId& id : ids)
      forWrite<OdDbEntity>(id)->transformBy(move);
    database->undo();
    return std::size_t{database->hasRedo()};
  });
}

// As many blocks as entities, each counted.
std::unique_ptr<Job> countReferencesJob(std::size_t entities) {
  OdDbDatabasePtr database = OdDbDatabase::create();
  const auto table = forWrite<OdDbBlockTable>(database->getBlockTableId());
  const auto space = forWrite<OdDbBlockTableRecord>(database->getModelSpaceId());
  OdDbObjectIdArray blocks;
  for (std::size_t i = 0; i < entities; ++i) {
    const auto block = OdDbBlockTableRecord::createObject();
    OdString name;
    block->setName(name.format(L"part %d", static_cast<int>(i)));
    blocks.append(table->add(block.get()));
    const auto reference = OdDbBlockReference::createObject();
    reference->setBlockTableRecord(blocks.last());
    space->appendEntity(reference.get());
  }
  return std::make_unique<FunctionJob>([database, blocks] {
    int count = 0;
    for (const OdDbObjectId& block : blocks)
      count += commonFun::getBlockReferenceCount(block);
    return static_cast<std::size_t>(count);
  });
}

std::unique_ptr<Job> insertJob(std::size_t entities) {
  const OdDbDatabasePtr source = makeDrawing(entities);
  return std::make_unique<FunctionJob>([source] {
    const OdDbDatabasePtr target = OdDbDatabase::create();
    target->insert(L"part", source.get(), true);
    return target->objectCount();
  });
}

// Many small drawings into one, each with a reference and a look at how often it is shown.
std::unique_ptr<Job> insertManyJob(std::size_t entities) {
  constexpr std::size_t kEach = 10;
  return std::make_unique<FunctionJob>([source = makeDrawing(kEach), files = entities / kEach] {
    const OdDbDatabasePtr target = OdDbDatabase::create();
    const auto space = forWrite<OdDbBlockTableRecord>(target->getModelSpaceId());
    std::size_t shown = 0;
    for (std::size_t i = 0; i < files; ++i) {
      OdString name;
      const OdDbObjectId block = target->insert(name.format(L"file %d", static_cast<int>(i)), source.get(), true);
      const auto reference = OdDbBlockReference::createObject();
      reference->setBlockTableRecord(block);
      space->appendEntity(reference.get());
      shown += static_cast<std::size_t>(commonFun::getBlockReferenceCount(block));
    }
    return shown;
  });
}

// A definition of that size as a drawing of its own.
std::unique_ptr<Job> wblockJob(std::size_t entities) {
  const OdDbDatabasePtr source = makeDrawing(entities);
  const OdDbDatabasePtr plan = OdDbDatabase::create();
  const OdDbObjectId block = plan->insert(L"part", source.get(), true);
  return std::make_unique<FunctionJob>([plan, block] { return drawing::wblockBlock(block)->objectCount(); });
}

// As many entities in definitions of ten, each as a drawing of its own.
std::unique_ptr<Job> wblockManyJob(std::size_t entities) {
  constexpr std::size_t kEach = 10;
  const OdDbDatabasePtr source = makeDrawing(kEach), plan = OdDbDatabase::create();
  OdDbObjectIdArray blocks;
  for (std::size_t i = 0; i < entities / kEach; ++i) {
    OdString name;
    blocks.append(plan->insert(name.format(L"part %d", static_cast<int>(i)), source.get(), true));
  }
  return std::make_unique<FunctionJob>([plan, blocks] {
    std::size_t objects = 0;
    for (const OdDbObjectId& block : blocks)
      objects += drawing::wblockBlock(block)->objectCount();
    return objects;
  });
}

// A picture of all of it; what is counted is the walk and the drawing of pixels.
std::unique_ptr<Job> pictureJob(std::size_t entities) {
  return std::make_unique<FunctionJob>([database = makeDrawing(entities)] {
    const drawing::Picture picture(database->getModelSpaceId());
    return picture.bitmap().rgba.size() + picture.report().points;
  });
}

const std::map<std::string, JobMaker>& jobs() {
  static const std::map<std::string, JobMaker> table = [] {
    std::map<std::string, JobMaker> all{{"read", readJob},
                                        {"write", writeJob},
                                        {"make", makeBlockJob},
                                        {"clone", cloneJob},
                                        {"undo", undoJob},
                                        {"count", countReferencesJob},
                                        {"picture", pictureJob},
                                        {"insert", insertJob},
                                        {"insert-many", insertManyJob},
                                        {"wblock", wblockJob},
                                        {"wblock-many", wblockManyJob}};
    all.insert(idJobs().begin(), idJobs().end());
    return all;
  }();
  return table;
}

} // namespace

OdDbDatabasePtr makeDrawing(std::size_t entities) {
  OdDbDatabasePtr database = OdDbDatabase::create();
  const std::vector<OdDbObjectId> layers = addLayers(*database);
  const std::vector<OdDbObjectId> blocks = addBlocks(*database, layers[0]);
  const auto space = forWrite<OdDbBlockTableRecord>(database->getModelSpaceId());
  for (std::size_t i = 0; i < entities; ++i) {
    const OdDbEntityPtr entity = makeEntity(i, blocks);
    entity->setLayer(layers[i % layers.size()]);
    space->appendEntity(entity.get());
  }
  return database;
}

std::string makeFile(std::size_t entities) {
  return drawing::writeDrawingToMemory(*makeDrawing(entities));
}

OdDbObjectIdArray modelSpace(const OdDbDatabase& database) {
  OdDbObjectIdArray ids;
  const OdDbBlockTableRecordPtr space = database.getModelSpaceId().safeOpenObject();
  for (auto it = space->newIterator(); !it->done(); it->step())
    ids.append(it->objectId());
  return ids;
}

std::unique_ptr<Job> makeJob(const std::string& name, std::size_t entities) {
  const auto found = jobs().find(name);
  return found == jobs().end() ? nullptr : found->second(entities);
}

const std::vector<std::string>& jobNames() {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> all;
    for (const auto& [name, maker] : jobs())
      all.push_back(name);
    return all;
  }();
  return names;
}

} // namespace bench
