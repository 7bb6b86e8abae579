#include "console/prompts/selection.h"
#include "console/messages/catalog/selection.h"
#include "console/messages/number_text.h"

#include "DbBlockTable.h"
#include "DbSymbolTable.h"
#include "DbViewport.h"
#include "morvane/drawing_tools.h"

#include <algorithm>
#include <functional>
#include <set>

namespace console {
namespace {

OdString typeOf(OdDbObjectId id) {
  const OdDbObjectPtr object = id.safeOpenObject();
  return object.isNull() ? OdString() : OdString::fromUtf8(object->dxfName());
}

std::vector<OdString> layerNames(OdDbDatabase& database) {
  std::vector<OdString> names;
  const OdDbSymbolTablePtr table = database.getLayerTableId().safeOpenObject();
  for (const auto iterator = table->newIterator(); !iterator->done(); iterator->step())
    names.push_back(iterator->getRecord()->getName());
  return names;
}

std::vector<OdString> typeNames(const OdDbObjectIdArray& objects) {
  std::set<OdString> names;
  for (const OdDbObjectId id : objects)
    names.insert(typeOf(id));
  return {names.begin(), names.end()};
}

OdDbObjectIdArray pickIf(const OdDbObjectIdArray& objects, const std::function<bool(OdDbObjectId)>& fits) {
  OdDbObjectIdArray ids;
  for (const OdDbObjectId id : objects) {
    if (fits(id))
      ids.append(id);
  }
  return ids;
}

OdDbObjectIdArray onLayer(OdDbDatabase& database, const OdDbObjectIdArray& objects, const OdString& name) {
  const OdDbObjectId layer = database.symbol(OdDb::kLayerTable, name);
  if (layer.isNull())
    refuse(msg::kNoSuchLayerAmong, {name, nameList(layerNames(database))});
  return pickIf(objects, [&](OdDbObjectId id) { return LayerTools::getEntityLayerId(id) == layer; });
}

OdDbObjectIdArray ofType(const OdDbObjectIdArray& objects, const OdString& name) {
  OdDbObjectIdArray ids = pickIf(objects, [&](OdDbObjectId id) { return typeOf(id).iCompare(name) == 0; });
  if (ids.isEmpty())
    refuse(msg::kNoSuchTypeAmong, {name, nameList(typeNames(objects))});
  return ids;
}

OdDbObjectIdArray ofHandle(OdDbDatabase& database, const OdDbObjectIdArray& objects, const OdString& text) {
  const auto handle = parseHandle(text.toUtf8());
  const OdDbObjectId wanted = handle ? database.objectIdOf(*handle) : OdDbObjectId();
  OdDbObjectIdArray ids = pickIf(objects, [&](OdDbObjectId id) { return !wanted.isNull() && id == wanted; });
  if (ids.isEmpty())
    refuse(msg::kNoSuchHandle, {text});
  return ids;
}

} // namespace

void Picks::add(OdDbObjectId id) {
  if (positions_.emplace(id, order_.size()).second)
    order_.push_back(id);
}

OdDbObjectIdArray Picks::ids() const {
  OdDbObjectIdArray ids;
  for (std::size_t at = 0; at < order_.size(); ++at) {
    const auto found = positions_.find(order_[at]);
    if (found != positions_.end() && found->second == at)
      ids.append(order_[at]);
  }
  return ids;
}

OdDbObjectIdArray objectsOf(OdDbObjectId space) {
  OdDbObjectIdArray ids;
  const OdDbBlockTableRecordPtr record = space.safeOpenObject();
  if (record.isNull())
    return ids;
  for (const auto iterator = record->newIterator(); !iterator->done(); iterator->step())
    ids.append(iterator->objectId());
  return ids;
}

OdDbObjectIdArray pickableObjects(OdDbObjectId space) {
  OdDbObjectIdArray ids = objectsOf(space);
  const OdDbBlockTableRecordPtr record = space.safeOpenObject();
  if (record.isNull() || !record->isLayout() || space == space.database()->getModelSpaceId())
    return ids;
  const auto isViewport = [](OdDbObjectId id) { return id.safeOpenObject()->isKindOf(OdDbViewport::desc()); };
  const auto own = std::find_if(ids.begin(), ids.end(), isViewport);
  return own == ids.end() ? ids : pickIf(ids, [own = *own](OdDbObjectId id) { return id != own; });
}

OdDbObjectIdArray pickedBy(OdDbDatabase& database, const OdDbObjectIdArray& objects, const Selector& selector) {
  switch (selector.kind) {
  case Selector::Kind::kLayer:
    return onLayer(database, objects, selector.value);
  case Selector::Kind::kType:
    return ofType(objects, selector.value);
  case Selector::Kind::kHandle:
    return ofHandle(database, objects, selector.value);
  case Selector::Kind::kAll:
    break;
  }
  return objects;
}

OdDbObjectIdArray selectObjects(OdDbDatabase& database, OdDbObjectId space, const std::vector<Selector>& selectors) {
  const OdDbObjectIdArray objects = pickableObjects(space);
  Picks picks;
  for (const Selector& selector : selectors) {
    for (const OdDbObjectId id : pickedBy(database, objects, selector))
      picks.add(id);
  }
  return picks.ids();
}

std::size_t removeLocked(Session& session, OdDbObjectIdArray& ids) {
  OdDbObjectIdArray free;
  for (const OdDbObjectId id : ids) {
    if (!qzutads::isObjLocked(id, true))
      free.append(id);
  }
  const std::size_t locked = static_cast<std::size_t>(ids.length()) - static_cast<std::size_t>(free.length());
  if (locked > 0)
    session.print(msg::kLockedSkipped, {count(locked)});
  if (free.isEmpty())
    refuse(msg::kAllLocked);
  ids = free;
  return locked;
}

} // namespace console
