#include "DbIdMapping.h"

MVDRAWING_DEFINE_CLASS(OdDbIdMapping, OdRxObject, "");

void OdDbIdMapping::assign(const OdDbIdPair& pair) {
  const auto [found, isNew] = index_.emplace(pair.key(), pairs_.size());
  if (isNew)
    pairs_.push_back(pair);
  else
    pairs_[found->second] = pair;
}

bool OdDbIdMapping::compute(OdDbIdPair& pair) const {
  const auto found = index_.find(pair.key());
  if (found == index_.end())
    return false;
  pair = pairs_[found->second];
  return true;
}

OdDbObjectId OdDbIdMapping::valueOf(OdDbObjectId key) const {
  const auto found = index_.find(key);
  return found == index_.end() ? OdDbObjectId() : pairs_[found->second].value();
}
