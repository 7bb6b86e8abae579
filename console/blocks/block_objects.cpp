#include "console/blocks/block_objects.h"
#include "console/blocks/make_block.h"
#include "console/messages/catalog/blocks.h"
#include "console/messages/catalog/selection.h"
#include "console/messages/number_text.h"
#include "console/prompts/selection.h"

#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "blockcommon/filters.h"
#include "blockcommon/messages.h"
#include "blockcommon/selections.h"

#include <algorithm>
#include <deque>
#include <set>
#include <unordered_map>

namespace console {
namespace {

// How the search came to a definition: through a reference inside another one, or among the objects.
struct Step {
  OdDbObjectId reference;
  OdDbObjectId from; // null for the objects
};

class ReferenceChain {
public:
  explicit ReferenceChain(OdDbObjectId block) : block_(block) {}

  bool find(const OdDbObjectIdArray& ids) {
    visit(ids, {});
    while (steps_.count(block_) == 0 && !queue_.empty()) {
      const OdDbObjectId definition = queue_.front();
      queue_.pop_front();
      visit(objectsOf(definition), definition);
    }
    return steps_.count(block_) != 0;
  }

  // From the objects on.
  std::vector<Step> steps() const {
    std::vector<Step> way;
    for (OdDbObjectId at = block_;;) {
      const Step& step = steps_.at(at);
      way.push_back(step);
      if (step.from.isNull())
        break;
      at = step.from;
    }
    std::reverse(way.begin(), way.end());
    return way;
  }

private:
  void visit(const OdDbObjectIdArray& ids, OdDbObjectId from) {
    for (const OdDbObjectId id : ids) {
      const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(id.safeOpenObject());
      if (reference.isNull() || !reference->blockTableRecord().isValid())
        continue;
      if (steps_.emplace(reference->blockTableRecord(), Step{id, from}).second)
        queue_.push_back(reference->blockTableRecord());
    }
  }

  OdDbObjectId block_;
  std::unordered_map<OdDbObjectId, Step> steps_;
  std::deque<OdDbObjectId> queue_;
};

OdString nameOfDefinition(OdDbObjectId id) {
  const OdDbBlockTableRecordPtr record = id.safeOpenObject();
  return record.isNull() ? OdString() : record->getName();
}

OdDbObjectId definitionReferencedBy(OdDbObjectId reference) {
  return OdDbBlockReferencePtr(reference.safeOpenObject())->blockTableRecord();
}

void removeCameras(Session& session, BlockObjects& objects) {
  const std::size_t before = objects.ids.length();
  blockUtils::kickOutSomeKindOfObjs(objects.ids);
  objects.cameras = before - objects.ids.length();
  if (objects.cameras > 0)
    session.print(msg::kCamerasSkipped, {count(objects.cameras)});
}

void refuseSelfReference(const OdString& name, OdDbObjectId block, const OdDbObjectIdArray& ids) {
  if (!blockUtils::isObjsAreBtrItSelf(name, ids))
    return;
  dlgTips::showBlockRefSelfTips(name);
  refuse(msg::kContainsItself, {name, chainBackTo(block, ids)});
}

} // namespace

std::map<std::string, std::size_t> missingByType(const OdDbObjectIdArray& all, const OdDbObjectIdArray& taken) {
  const std::set<OdDbObjectId> known(taken.begin(), taken.end());
  std::map<std::string, std::size_t> types;
  for (const OdDbObjectId id : all) {
    if (known.count(id) == 0)
      ++types[id.safeOpenObject()->dxfName()];
  }
  return types;
}

OdString chainBackTo(OdDbObjectId block, const OdDbObjectIdArray& ids) {
  ReferenceChain way(block);
  if (!way.find(ids))
    return {};
  OdString chain = render(msg::kChainStart, {nameOfDefinition(block)});
  for (const Step& step : way.steps())
    chain +=
        render(msg::kChainLink, {nameOfDefinition(definitionReferencedBy(step.reference)), handleText(step.reference)});
  return chain;
}

BlockObjects objectsForBlock(Session& session, const OdString& name, const OdDbObjectIdArray& picked) {
  BlockObjects objects{picked, 0, 0};
  const int left = commonFun::objsOnLockedLayerPro(objects.ids);
  objects.locked = picked.length() - static_cast<std::size_t>(left);
  if (objects.locked > 0 && objects.ids.isEmpty())
    refuse(msg::kAllLocked);
  removeCameras(session, objects);
  if (!picked.isEmpty() && objects.ids.isEmpty())
    refuse(msg::kAllDropped);
  OdDbObjectIdArray definitions;
  blockUtils::kickOutAttrdefID(objects.ids, definitions);
  objects.ids.append(definitions);
  refuseSelfReference(name, definitionOf(session, name), objects.ids);
  return objects;
}

} // namespace console
