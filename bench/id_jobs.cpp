#include "bench/id_jobs.h"

#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbSymbolRecords.h"
#include "DbViewport.h"
#include "blockcommon/filters.h"
#include "blockcommon/selections.h"
#include "morvane/testing.h"

namespace bench {
namespace {

// A drawing, its objects as an array, and the same as a selection set.
struct Stage {
  explicit Stage(std::size_t entities) : database(makeDrawing(entities)), ids(modelSpace(*database)) {
    host.host().documents().open(database);
    host.host().messageBoxes().setShow([](const morvane::MessageBox&) { return 0; });
    commonFun::objectArr2AdsName(ids, set);
  }

  morvane::ScriptedHost host;
  OdDbDatabasePtr database;
  OdDbObjectIdArray ids;
  long set[2] = {0, 0};
};

// Every second id is that of one new object.
template <class Kind>
void mixIn(Stage& stage) {
  const OdDbBlockTableRecordPtr space = stage.database->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
  const OdDbObjectId added = space->appendEntity(Kind::createObject());
  for (unsigned at = 0; at < stage.ids.size(); at += 2)
    stage.ids.setAt(at, added);
}

using Work = std::size_t (*)(Stage&);
using Prepare = void (*)(Stage&);

class StageJob final : public Job {
public:
  StageJob(std::size_t entities, Prepare prepare, Work work) : stage_(entities), work_(work) { prepare(stage_); }
  std::size_t run() override { return work_(stage_); }

private:
  Stage stage_;
  Work work_;
};

template <Work work>
std::unique_ptr<Job> plain(std::size_t entities) {
  return std::make_unique<StageJob>(
      entities, [](Stage&) {}, work);
}

template <Prepare prepare, Work work>
std::unique_ptr<Job> prepared(std::size_t entities) {
  return std::make_unique<StageJob>(entities, prepare, work);
}

std::size_t toSet(Stage& stage) {
  long set[2] = {0, 0};
  commonFun::objectArr2AdsName(stage.ids, set);
  return static_cast<std::size_t>(commonFun::clearSSName(set));
}

std::size_t fromSet(Stage& stage) {
  OdDbObjectIdArray ids;
  commonFun::adsName2ObjectArr(stage.set, ids);
  return ids.size();
}

std::size_t selected(Stage& stage) {
  OdDbObjectIdArray ids;
  return commonFun::getSelectedEntitiesIDs(ids, stage.set) ? ids.size() : 0;
}

std::size_t inSet(Stage& stage) {
  return std::size_t{commonFun::isEntityInSSset(stage.ids.last(), stage.set)};
}

std::size_t implied(Stage& stage) {
  OdDbObjectIdArray ids;
  stage.host.host().selections().setFirst(stage.set, nullptr);
  commonFun::curSelectEntity(ids);
  return ids.size();
}

std::size_t highlight(Stage& stage) {
  return static_cast<std::size_t>(commonFun::mvedHighlightEnt(stage.set, true));
}

template <class Erase>
std::size_t erased(Stage& stage, Erase erase) {
  stage.database->startUndoRecord();
  const int count = erase(stage.ids);
  stage.database->undo();
  return static_cast<std::size_t>(count);
}

std::size_t eraseEntities(Stage& stage) {
  return erased(stage, commonFun::eraseEntitys);
}

std::size_t deleteObjects(Stage& stage) {
  return erased(stage, commonFun::deleteObjs);
}

std::size_t locked(Stage& stage) {
  OdDbObjectIdArray ids = stage.ids;
  return static_cast<std::size_t>(commonFun::objsOnLockedLayerPro(ids));
}

void lockEverySecondLayer(Stage& stage) {
  bool lock = false;
  const OdDbSymbolTablePtr layers = stage.database->getLayerTableId().safeOpenObject();
  for (const auto iterator = layers->newIterator(); !iterator->done(); iterator->step()) {
    const OdDbLayerTableRecordPtr layer = iterator->getRecordId().safeOpenObject(OdDb::kForWrite);
    layer->setIsLocked(lock);
    lock = !lock;
  }
}

std::size_t contents(Stage& stage) {
  OdDbObjectIdArray ids;
  commonFun::getEntityWithObjectId(stage.database->getModelSpaceId(), ids);
  return ids.size();
}

std::size_t cameras(Stage& stage) {
  OdDbObjectIdArray ids = stage.ids;
  blockUtils::kickOutSomeKindOfObjs(ids);
  return ids.size();
}

std::size_t definitions(Stage& stage) {
  OdDbObjectIdArray ids = stage.ids;
  OdDbObjectIdArray moved;
  blockUtils::kickOutAttrdefID(ids, moved);
  return moved.size();
}

std::size_t itself(Stage& stage) {
  return std::size_t{blockUtils::isObjsAreBtrItSelf(L"lamp", stage.ids)};
}

void addLamp(Stage& stage) {
  const OdDbBlockTableRecordPtr lamp = OdDbBlockTableRecord::createObject();
  lamp->setName(L"lamp");
  OdDbBlockTablePtr(stage.database->getBlockTableId().safeOpenObject(OdDb::kForWrite))->add(lamp.get());
}

} // namespace

const std::map<std::string, JobMaker>& idJobs() {
  static const std::map<std::string, JobMaker> table{
      {"ids-to-set", plain<toSet>},
      {"ids-from-set", plain<fromSet>},
      {"ids-selected", plain<selected>},
      {"ids-in-set", plain<inSet>},
      {"ids-implied", plain<implied>},
      {"ids-highlight", plain<highlight>},
      {"ids-erase", plain<eraseEntities>},
      {"ids-delete", plain<deleteObjects>},
      {"ids-contents", plain<contents>},
      {"ids-locked", prepared<lockEverySecondLayer, locked>},
      {"ids-cameras", prepared<mixIn<OdDbCamera>, cameras>},
      {"ids-attdefs", prepared<mixIn<OdDbAttributeDefinition>, definitions>},
      {"ids-itself", prepared<addLamp, itself>},
  };
  return table;
}

} // namespace bench
