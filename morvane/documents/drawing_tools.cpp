#include "morvane/drawing_tools.h"
#include "morvane/host.h"

#include "DbBlockTable.h"
#include "DbDimAssoc.h"
#include "DbEntity.h"
#include "DbSymbolRecords.h"

#include <algorithm>
#include <map>
#include <unordered_map>

namespace LayerTools {

OdDbObjectId getEntityLayerId(const OdDbObjectId& entityId) noexcept {
  try {
    if (morvane::admitCall("getEntityLayerId") == nullptr)
      return OdDbObjectId();
    const OdDbEntityPtr entity = OdDbEntity::cast(entityId.safeOpenObject());
    return entity.isNull() ? OdDbObjectId() : entity->layerId();
  } catch (...) { // the promise to callers, who call this from destructors
    return OdDbObjectId();
  }
}

bool isLayerLocked(const OdDbObjectId& layerId) noexcept {
  try {
    if (morvane::admitCall("isLayerLocked") == nullptr)
      return false;
    const OdDbLayerTableRecordPtr layer = OdDbLayerTableRecord::cast(layerId.safeOpenObject());
    return !layer.isNull() && layer->isLocked();
  } catch (...) {
    return false;
  }
}

bool lockOrUnlockLayer(const OdDbObjectId& layerId, bool lock) noexcept {
  try {
    if (morvane::admitCall("lockOrUnlockLayer") == nullptr)
      return false;
    const OdDbLayerTableRecordPtr layer = OdDbLayerTableRecord::cast(layerId.safeOpenObject(OdDb::kForWrite));
    if (layer.isNull())
      return false;
    layer->setIsLocked(lock);
    return true;
  } catch (...) {
    return false;
  }
}

} // namespace LayerTools

namespace qzutads {
namespace {

using Places = std::unordered_map<OdDbObjectId, std::size_t>;

// Position of each entity of a block in its draw order.
Places placesIn(const OdDbBlockTableRecord& block) {
  Places places;
  for (const OdDbObjectId& id : block.drawOrder())
    places.emplace(id, places.size());
  return places;
}

struct DrawRank {
  std::size_t block; // by first appearance; the number of blocks for what is drawn in none
  std::size_t position;
  bool operator<(const DrawRank& other) const {
    return block != other.block ? block < other.block : position < other.position;
  }
};

class Ranking {
public:
  DrawRank rankOf(const OdDbObjectId& id) {
    const OdDbEntityPtr entity = OdDbEntity::cast(id.safeOpenObject(OdDb::kForRead, true));
    if (entity.isNull())
      return kLast;
    const auto owner = entity->ownerId();
    const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(owner.safeOpenObject());
    if (block.isNull())
      return kLast;
    auto ranked = blocks_.find(owner);
    if (ranked == blocks_.end())
      ranked = blocks_.emplace(owner, std::pair(blocks_.size(), placesIn(*block))).first;
    const auto& [number, places] = ranked->second;
    const auto found = places.find(id);
    return found == places.end() ? kLast : DrawRank{number, found->second};
  }

private:
  static constexpr DrawRank kLast{static_cast<std::size_t>(-1), 0};
  std::map<OdDbObjectId, std::pair<std::size_t, Places>> blocks_;
};

} // namespace

bool isObjLocked(const OdDbObjectId& id, bool byLayer) {
  return byLayer && LayerTools::isLayerLocked(LayerTools::getEntityLayerId(id));
}

void sortAarryByDrawOrder(OdDbObjectIdArray& ids) {
  Ranking ranking;
  std::vector<std::pair<DrawRank, OdDbObjectId>> ranked;
  for (const OdDbObjectId& id : ids)
    ranked.emplace_back(ranking.rankOf(id), id);
  std::stable_sort(ranked.begin(), ranked.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  for (unsigned at = 0; at < ranked.size(); ++at)
    ids.setAt(at, ranked[at].second);
}

OdDbObjectId currentSpaceId() {
  const OdDbDatabase* database = mvsi::mvsidbWorkingDatabase();
  if (database == nullptr)
    return OdDbObjectId();
  if (const mvsi::MvsiApDocument* document = morvane::Host::current()->documents().find(database)) {
    if (const OdDbObjectId edited = document->blockEditorId(); !edited.isNull())
      return edited;
  }
  constexpr std::int64_t kModelTab = 1;
  return database->headerInt("TILEMODE", kModelTab) == kModelTab ? database->getModelSpaceId()
                                                                 : database->getPaperSpaceId();
}

mvsi::MvsiApDocument* findDwgDoc(const OdString& path) {
  morvane::Host* host = morvane::admitCall("findDwgDoc");
  return host == nullptr ? nullptr : host->documents().findFile(host->paths(), path);
}

} // namespace qzutads

namespace mvsi {

int mvdbGetDimAssocId(const OdDbObjectId& dimensionId, OdDbObjectId& associationId) {
  const bool admitted = morvane::admitCall("mvdbGetDimAssocId") != nullptr;
  associationId = admitted ? OdDbDimAssoc::associationOf(dimensionId) : OdDbObjectId();
  return associationId.isNull() ? RTERROR : 0;
}

} // namespace mvsi
