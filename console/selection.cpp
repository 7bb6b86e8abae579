#include "console/selection.h"
#include "console/ask.h"
#include "console/numbers.h"

#include "DbBlockTable.h"
#include "DbSymbolTable.h"
#include "morvane/drawing_tools.h"

#include <functional>
#include <set>

namespace console {
namespace {

using Picked = std::set<OdDbObjectId>;

OdString typeOf(OdDbObjectId id) {
  const OdDbObjectPtr object = id.safeOpenObject();
  return object.isNull() ? OdString() : OdString::fromUtf8(object->dxfName());
}

std::vector<OdString> layerNames(OdDbDatabase& database) {
  std::vector<OdString> names;
  const OdDbSymbolTablePtr table = database.getLayerTableId().safeOpenObject();
  for (const auto walk = table->newIterator(); !walk->done(); walk->step())
    names.push_back(walk->getRecord()->getName());
  return names;
}

std::vector<OdString> typeNames(const OdDbObjectIdArray& objects) {
  std::set<OdString> names;
  for (const OdDbObjectId id : objects)
    names.insert(typeOf(id));
  return {names.begin(), names.end()};
}

// Adds the objects that fit; answers how many did.
std::size_t pickIf(const OdDbObjectIdArray& objects, Picked& picked, const std::function<bool(OdDbObjectId)>& fits) {
  std::size_t hits = 0;
  for (const OdDbObjectId id : objects) {
    if (fits(id)) {
      picked.insert(id);
      ++hits;
    }
  }
  return hits;
}

void pickLayer(OdDbDatabase& database, const OdDbObjectIdArray& objects, const OdString& name, Picked& picked) {
  const OdDbObjectId layer = database.symbol(OdDb::kLayerTable, name);
  if (layer.isNull())
    refuse(Text::kNoSuchLayerAmong, {name, nameList(layerNames(database))});
  pickIf(objects, picked, [&](OdDbObjectId id) { return LayerTools::getEntityLayerId(id) == layer; });
}

void pickType(const OdDbObjectIdArray& objects, const OdString& name, Picked& picked) {
  if (pickIf(objects, picked, [&](OdDbObjectId id) { return typeOf(id).iCompare(name) == 0; }) == 0)
    refuse(Text::kNoSuchTypeAmong, {name, nameList(typeNames(objects))});
}

void pickHandle(OdDbDatabase& database, const OdDbObjectIdArray& objects, const OdString& text, Picked& picked) {
  const auto handle = parseHandle(text.toUtf8());
  const OdDbObjectId wanted = handle ? database.getOdDbObjectId(*handle) : OdDbObjectId();
  if (wanted.isNull() || pickIf(objects, picked, [&](OdDbObjectId id) { return id == wanted; }) == 0)
    refuse(Text::kNoSuchHandle, {text});
}

void pick(OdDbDatabase& database, const OdDbObjectIdArray& objects, const Selector& selector, Picked& picked) {
  switch (selector.kind) {
  case Selector::Kind::All:
    picked.insert(objects.begin(), objects.end());
    return;
  case Selector::Kind::Layer:
    return pickLayer(database, objects, selector.value, picked);
  case Selector::Kind::Type:
    return pickType(objects, selector.value, picked);
  case Selector::Kind::Handle:
    return pickHandle(database, objects, selector.value, picked);
  }
}

OdDbObjectIdArray inOrder(const OdDbObjectIdArray& objects, const Picked& picked) {
  OdDbObjectIdArray ids;
  for (const OdDbObjectId id : objects) {
    if (picked.count(id) != 0)
      ids.append(id);
  }
  return ids;
}

// One round of the selection prompt.
class Round {
public:
  Round(Session& session, const OdDbObjectIdArray& objects, Picked& picked)
      : session_(session), objects_(objects), picked_(picked) {}

  void run(const OdString& keyword) {
    if (keyword == L"Previous")
      return pickPrevious();
    if (keyword == L"Last")
      return pickLast();
    if (keyword == L"All")
      return pickBy({Selector::Kind::All, {}});
    if (keyword == L"Layer")
      return pickNamed(Selector::Kind::Layer, Text::kPromptSelectLayer);
    if (keyword == L"Type")
      return pickNamed(Selector::Kind::Type, Text::kPromptSelectType);
    pickNamed(Selector::Kind::Handle, Text::kPromptSelectHandle);
  }

private:
  void pickNamed(Selector::Kind kind, Text prompt) {
    if (const auto value = askText(session_, prompt))
      pickBy({kind, *value});
  }
  // A wrong name is told, and the prompt asks again.
  void pickBy(const Selector& selector) {
    try {
      pick(session_.database(), objects_, selector, picked_);
    } catch (const Failure& failure) {
      session_.say(failure.message.text, failure.message.arguments);
    }
  }
  void pickLast() {
    if (objects_.isEmpty())
      session_.say(Text::kSpaceEmpty);
    else
      picked_.insert(objects_.last());
  }
  void pickPrevious() {
    const OdDbObjectIdArray& ids = session_.drawing().previous;
    const Picked before(ids.begin(), ids.end());
    if (pickIf(objects_, picked_, [&](OdDbObjectId id) { return before.count(id) != 0; }) == 0)
      session_.say(Text::kNothingPrevious);
  }

  Session& session_;
  const OdDbObjectIdArray& objects_;
  Picked& picked_;
};

} // namespace

OdDbObjectIdArray objectsOf(OdDbObjectId space) {
  OdDbObjectIdArray ids;
  const OdDbBlockTableRecordPtr record = space.safeOpenObject();
  if (record.isNull())
    return ids;
  for (const auto walk = record->newIterator(); !walk->done(); walk->step())
    ids.append(walk->objectId());
  return ids;
}

OdDbObjectIdArray selectObjects(OdDbDatabase& database, OdDbObjectId space, const std::vector<Selector>& selectors) {
  const OdDbObjectIdArray objects = objectsOf(space);
  Picked picked;
  for (const Selector& selector : selectors)
    pick(database, objects, selector, picked);
  return inOrder(objects, picked);
}

OdDbObjectIdArray askSelection(Session& session) {
  const OdDbObjectIdArray objects = objectsOf(qzutads::currentSpaceId());
  Picked picked;
  while (const auto keyword = askKeyword(session, Text::kKeywordsSelect, Text::kPromptSelect)) {
    Round(session, objects, picked).run(*keyword);
    session.say(Text::kSelected, {count(picked.size())});
  }
  if (picked.empty())
    refuse(Text::kNothingSelected);
  session.drawing().previous = inOrder(objects, picked);
  return session.drawing().previous;
}

std::size_t leaveOutLocked(Session& session, OdDbObjectIdArray& ids) {
  OdDbObjectIdArray free;
  for (const OdDbObjectId id : ids) {
    if (!qzutads::isObjLocked(id, true))
      free.append(id);
  }
  const std::size_t locked = static_cast<std::size_t>(ids.length()) - static_cast<std::size_t>(free.length());
  if (locked > 0)
    session.say(Text::kLockedLeftOut, {count(locked)});
  if (free.isEmpty())
    refuse(Text::kAllLocked);
  ids = free;
  return locked;
}

} // namespace console
